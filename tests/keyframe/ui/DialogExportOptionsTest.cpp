#include "ui/DialogExportOptions.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "UiFixture.h"
#include "addon/AddOn.h"
#include "support/CallLogLines.h"
#include "support/TemporaryDirectory.h"
#include "vexhost/ExportSettings.h"
#include "vexhost/Exporter.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/MacroRecorder.h"
#include "vexhost/UserDialogs.h"

namespace vextest {
namespace {

using vexhost::GuiUser;
using vexplot::vexutiltools::AddOn;
using vexplot::vexutiltools::DialogExportOptions;
using vexplot::vexutiltools::ExportFormat_e;
using Kind = vexhost::GuiControl::Kind;
using Lines = std::vector<std::string>;

constexpr const char* Export = "Export Options";

class DialogExportOptionsTest : public UiFixture {
protected:
    void SetUp() override {
        UiFixture::SetUp();
        createFrame3D().setPosAndSize(0.5, 0.5, 8.0, 6.0);
    }
    DialogExportOptions& options() { return DialogMain::instance().getExportOptions(); }
    void launch() {
        options().launch([this] { ++afterOkCount; });
        ASSERT_EQ(lockDepth(), 1);
        ASSERT_TRUE(dialogNamed(Export).up);
    }
    void setExport(const char* attribute, double doubleValue, VexArbParam_t intValue) {
        ScopedLock lock(AddOn::getIdentifier());
        VexUtilExportSetup(attribute, nullptr, doubleValue, intValue);
    }
    const vexhost::GuiControl& exportControl(const std::string& text,
                                             const std::vector<Kind>& kinds = {}) {
        return control(Export, text, kinds);
    }
    const vexhost::GuiControl& radioBox(int ordinal) {
        return user().findControlOfKind(dialogNamed(Export), Kind::RadioBox, ordinal);
    }
    void chooseRadio(const std::string& label) {
        const auto found = user().findRadioButton(dialogNamed(Export), label);
        user().chooseRadioButton(found.first->id, found.second);
        EXPECT_EQ(lockDepth(), 1);
    }
    void setAntialiasing(bool on) {
        user().setToggle(exportControl("Antialiasing", {Kind::Toggle}).id, on);
        EXPECT_EQ(lockDepth(), 1);
    }
    void ok() { pressDialogButton(Export, GuiUser::DialogButton::Ok, 0); }
    std::string dimensions() { return controlById(options().getControls().dimensions).label; }

