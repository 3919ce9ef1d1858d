#ifndef VEXUTILTOOLS_DIALOGTIMEANIMATIONOPTIONS_H
#define VEXUTILTOOLS_DIALOGTIMEANIMATIONOPTIONS_H

#include <cstdint>
#include <map>
#include <string>

#include <boost/function.hpp>

#include "model/AnimationSettings_s.h"
#include "model/TimeAnimationOperation_e.h"
#include "ui/ModalLock.h"
#include "ui/TextFieldValidator.h"
#include "vexgui.h"

namespace vexplot {
namespace vexutiltools {

// The modal "Time Animation Options" dialog: how solution time is stepped during an animation
// (Forward, Loop, Bounce, As Captured) and, for Loop and Bounce, the number of cycles.
//
// launch edits the settings it is given (not owned; they must outlive the dialog's modal life)
// and reports the end through the completion callback: true for OK, false for Cancel.
// - The host dialog is made on the first launch and reused; each launch shows the values of the
//   settings passed then.
// - The host lock is held from the launch to OK or Cancel (ModalLock).
// - OK writes the operation, the cycle count and AnimateTime = true: accepting the dialog turns
//   concurrent time animation on, deliberately, whichever operation was chosen.
// - Cancel changes nothing in the settings.
// - The cycle field takes whole numbers of at least 1; its arrows step by one within the bounds.
class DialogTimeAnimationOptions {
public:
    using Completion = boost::function<void(bool accepted)>;

    struct Controls {
        int32_t dialog = VEXGUI_BAD_ID;
        int32_t numCyclesLabel = VEXGUI_BAD_ID;
        int32_t frame = VEXGUI_BAD_ID;
        int32_t operation = VEXGUI_BAD_ID;  // radio box, toggles 1 to 4
        int32_t numCycles = VEXGUI_BAD_ID;  // spin text field
    };

    static constexpr const char* HelpPage = "addons.html#addons/working-with/keyframe/options";

    DialogTimeAnimationOptions();
    virtual ~DialogTimeAnimationOptions();

    DialogTimeAnimationOptions(const DialogTimeAnimationOptions&) = delete;
    DialogTimeAnimationOptions& operator=(const DialogTimeAnimationOptions&) = delete;

    void launch(AnimationSettings_s& settings, const Completion& completion);

    const Controls& getControls() const { return controls_; }
    const TextFieldValidator<int>& getNumCyclesValidator() const { return numCycles_; }
    // The operation of each radio button (1 to 4).
    const std::map<int32_t, TimeAnimationOperation_e>& getToggleMap() const { return toggleMap_; }

private:
    void create();
    void init();
    void ok();
    void cancel();
    void operationChanged(int32_t toggle);
    void numCyclesEntered(const std::string& text);
    // The spin field's arrows.
    void numCyclesUp();
    void numCyclesDown();
    void stepNumCycles(int64_t step);
    // The cycle field and its label are only of use to Loop and Bounce.
    void showNumCyclesSensitivity(bool hasOperation, TimeAnimationOperation_e operation);

    TextFieldValidator<int> numCycles_;
    AnimationSettings_s* settings_ = nullptr;  // not owned; null while the dialog is not up
    std::map<int32_t, TimeAnimationOperation_e> toggleMap_;
    Completion completion_;
    Controls controls_;
    ModalLock modalLock_;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
