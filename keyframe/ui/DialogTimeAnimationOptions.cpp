#include "ui/DialogTimeAnimationOptions.h"

#include <limits>

#include "addon/LockScope.h"
#include "ui/DialogCallback.h"
#include "vxtoolbox.h"

namespace vexplot {
namespace vexutiltools {

namespace {

bool usesNumCycles(TimeAnimationOperation_e operation) {
    return operation == TimeAnimationOperation_e::Loop ||
           operation == TimeAnimationOperation_e::Bounce;
}

}  // namespace

DialogTimeAnimationOptions::DialogTimeAnimationOptions()
    // At least one cycle and no upper bound of its own: the stored maximum is the largest int.
    : numCycles_(VEXGUI_BAD_ID, 1, true, 1, false, std::numeric_limits<int>::max()),
      toggleMap_{{1, TimeAnimationOperation_e::Forward},
                 {2, TimeAnimationOperation_e::Loop},
                 {3, TimeAnimationOperation_e::Bounce},
                 {4, TimeAnimationOperation_e::AsCaptured}} {}

DialogTimeAnimationOptions::~DialogTimeAnimationOptions() = default;

void DialogTimeAnimationOptions::launch(AnimationSettings_s& settings,
                                        const Completion& completion) {
    settings_ = &settings;
    completion_ = completion;
    modalLock_.acquire();
    if (controls_.dialog == VEXGUI_BAD_ID)
        create();
    VexGUIDialogLaunch(controls_.dialog);
}

void DialogTimeAnimationOptions::create() {
    Controls& c = controls_;
    c.dialog = VexGUIDialogCreateModal(
        VEXGUI_MAIN_DIALOG_PARENT, 5357, 878, "Time Animation Options",
        &dialogCallback<&DialogTimeAnimationOptions::init>,
        // OK and Cancel give back the lock the launch took: they count their locks themselves.
        &dialogCallback<&DialogTimeAnimationOptions::ok, CallbackLocking::NoLock>, nullptr,
        &dialogCallback<&DialogTimeAnimationOptions::cancel, CallbackLocking::NoLock>,
        &dialogHelp<DialogTimeAnimationOptions>, this);
    c.numCyclesLabel = VexGUILabelAdd(c.dialog, 2901, 159, "Num Cycles:");
    c.frame = VexGUIFrameAdd(c.dialog, 207, 79, 4956, 732, "Animation Operation");
    const vexplot::toolbox::StringList labels{"&Forward", "&Loop", "&Bounce", "&As Captured"};
    c.operation =
        VexGUIRadioBoxAdd(c.dialog, 587, 166, 2003, 573, labels.handle(),
                          &dialogCallback<&DialogTimeAnimationOptions::operationChanged>, this);
    c.numCycles =
        VexGUISpinTextFieldAdd(c.dialog, 2918, 333, 1329, 145,
                               &dialogCallback<&DialogTimeAnimationOptions::numCyclesEntered>,
                               &dialogCallback<&DialogTimeAnimationOptions::numCyclesUp>,
                               &dialogCallback<&DialogTimeAnimationOptions::numCyclesDown>, this);
}

void DialogTimeAnimationOptions::init() {
    numCycles_.setControlId(controls_.numCycles);
    numCycles_.showValue();

    bool hasOperation = false;
    for (const auto& entry : toggleMap_) {
        if (entry.second == settings_->TimeAnimationOperation) {
            VexGUIRadioBoxSetToggle(controls_.operation, entry.first);
            hasOperation = true;
            break;
        }
    }

    const uint64_t cycles = settings_->NumCycles;
    const int maximum = numCycles_.getMaximum();
    numCycles_.setValue(numCycles_.clamp(
        cycles > static_cast<uint64_t>(maximum) ? maximum : static_cast<int>(cycles)));
    numCycles_.showValue();
    showNumCyclesSensitivity(hasOperation, settings_->TimeAnimationOperation);
}

void DialogTimeAnimationOptions::showNumCyclesSensitivity(bool hasOperation,
                                                          TimeAnimationOperation_e operation) {
    const bool sensitive = hasOperation && usesNumCycles(operation);
    VexGUISetSensitivity(controls_.numCyclesLabel, sensitive);
    VexGUISetSensitivity(controls_.numCycles, sensitive);
}

void DialogTimeAnimationOptions::operationChanged(int32_t toggle) {
    const auto found = toggleMap_.find(toggle);
    if (found == toggleMap_.end())
        showNumCyclesSensitivity(false, TimeAnimationOperation_e::Forward);
    else
        showNumCyclesSensitivity(true, found->second);
}

void DialogTimeAnimationOptions::numCyclesEntered(const std::string& text) {
    // A rejected entry leaves the field showing the count still in force.
    if (!numCycles_.validate(text))
        numCycles_.showValue();
}

void DialogTimeAnimationOptions::numCyclesUp() {
    stepNumCycles(1);
}

void DialogTimeAnimationOptions::numCyclesDown() {
    stepNumCycles(-1);
}

void DialogTimeAnimationOptions::stepNumCycles(int64_t step) {
    const int64_t stepped = static_cast<int64_t>(numCycles_.getValue()) + step;
    int value = numCycles_.getMinimum();
    if (stepped > numCycles_.getMaximum())
        value = numCycles_.getMaximum();
    else if (stepped > numCycles_.getMinimum())
        value = static_cast<int>(stepped);
    numCycles_.setValue(value);
    numCycles_.showValue();
}

void DialogTimeAnimationOptions::ok() {
    {
        LockScope lock;
        const auto found = toggleMap_.find(VexGUIRadioBoxGetToggle(controls_.operation));
        // No button on cannot come from a launched dialog (init sets one for every operation
        // there is); the operation is then left as it was.
        if (found != toggleMap_.end())
            settings_->TimeAnimationOperation = found->second;
        settings_->NumCycles = static_cast<uint64_t>(numCycles_.getValue());
        settings_->AnimateTime = true;
        settings_ = nullptr;
    }
    VexGUIDialogDrop(controls_.dialog);
    try {
        completion_(true);
    } catch (...) {
        modalLock_.release();
        throw;
    }
    modalLock_.release();
}

void DialogTimeAnimationOptions::cancel() {
    settings_ = nullptr;
    modalLock_.release();
    VexGUIDialogDrop(controls_.dialog);
    completion_(false);
}

}  // namespace vexutiltools
}  // namespace vexplot
