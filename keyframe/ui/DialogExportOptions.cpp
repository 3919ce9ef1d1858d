#include "ui/DialogExportOptions.h"

#include <algorithm>
#include <ios>
#include <map>
#include <sstream>

#include <boost/format.hpp>

#include "addon/FramePopperLightweight.h"
#include "addon/LockScope.h"
#include "ui/DialogCallback.h"
#include "ui/FileNameChooser.h"
#include "vxtoolbox.h"

namespace vexplot {
namespace vexutiltools {

namespace {

// The Flash compression type of each radio button, and its keyword.
const std::map<int64_t, const char*>& compressionKeywords() {
    static const std::map<int64_t, const char*> table = {{0, "BESTSPEED"}, {1, "SMALLESTSIZE"}};
    return table;
}

// What the host uses for "no compression button on"; it has no keyword and is recorded as the
// number, the only text that names it.
constexpr int64_t NoCompressionChoice = 255;

template <typename T>
const ExportSetupTable<T>& table() {
    return ExportSetupTable<T>::instance();
}

// Writes one export setup attribute and, while the host records a macro, records it as the line
// that sets it again, all under a lock of its own.
void applyAttribute(const std::string& attribute, double doubleValue, VexArbParam_t intValue,
                    const std::string& recordedValue) {
    LockScope lock;
    VexUtilExportSetup(attribute.c_str(), nullptr, doubleValue, intValue);
    if (VexUtilMacroIsRecordingActive()) {
        const std::string line = "$!EXPORTSETUP " + attribute + " = " + recordedValue;
        VexUtilMacroRecordRawCommand(line.c_str());
    }
}

void applyInteger(const std::string& attribute, int64_t value, const std::string& recordedValue) {
    applyAttribute(attribute, 0.0, static_cast<VexArbParam_t>(value), recordedValue);
}

// An enumerated attribute, recorded by its keyword.
template <typename T>
void applyChoice(T value) {
    applyInteger(table<T>().getAttribute(), static_cast<int64_t>(value),
                 table<T>().getEntry(value).keyword);
}

std::string decimal(int64_t value) {
    return std::to_string(value);
}

int64_t truncatedScreenX(double paperInches) {
    return static_cast<int64_t>(
        VexUtilConvertXDimension(VexCoordSys_Paper, VexCoordSys_Screen, paperInches));
}

int64_t truncatedScreenY(double paperInches) {
    return static_cast<int64_t>(
        VexUtilConvertYDimension(VexCoordSys_Paper, VexCoordSys_Screen, paperInches));
}

const vexplot::toolbox::StyleValue& exportSetup() {
    static const vexplot::toolbox::StyleValue value("ExportSetup");
    return value;
}

// Shows the host's value of an enumerated attribute in its menu; a value the host does not have,
// or one the menu does not offer, leaves the menu as it is.
template <typename T>
void showHostChoice(OptionMenuStaticManager<T>& menu) {
    int64_t value = -1;
    if (exportSetup().get(value, table<T>().getAttribute()) == VexGetValue_Ok)
        menu.setSelectedValue(static_cast<T>(value));
}

}  // namespace

DialogExportOptions::DialogExportOptions()
    : width_(VEXGUI_BAD_ID, 300, true, 4, true, 32766),
      speed_(VEXGUI_BAD_ID, 30.0, true, 0.001, true, 200.0),
      factor_(VEXGUI_BAD_ID, 3, true, 2, true, 16),
      formatMenu_(table<ExportFormat_e>().getMenuEntries()),
      regionMenu_(table<ExportRegion_e>().getMenuEntries()),
      imageTypeMenu_(table<FlashImageType_e>().getMenuEntries()),
      exportFileName_("animation") {}

DialogExportOptions::~DialogExportOptions() = default;

const std::string& DialogExportOptions::fileExtension(ExportFormat_e format) {
    return table<ExportFormat_e>().getEntry(format).fileExtension;
}

void DialogExportOptions::launch(const AfterOk& afterOk) {
    afterOk_ = afterOk;
    modalLock_.acquire();
    if (controls_.dialog == VEXGUI_BAD_ID)
        create();
    formatMenu_.populate(controls_.format);
    regionMenu_.populate(controls_.region);
    imageTypeMenu_.populate(controls_.imageType);
    VexGUIDialogLaunch(controls_.dialog);
}

void DialogExportOptions::create() {
    Controls& c = controls_;
    c.dialog = VexGUIDialogCreateModal(VEXGUI_MAIN_DIALOG_PARENT, 5844, 2503, "Export Options",
                                       &dialogCallback<&DialogExportOptions::init>,
                                       &dialogCallback<&DialogExportOptions::ok>, nullptr,
                                       &dialogCallback<&DialogExportOptions::drop>,
                                       &dialogHelp<DialogExportOptions>, this);
    c.formatLabel = VexGUILabelAdd(c.dialog, 293, 116, "Format:");
    c.format = VexGUIOptionMenuAdd(c.dialog, 1467, 65, 4110, 145,
                                   &dialogCallback<&DialogExportOptions::update>, this);
    c.regionLabel = VexGUILabelAdd(c.dialog, 293, 319, "Region:");
    c.region = VexGUIOptionMenuAdd(c.dialog, 1467, 282, 4110, 145,
                                   &dialogCallback<&DialogExportOptions::update>, this);
    {
        const vexplot::toolbox::StringList labels{"&Use Width of Image on Screen", "&Enter Width:"};
        c.widthChoice = VexGUIRadioBoxAdd(c.dialog, 328, 522, 5249, 297, labels.handle(),
                                          &dialogCallback<&DialogExportOptions::update>, this);
    }
    c.width = VexGUITextFieldAdd(c.dialog, 811, 848, 949, 145,
                                 &dialogCallback<&DialogExportOptions::widthEntered>, this);
    c.dimensions = VexGUILabelAdd(c.dialog, 2400, 884, "Dimensions: 0 x 0");
    c.speedLabel = VexGUILabelAdd(c.dialog, 293, 1153, "Animation Speed (frames/sec):");
    c.speed = VexGUITextFieldAdd(c.dialog, 3989, 1131, 1588, 145,
                                 &dialogCallback<&DialogExportOptions::speedEntered>, this);
    c.antialiasing = VexGUIToggleAdd(c.dialog, 293, 1334, 2055, 123, "&Antialiasing",
                                     &dialogCallback<&DialogExportOptions::update>, this);
    c.factorLabel = VexGUILabelAdd(c.dialog, 656, 1479, "Supersample Factor (2-16):");
    c.factor = VexGUITextFieldAdd(c.dialog, 3989, 1457, 1588, 145,
                                  &dialogCallback<&DialogExportOptions::factorEntered>, this);
    c.imageTypeLabel = VexGUILabelAdd(c.dialog, 259, 1943, "Image Type:");
    c.imageType = VexGUIOptionMenuAdd(c.dialog, 2417, 1907, 3177, 145,
                                      &dialogCallback<&DialogExportOptions::update>, this);
    {
        const vexplot::toolbox::StringList labels{"Optimize for &Speed", "Optimize for &File Size"};
        c.compression = VexGUIRadioBoxAdd(c.dialog, 241, 2125, 5336, 297, labels.handle(),
                                          &dialogCallback<&DialogExportOptions::update>, this);
    }

    width_.setControlId(c.width);
    speed_.setControlId(c.speed);
    factor_.setControlId(c.factor);
    // The width choice is the dialog's own and outlives each launch; the first one starts from
    // the picture as it is on screen.
    VexGUIRadioBoxSetToggle(c.widthChoice, 1);
    width_.showValue();
}

void DialogExportOptions::init() {
    const vexplot::toolbox::StyleValue& setup = exportSetup();

    showHostChoice(formatMenu_);

    double speed = speed_.getValue();
    setup.get(speed, "AnimationSpeed");
    speed_.setValue(speed_.clamp(speed));
    speed_.showValue();

    bool antialiasing = false;
    setup.get(antialiasing, "UseSuperSampleAntiAliasing");
    VexGUIToggleSet(controls_.antialiasing, antialiasing);

    int64_t factor = 3;
    if (setup.get(factor, "SuperSampleFactor") != VexGetValue_Ok)
        factor = 3;
    factor =
        std::min<int64_t>(std::max<int64_t>(factor, factor_.getMinimum()), factor_.getMaximum());
    factor_.setValue(static_cast<int>(factor));
    factor_.showValue();

    showHostChoice(imageTypeMenu_);

    int64_t compression = 0;
    if (setup.get(compression, "FlashCompressionType") != VexGetValue_Ok)
        compression = 0;
    VexGUIRadioBoxSetToggle(controls_.compression, compression == 0 ? 1 : 2);

    // A host that dropped the radio box's state would leave no button on; the on-screen width
    // is then the choice, as at the first launch.
    if (VexGUIRadioBoxGetToggle(controls_.widthChoice) == 0)
        VexGUIRadioBoxSetToggle(controls_.widthChoice, 1);

    update();
}

void DialogExportOptions::update() {
    const Controls& c = controls_;
    const ExportFormat_e format = formatMenu_.getSelectedValue();
    const bool flash = format == ExportFormat_e::Flash;
    VexGUISetSensitivity(c.imageTypeLabel, flash);
    VexGUISetSensitivity(c.imageType, flash);
    VexGUISetSensitivity(c.compression, flash);

    VexGUISetSensitivity(c.width, VexGUIRadioBoxGetToggle(c.widthChoice) == 2);

    const bool hasSpeed = format != ExportFormat_e::RasterMetafile;
    VexGUISetSensitivity(c.speedLabel, hasSpeed);
    VexGUISetSensitivity(c.speed, hasSpeed);

    const bool antialiasing = VexGUIToggleGet(c.antialiasing);
    VexGUISetSensitivity(c.factorLabel, antialiasing);
    VexGUISetSensitivity(c.factor, antialiasing);

    const std::pair<int64_t, int64_t> size = computeImageSize();
    const std::string dimensions =
        (boost::format("Dimensions: %1% x %2%") % size.first % size.second).str();
    VexGUILabelSetText(c.dimensions, dimensions.c_str());
}

std::pair<int64_t, int64_t> DialogExportOptions::computeImageSize() const {
    LockScope lock;
    int64_t width = 0;
    int64_t height = 0;
    switch (regionMenu_.getSelectedValue()) {
        case ExportRegion_e::CurrentFrame: {
            // A macro can delete every frame while the dialog is up; with no frame there is no
            // size to ask the host for, and the picture would be empty.
            if (VexUtilFrameGetCount() == 0)
                break;
            double x = 0.0, y = 0.0, frameWidth = 0.0, frameHeight = 0.0;
            VexUtilFrameGetPosAndSize(&x, &y, &frameWidth, &frameHeight);
            width = truncatedScreenX(frameWidth);
            height = truncatedScreenY(frameHeight);
            break;
        }
        case ExportRegion_e::AllFrames: {
            if (VexUtilFrameGetCount() == 0)
                break;
            bool first = true;
            int64_t left = 0, top = 0, right = 0, bottom = 0;
            FramePopperLightweight popper;
            do {
                double x = 0.0, y = 0.0, frameWidth = 0.0, frameHeight = 0.0;
                VexUtilFrameGetPosAndSize(&x, &y, &frameWidth, &frameHeight);
                const int64_t frameLeft = truncatedScreenX(x);
                const int64_t frameTop = truncatedScreenY(y);
                const int64_t frameRight = frameLeft + truncatedScreenX(frameWidth);
                const int64_t frameBottom = frameTop + truncatedScreenY(frameHeight);
                if (first) {
                    left = frameLeft, top = frameTop, right = frameRight, bottom = frameBottom;
                    first = false;
                } else {
                    left = std::min(left, frameLeft);
                    top = std::min(top, frameTop);
                    right = std::max(right, frameRight);
                    bottom = std::max(bottom, frameBottom);
                }
            } while (popper.popNext());
            width = right - left;
            height = bottom - top;
            break;
        }
        case ExportRegion_e::WorkArea: {
            int32_t areaWidth = 0;
            int32_t areaHeight = 0;
            VexUtilWorkAreaGetDimensions(&areaWidth, &areaHeight);
            width = areaWidth;
            height = areaHeight;
            break;
        }
    }
    if (VexGUIRadioBoxGetToggle(controls_.widthChoice) == 2) {
        const int64_t entered = width_.getValue();
        // A region without width has no proportions to keep; its height stays 0 rather than
        // dividing by zero.
        height = width != 0 ? entered * height / width : 0;
        width = entered;
    }
    return {width, height};
}

void DialogExportOptions::widthEntered(const std::string& text) {
    numberEntered(width_, text);
}

void DialogExportOptions::speedEntered(const std::string& text) {
    numberEntered(speed_, text);
}

void DialogExportOptions::factorEntered(const std::string& text) {
    numberEntered(factor_, text);
}

template <typename Number>
void DialogExportOptions::numberEntered(TextFieldValidator<Number>& field,
                                        const std::string& text) {
    if (!field.validate(text))
        field.showValue();
    update();
}

void DialogExportOptions::ok() {
    const ExportFormat_e format = formatMenu_.getSelectedValue();
    const ExportSetupTable<ExportFormat_e>::Entry& formatEntry =
        table<ExportFormat_e>().getEntry(format);
    FileNameChooser chooser(exportFileName_, formatEntry.fileExtension, formatEntry.menuText);
    if (!chooser.chooseFileName(VexSelectFile_WriteFile))
        return;
    exportFileName_ = chooser.getFileName();

    // Everything is read while the dialog is up, then the dialog goes before the host changes.
    const bool flash = format == ExportFormat_e::Flash;
    const FlashImageType_e imageType = imageTypeMenu_.getSelectedValue();
    const int32_t compressionButton = VexGUIRadioBoxGetToggle(controls_.compression);
    const int64_t compression = compressionButton == 1   ? 0
                                : compressionButton == 2 ? 1
                                                         : NoCompressionChoice;
    const ExportRegion_e region = regionMenu_.getSelectedValue();
    const int64_t imageWidth = computeImageSize().first;
    const double speed = speed_.getValue();
    const bool antialiasing = VexGUIToggleGet(controls_.antialiasing);
    const int factor = factor_.getValue();
    drop();

    applyChoice(format);
    if (flash) {
        applyChoice(imageType);
        const auto found = compressionKeywords().find(compression);
        applyInteger("FlashCompressionType", compression,
                     found != compressionKeywords().end() ? found->second : decimal(compression));
    }
    applyChoice(region);
    applyInteger("ImageWidth", imageWidth, decimal(imageWidth));
    {
        std::ostringstream text;
        text << speed;
        applyAttribute("AnimationSpeed", speed, 0, text.str());
    }
    {
        std::ostringstream text;
        text << std::boolalpha << antialiasing;
        applyInteger("UseSuperSampleAntiAliasing", antialiasing ? 1 : 0, text.str());
    }
    if (antialiasing)
        applyInteger("SuperSampleFactor", factor, decimal(factor));
    applyAttribute("ExportFName", 0.0, reinterpret_cast<VexArbParam_t>(exportFileName_.c_str()),
                   (boost::format("\"%1%\"") % exportFileName_).str());

    afterOk_();
}

void DialogExportOptions::drop() {
    VexGUIDialogDrop(controls_.dialog);
    modalLock_.release();
}

}  // namespace vexutiltools
}  // namespace vexplot
