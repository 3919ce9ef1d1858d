#ifndef VEXUTILTOOLS_DIALOGEXPORTOPTIONS_H
#define VEXUTILTOOLS_DIALOGEXPORTOPTIONS_H

#include <cstdint>
#include <map>
#include <string>
#include <utility>

#include <boost/function.hpp>

#include "ui/ExportFormat_e.h"
#include "ui/ExportRegion_e.h"
#include "ui/FlashImageType_e.h"
#include "ui/ModalLock.h"
#include "ui/OptionMenuStaticManager.h"
#include "ui/TextFieldValidator.h"
#include "vexgui.h"

namespace vexplot {
namespace vexutiltools {

// The modal "Export Options" dialog: how an animation is written to a movie file (format, screen
// region, image width, speed, supersampling, and the Flash (SWF) picture options).
//
// - launch shows the dialog (made on the first launch, reused after) and holds the host lock
//   until the dialog goes (ModalLock). Each launch starts from the host's export setup; the
//   region and the width choice are the dialog's own and are not read from it.
// - OK asks for the movie's file name (the format's extension, the default-extension and
//   overwrite questions of FileNameChooser). A cancel or a refusing answer leaves the dialog up
//   and changes nothing. Otherwise the dialog goes, every value is written to the host's export
//   setup, each under its own lock and in a fixed order, and, only while the host records a
//   macro, recorded as a line "$!EXPORTSETUP <Attribute> = <value>"; then the after-OK callback
//   given to launch runs (an empty one is boost::bad_function_call).
// - Cancel drops the dialog and changes nothing.
// - Number fields take only values within their bounds (width 4 to 32766, speed 0.001 to 200,
//   supersample factor 2 to 16); a rejected entry is reported and the field shows the value in
//   force again, so the fields always show the values that OK applies.
class DialogExportOptions {
public:
    using AfterOk = boost::function<void()>;

    struct Controls {
        int32_t dialog = VEXGUI_BAD_ID;
        int32_t formatLabel = VEXGUI_BAD_ID;
        int32_t format = VEXGUI_BAD_ID;
        int32_t regionLabel = VEXGUI_BAD_ID;
        int32_t region = VEXGUI_BAD_ID;
        int32_t widthChoice = VEXGUI_BAD_ID;  // radio box: 1 on-screen width, 2 entered width
        int32_t width = VEXGUI_BAD_ID;
        int32_t dimensions = VEXGUI_BAD_ID;
        int32_t speedLabel = VEXGUI_BAD_ID;
        int32_t speed = VEXGUI_BAD_ID;
        int32_t antialiasing = VEXGUI_BAD_ID;
        int32_t factorLabel = VEXGUI_BAD_ID;
        int32_t factor = VEXGUI_BAD_ID;
        int32_t imageTypeLabel = VEXGUI_BAD_ID;
        int32_t imageType = VEXGUI_BAD_ID;
        int32_t compression = VEXGUI_BAD_ID;  // radio box: 1 best speed, 2 smallest size
    };

    static constexpr const char* HelpPage = "addons.html#_export_animation_options";

    DialogExportOptions();
    virtual ~DialogExportOptions();

    DialogExportOptions(const DialogExportOptions&) = delete;
    DialogExportOptions& operator=(const DialogExportOptions&) = delete;

    void launch(const AfterOk& afterOk);

    const Controls& getControls() const { return controls_; }
    // The movie file chosen by the last OK ("animation" with the format's extension before).
    const std::string& getExportFileName() const { return exportFileName_; }

    // The picture size in pixels that the controls describe now: the region's size on screen,
    // or, with the entered width W, W and the height scaled by W / on-screen width in integer
    // arithmetic (multiplication first). Under the host lock; the dialog must exist.
    std::pair<int64_t, int64_t> computeImageSize() const;

    // The extension of the format's movie files, without the dot ("mp4").
    static const std::string& fileExtension(ExportFormat_e format);

private:
    void create();
    void init();
    void ok();
    void drop();
    // Sensitivities and the Dimensions label, after any change.
    void update();
    // The number fields: a rejected entry leaves the field showing the value in force.
    void widthEntered(const std::string& text);
    void speedEntered(const std::string& text);
    void factorEntered(const std::string& text);
    template <typename Number>
    void numberEntered(TextFieldValidator<Number>& field, const std::string& text);

    TextFieldValidator<int> width_;
    TextFieldValidator<double> speed_;
    TextFieldValidator<int> factor_;
    OptionMenuStaticManager<ExportFormat_e> formatMenu_;
    OptionMenuStaticManager<ExportRegion_e> regionMenu_;
    OptionMenuStaticManager<FlashImageType_e> imageTypeMenu_;
    std::string exportFileName_;
    AfterOk afterOk_;
    Controls controls_;
    ModalLock modalLock_;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