    int afterOkCount = 0;
    TemporaryDirectory directory;
};

TEST_F(DialogExportOptionsTest, TheModalDialogAndItsControlsFromTopToBottom) {
    launch();
    const vexhost::GuiDialog& dialog = dialogNamed(Export);
    EXPECT_TRUE(dialog.modal);
    EXPECT_EQ(dialog.width, 5844);
    EXPECT_EQ(dialog.height, 2503);
    EXPECT_TRUE(dialog.hasHelp());
    EXPECT_FALSE(dialog.hasApply());
    struct Expected {
        Kind kind;
        std::string label;
        std::vector<int32_t> place;
    };
    const std::vector<Expected> expected = {
        {Kind::Label, "Format:", {293, 116}},
        {Kind::OptionMenu, "", {1467, 65, 4110, 145}},
        {Kind::Label, "Region:", {293, 319}},
        {Kind::OptionMenu, "", {1467, 282, 4110, 145}},
        {Kind::RadioBox, "", {328, 522, 5249, 297}},
        {Kind::TextField, "", {811, 848, 949, 145}},
        {Kind::Label, "Dimensions: 800 x 600", {2400, 884}},
        {Kind::Label, "Animation Speed (frames/sec):", {293, 1153}},
        {Kind::TextField, "", {3989, 1131, 1588, 145}},
        {Kind::Toggle, "&Antialiasing", {293, 1334, 2055, 123}},
        {Kind::Label, "Supersample Factor (2-16):", {656, 1479}},
        {Kind::TextField, "", {3989, 1457, 1588, 145}},
        {Kind::Label, "Image Type:", {259, 1943}},
        {Kind::OptionMenu, "", {2417, 1907, 3177, 145}},
        {Kind::RadioBox, "", {241, 2125, 5336, 297}}};
    ASSERT_EQ(dialog.controls.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE(i);
        const vexhost::GuiControl& c = controlById(dialog.controls[i]);
        EXPECT_EQ(c.kind, expected[i].kind);
        EXPECT_EQ(c.label, expected[i].label);
        std::vector<int32_t> place{c.x, c.y};
        if (c.hasSize()) {
            place.push_back(c.width);
            place.push_back(c.height);
        }
        EXPECT_EQ(place, expected[i].place);
    }
    EXPECT_EQ(controlById(dialog.controls[1]).items,
              (Lines{"AVI", "Flash (FLV)", "Flash (SWF)", "MPEG-4", "Raster Metafile", "WMV"}));
    EXPECT_EQ(controlById(dialog.controls[3]).items,
              (Lines{"Active Frame", "All Frames", "Work Area"}));
    EXPECT_EQ(controlById(dialog.controls[4]).items,
              (Lines{"&Use Width of Image on Screen", "&Enter Width:"}));
    EXPECT_EQ(controlById(dialog.controls[13]).items, (Lines{"True Color", "JPEG", "256 Colors"}));
    EXPECT_EQ(controlById(dialog.controls[14]).items,
              (Lines{"Optimize for &Speed", "Optimize for &File Size"}));
    pressDialogButton(Export, GuiUser::DialogButton::Cancel);
}

TEST_F(DialogExportOptionsTest, InitReadsTheExportSetupAndClampsTheNumbers) {
    setExport("ExportFormat", 0, 17);
    setExport("AnimationSpeed", 500.0, 0);
    setExport("UseSuperSampleAntiAliasing", 0, 1);
    setExport("SuperSampleFactor", 0, 16);
    setExport("FlashImageType", 0, 1);
    setExport("FlashCompressionType", 0, 1);
    launch();
    EXPECT_EQ(exportControl("Format:", {Kind::OptionMenu}).choice, 3);
    // 500 is above the field's bound of 200: the dialog starts from 200.
    EXPECT_EQ(exportControl("Animation Speed (frames/sec):", {Kind::TextField}).text, "200");
    EXPECT_TRUE(exportControl("Antialiasing", {Kind::Toggle}).isOn);
    EXPECT_EQ(exportControl("Supersample Factor (2-16):", {Kind::TextField}).text, "16");
    EXPECT_EQ(exportControl("Image Type:", {Kind::OptionMenu}).choice, 2);
    EXPECT_EQ(radioBox(2).choice, 2);
    EXPECT_EQ(radioBox(1).choice, 1);
    EXPECT_EQ(exportControl("Region:", {Kind::OptionMenu}).choice, 1);
    pressDialogButton(Export, GuiUser::DialogButton::Cancel);
}

TEST_F(DialogExportOptionsTest, SensitivitiesFollowTheFormatTheWidthChoiceAndAntialiasing) {
    launch();
    // MPEG-4, on-screen width, no antialiasing.
    EXPECT_FALSE(exportControl("Image Type:", {Kind::OptionMenu}).sensitive);
    EXPECT_FALSE(exportControl("Image Type:", {Kind::Label}).sensitive);
    EXPECT_FALSE(radioBox(2).sensitive);
    EXPECT_FALSE(controlById(options().getControls().width).sensitive);
    EXPECT_TRUE(exportControl("Animation Speed (frames/sec):", {Kind::TextField}).sensitive);
    EXPECT_FALSE(exportControl("Supersample Factor (2-16):", {Kind::TextField}).sensitive);
    EXPECT_FALSE(exportControl("Supersample Factor (2-16):", {Kind::Label}).sensitive);

    chooseOption(Export, "Format:", "Flash (SWF)", 1);
    EXPECT_TRUE(exportControl("Image Type:", {Kind::OptionMenu}).sensitive);
    EXPECT_TRUE(radioBox(2).sensitive);
    chooseOption(Export, "Format:", "Raster Metafile", 1);
    EXPECT_FALSE(exportControl("Animation Speed (frames/sec):", {Kind::TextField}).sensitive);
    EXPECT_FALSE(exportControl("Animation Speed (frames/sec):", {Kind::Label}).sensitive);
    chooseRadio("Enter Width:");
    EXPECT_TRUE(controlById(options().getControls().width).sensitive);
    setAntialiasing(true);
    EXPECT_TRUE(exportControl("Supersample Factor (2-16):", {Kind::TextField}).sensitive);
    pressDialogButton(Export, GuiUser::DialogButton::Cancel);
}

TEST_F(DialogExportOptionsTest, AnEnteredWidthScalesTheHeightInIntegerArithmetic) {
    launch();
    EXPECT_EQ(dimensions(), "Dimensions: 800 x 600");
    chooseRadio("Enter Width:");
    EXPECT_EQ(dimensions(), "Dimensions: 300 x 225");
    user().enterText(options().getControls().width, "1000");
    EXPECT_EQ(dimensions(), "Dimensions: 1000 x 750");

    host().frames().setWorkArea(3, 2);
    chooseOption(Export, "Region:", "Work Area", 1);
    user().enterText(options().getControls().width, "4");
    // 4 * 2 / 3 = 2 (integer division after the multiplication).
    EXPECT_EQ(dimensions(), "Dimensions: 4 x 2");
    pressDialogButton(Export, GuiUser::DialogButton::Cancel);
}

TEST_F(DialogExportOptionsTest, TheAllFramesRegionEnclosesEveryFrame) {
    createFrame3D().setPosAndSize(2.0, 1.0, 9.0, 7.0);
    launch();
    chooseOption(Export, "Region:", "All Frames", 1);
    // From (0.5, 0.5) to (11, 8) inches: 1050 x 750 pixels.
    EXPECT_EQ(dimensions(), "Dimensions: 1050 x 750");
    chooseOption(Export, "Region:", "Work Area", 1);
    EXPECT_EQ(dimensions(), "Dimensions: 1024 x 768");
    pressDialogButton(Export, GuiUser::DialogButton::Cancel);
}

TEST_F(DialogExportOptionsTest, WithEveryFrameDeletedWhileUpTheFrameRegionMeasuresNothing) {
    // A macro can delete the frames while the modal dialog waits for its answer; asking the host
    // for the size of a frame that is not there would be a host error.
    launch();
    host().frames().removeAll();
    chooseOption(Export, "Region:", "All Frames", 1);
    EXPECT_EQ(dimensions(), "Dimensions: 0 x 0");
    chooseOption(Export, "Region:", "Active Frame", 1);
    EXPECT_EQ(dimensions(), "Dimensions: 0 x 0");
    chooseRadio("Enter Width:");
    EXPECT_EQ(dimensions(), "Dimensions: 300 x 0");
    pressDialogButton(Export, GuiUser::DialogButton::Cancel);
}

TEST_F(DialogExportOptionsTest, OkRecordsTheSixLinesOfAnMpeg4ExportInOrder) {
    host().macro().setRecording(true);
    launch();
    const std::string movie = directory.file("movie.mp4");
    host().userDialogs().queueFileName(movie);
    ok();
    EXPECT_EQ(
        host().macro().lines(),
        (Lines{"$!EXPORTSETUP ExportFormat = MPEG4", "$!EXPORTSETUP ExportRegion = CURRENTFRAME",
               "$!EXPORTSETUP ImageWidth = 800", "$!EXPORTSETUP AnimationSpeed = 10",
               "$!EXPORTSETUP UseSuperSampleAntiAliasing = false",
               "$!EXPORTSETUP ExportFName = \"" + movie + "\""}));
    EXPECT_EQ(afterOkCount, 1);
    EXPECT_FALSE(dialogNamed(Export).up);
    EXPECT_EQ(host().exporter().settings().fileName, movie);
    const auto& fileDialogs = host().userDialogs().fileDialogs();
    ASSERT_EQ(fileDialogs.size(), 1u);
    EXPECT_EQ(fileDialogs[0].mode, VexSelectFile_WriteFile);
    EXPECT_EQ(fileDialogs[0].filter, "*.mp4");
    EXPECT_EQ(fileDialogs[0].defaultFileName, "animation.mp4");
}

TEST_F(DialogExportOptionsTest, EachAttributeIsAppliedUnderItsOwnLockInOrder) {
    launch();
    host().userDialogs().queueFileName(directory.file("movie.avi"));
    chooseOption(Export, "Format:", "AVI", 1);
    startCallLog();
    ok();
    std::vector<std::string> applied;
    const std::vector<std::string> log = takeCallLog();
    for (std::size_t i = 0; i < log.size(); ++i) {
        if (log[i].rfind(vextest::callLineStart("VexUtilExportSetup"), 0) == 0) {
            applied.push_back(log[i].substr(19, log[i].find(',') - 19));
            EXPECT_EQ(log[i - 1], vextest::addOnLockStart());
        }
    }
    EXPECT_EQ(applied,
              (Lines{"\"ExportFormat\"", "\"ExportRegion\"", "\"ImageWidth\"", "\"AnimationSpeed\"",
                     "\"UseSuperSampleAntiAliasing\"", "\"ExportFName\""}));
}

TEST_F(DialogExportOptionsTest, NoLinesAreRecordedWhileTheRecorderIsOffButTheSetupIsApplied) {
    launch();
    chooseOption(Export, "Format:", "WMV", 1);
    type(Export, "Animation Speed (frames/sec):", "24.5", 1);
    host().userDialogs().queueFileName(directory.file("clip"));
    ok();
    EXPECT_TRUE(host().macro().lines().empty());
    const vexhost::ExportSettings settings = host().exporter().settings();
    EXPECT_EQ(settings.format, 22);
    EXPECT_DOUBLE_EQ(settings.animationSpeed, 24.5);
    // The name without extension got the format's.
    EXPECT_EQ(settings.fileName, directory.file("clip.wmv"));
}

TEST_F(DialogExportOptionsTest, RasterMetafileStillAppliesAndRecordsTheSpeed) {
    host().macro().setRecording(true);
    launch();
    chooseOption(Export, "Format:", "Raster Metafile", 1);
    host().userDialogs().queueFileName(directory.file("frames.rm"));
    ok();
    const Lines& lines = host().macro().lines();
    EXPECT_NE(std::find(lines.begin(), lines.end(), "$!EXPORTSETUP AnimationSpeed = 10"),
              lines.end());
    EXPECT_EQ(lines.front(), "$!EXPORTSETUP ExportFormat = RASTERMETAFILE");
}

TEST_F(DialogExportOptionsTest, FlashRecordsItsImageTypeAndCompression) {
    host().macro().setRecording(true);
    launch();
    chooseOption(Export, "Format:", "Flash (SWF)", 1);
    chooseOption(Export, "Image Type:", "256 Colors", 1);
    chooseRadio("Optimize for File Size");
    chooseOption(Export, "Region:", "Work Area", 1);
    setAntialiasing(true);
    type(Export, "Supersample Factor (2-16):", "4", 1);
    host().userDialogs().queueFileName(directory.file("movie.swf"));
    ok();
    EXPECT_EQ(
        host().macro().lines(),
        (Lines{"$!EXPORTSETUP ExportFormat = FLASH", "$!EXPORTSETUP FlashImageType = 256COLOR",
               "$!EXPORTSETUP FlashCompressionType = SMALLESTSIZE",
               "$!EXPORTSETUP ExportRegion = WORKAREA", "$!EXPORTSETUP ImageWidth = 1024",
               "$!EXPORTSETUP AnimationSpeed = 10",
               "$!EXPORTSETUP UseSuperSampleAntiAliasing = true",
               "$!EXPORTSETUP SuperSampleFactor = 4",
               "$!EXPORTSETUP ExportFName = \"" + directory.file("movie.swf") + "\""}));
    EXPECT_EQ(host().exporter().settings().flashImageType, 2);
    EXPECT_EQ(host().exporter().settings().flashCompressionType, 1);
    EXPECT_EQ(host().exporter().settings().superSampleFactor, 4);
}

TEST_F(DialogExportOptionsTest, OtherFormatsRecordNoFlashLinesAndNoFactorWithoutAntialiasing) {
    host().macro().setRecording(true);
    launch();
    chooseOption(Export, "Format:", "Flash (FLV)", 1);
    host().userDialogs().queueFileName(directory.file("movie.flv"));
    ok();
    for (const std::string& line : host().macro().lines()) {
        EXPECT_EQ(line.find("Flash"), std::string::npos) << line;
        EXPECT_EQ(line.find("SuperSampleFactor"), std::string::npos) << line;
    }
}

TEST_F(DialogExportOptionsTest, CancelingTheFileDialogLeavesTheDialogUpAndAppliesNothing) {
    host().macro().setRecording(true);
    launch();
    host().userDialogs().queueFileCancel();
    pressDialogButton(Export, GuiUser::DialogButton::Ok, 1);
    EXPECT_TRUE(dialogNamed(Export).up);
    EXPECT_TRUE(host().macro().lines().empty());
    EXPECT_EQ(afterOkCount, 0);
    pressDialogButton(Export, GuiUser::DialogButton::Cancel);
    EXPECT_EQ(afterOkCount, 0);
}

TEST_F(DialogExportOptionsTest, RefusingToOverwriteAFileLeavesTheDialogUp) {
    const std::string movie = directory.file("movie.mp4");
    std::ofstream(movie) << "old";
    launch();
    host().userDialogs().queueFileName(movie);
    host().userDialogs().queueAnswer(false);
    pressDialogButton(Export, GuiUser::DialogButton::Ok, 1);
    EXPECT_TRUE(dialogNamed(Export).up);
    pressDialogButton(Export, GuiUser::DialogButton::Cancel);
}

TEST_F(DialogExportOptionsTest, BadNumbersAreReportedAndTheFieldShowsTheValueInForce) {
    launch();
    type(Export, "Animation Speed (frames/sec):", "0", 1);
    chooseRadio("Enter Width:");
    user().enterText(options().getControls().width, "3");
    EXPECT_EQ(errorMessages(),
              (Lines{"Invalid input. Input must be a number between 0.001 and 200.",
                     "Invalid input. Input must be a number between 4 and 32766."}));
    EXPECT_EQ(exportControl("Animation Speed (frames/sec):", {Kind::TextField}).text, "10");
    EXPECT_EQ(controlById(options().getControls().width).text, "300");
    pressDialogButton(Export, GuiUser::DialogButton::Cancel);
}

TEST_F(DialogExportOptionsTest, AnEmptyAfterOkCallbackIsABadFunctionCallShownAsAnError) {
    options().launch(DialogExportOptions::AfterOk());
    host().userDialogs().queueFileName(directory.file("movie.mp4"));
    ok();
    ASSERT_EQ(errorMessages().size(), 1u);
    EXPECT_NE(errorMessages()[0].find("call to empty boost::function"), std::string::npos)
        << errorMessages()[0];
}

TEST_F(DialogExportOptionsTest, HelpShowsTheExportPage) {
    launch();
    pressDialogButton(Export, GuiUser::DialogButton::Help, 1);
    EXPECT_EQ(host().userDialogs().helpPages(), Lines{"addons.html#_export_animation_options"});
    pressDialogButton(Export, GuiUser::DialogButton::Cancel);
}

TEST_F(DialogExportOptionsTest, TheFormatsOfferTheirExtensions) {
    EXPECT_EQ(DialogExportOptions::fileExtension(ExportFormat_e::AVI), "avi");
    EXPECT_EQ(DialogExportOptions::fileExtension(ExportFormat_e::FLV), "flv");
    EXPECT_EQ(DialogExportOptions::fileExtension(ExportFormat_e::Flash), "swf");
    EXPECT_EQ(DialogExportOptions::fileExtension(ExportFormat_e::MPEG4), "mp4");
    EXPECT_EQ(DialogExportOptions::fileExtension(ExportFormat_e::RasterMetafile), "rm");
    EXPECT_EQ(DialogExportOptions::fileExtension(ExportFormat_e::WMV), "wmv");
}

}  // namespace
}  // namespace vextest
