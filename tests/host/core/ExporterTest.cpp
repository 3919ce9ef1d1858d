#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/ExportLogLines.h"
#include "support/FailingRenderer.h"
#include "support/RecordingRenderer.h"
#include "support/RecordingWriter.h"
#include "support/RegisteredAddOnFixture.h"
#include "support/SdkPrinters.h"
#include "vexhost/Drawing.h"
#include "vexhost/Exporter.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/MovieWriter.h"
#include "vexhost/Renderer.h"
#include "vxsdkbase.h"

namespace {

using vexhost::Exporter;
using vexhost::ExportSettings;
using vextest::FailingRenderer;
using vextest::RecordingRenderer;
using vextest::RecordingWriter;
using vextest::ScopedLock;
using vextest::WriterRecord;

class ExporterTest : public vextest::RegisteredAddOnFixture {
protected:
    void SetUp() override {
        RegisteredAddOnFixture::SetUp();
        createFrame3D();
    }
    void useRecordingWriter(bool failOpen = false) {
        host().exporter().setMovieWriterFactory([this, failOpen](const ExportSettings&) {
            return std::make_unique<RecordingWriter>(record_, failOpen);
        });
    }
    VexSetValueReturnCode_e setup(const char* attribute, double d, VexArbParam_t i) {
        ScopedLock lock(addOn_);
        return VexUtilExportSetup(attribute, nullptr, d, i);
    }

    WriterRecord record_;
};

struct SetupCase {
    const char* attribute;
    double doubleValue;
    VexArbParam_t intValue;
    VexSetValueReturnCode_e expected;
};

TEST_F(ExporterTest, SetupValidatesAttributeNamesAndValues) {
    const std::vector<SetupCase> rows = {
        {"ExportFormat", 0, VexExportFormat_AVI, VexSetValue_Ok},
        {"exportformat", 0, VexExportFormat_MPEG4, VexSetValue_Ok},
        {"ExportFormat", 0, 23, VexSetValue_InvalidValue},
        {"ExportFormat", 0, -1, VexSetValue_InvalidValue},
        {"ExportRegion", 0, VexExportRegion_WorkArea, VexSetValue_Ok},
        {"ExportRegion", 0, 3, VexSetValue_InvalidValue},
        {"ImageWidth", 0, 640, VexSetValue_Ok},
        {"ImageWidth", 0, 0, VexSetValue_InvalidValue},
        {"AnimationSpeed", 24, 0, VexSetValue_Ok},
        {"AnimationSpeed", -1, 0, VexSetValue_InvalidValue},
        {"UseSuperSampleAntiAliasing", 0, 1, VexSetValue_Ok},
        {"UseSuperSampleAntiAliasing", 0, 2, VexSetValue_InvalidValue},
        {"SuperSampleFactor", 0, 4, VexSetValue_Ok},
        {"SuperSampleFactor", 0, 99, VexSetValue_InvalidValue},
        {"FlashImageType", 0, VexFlashImageType_Color256, VexSetValue_Ok},
        {"FlashCompressionType", 0, 255, VexSetValue_InvalidValue},
        {"FrameRate", 0, 30, VexSetValue_InvalidCommandOption},
        {"ExportFName", 0, 0, VexSetValue_InvalidValue},
    };
    for (const SetupCase& row : rows)
        EXPECT_EQ(setup(row.attribute, row.doubleValue, row.intValue), row.expected)
            << row.attribute << " " << row.doubleValue << " " << row.intValue;
    const ExportSettings s = host().exporter().settings();
    EXPECT_EQ(s.format, VexExportFormat_MPEG4);
    EXPECT_EQ(s.region, VexExportRegion_WorkArea);
    EXPECT_EQ(s.imageWidth, 640);
    EXPECT_EQ(s.animationSpeed, 24);
    EXPECT_TRUE(s.useSuperSampling);
    EXPECT_EQ(s.superSampleFactor, 4);
    EXPECT_EQ(s.flashImageType, VexFlashImageType_Color256);
    EXPECT_EQ(s.flashCompressionType, 0);
}

TEST_F(ExporterTest, SubAttributeIsNotAnOption) {
    ScopedLock lock(addOn_);
    EXPECT_EQ(VexUtilExportSetup("ImageWidth", "Height", 0, 10), VexSetValue_InvalidCommandOption);
}

TEST_F(ExporterTest, FileNameTravelsAsAStringPointer) {
    const char* name = "/tmp/out movie.mp4";
    EXPECT_EQ(setup("ExportFName", 0, reinterpret_cast<VexArbParam_t>(name)), VexSetValue_Ok);
    EXPECT_EQ(host().exporter().settings().fileName, "/tmp/out movie.mp4");
    EXPECT_EQ(host().style().getString({"ExportSetup", "ExportFName"}), "/tmp/out movie.mp4");
}

TEST_F(ExporterTest, StartNextFinishTakeOnePicturePerFrameAndCount) {
    useRecordingWriter();
    ScopedLock lock(addOn_);
    EXPECT_FALSE(VexUtilExportIsRecording());
    ASSERT_TRUE(VexUtilExportStart());
    EXPECT_TRUE(VexUtilExportIsRecording());
    EXPECT_EQ(host().exporter().frameCount(), 1u);
    EXPECT_TRUE(VexUtilExportNextFrame());
    EXPECT_TRUE(VexUtilExportNextFrame());
    EXPECT_EQ(host().exporter().frameCount(), 3u);
    EXPECT_TRUE(VexUtilExportFinish());
    EXPECT_FALSE(VexUtilExportIsRecording());
    EXPECT_EQ(record_.calls,
              (std::vector<std::string>{"open", "frame", "frame", "frame", "finish"}));
    const Exporter::Counts& counts = host().exporter().counts();
    EXPECT_EQ(counts.starts, 1u);
    EXPECT_EQ(counts.frames, 3u);
    EXPECT_EQ(counts.finishes, 1u);
    EXPECT_EQ(counts.cancels, 0u);
}

TEST_F(ExporterTest, CancelLeavesNoMovie) {
    useRecordingWriter();
    ScopedLock lock(addOn_);
    ASSERT_TRUE(VexUtilExportStart());
    EXPECT_TRUE(VexUtilExportNextFrame());
    EXPECT_TRUE(VexUtilExportCancel());
    EXPECT_FALSE(VexUtilExportIsRecording());
    EXPECT_EQ(record_.calls, (std::vector<std::string>{"open", "frame", "frame", "cancel"}));
    EXPECT_EQ(host().exporter().counts().cancels, 1u);
    EXPECT_EQ(host().exporter().counts().finishes, 0u);
}

TEST_F(ExporterTest, DefaultWriterWritesNoMovieAndSaysSo) {
    const char* name = "film.mp4";
    setup("ExportFName", 0, reinterpret_cast<VexArbParam_t>(name));
    ScopedLock lock(addOn_);
    ASSERT_TRUE(VexUtilExportStart());
    VexUtilExportNextFrame();
    ASSERT_TRUE(VexUtilExportFinish());
    EXPECT_EQ(host().exporter().log(),
              (std::vector<std::string>{
                  vextest::exportStartedLine(21, 800, 600, "film.mp4"),
                  "No movie written to \"film.mp4\": this host has no movie encoder (2 frames of "
                  "800 x 600 pixels)."}));
}

TEST_F(ExporterTest, StartWhileRecordingIsRefused) {
    ScopedLock lock(addOn_);
    ASSERT_TRUE(VexUtilExportStart());
    EXPECT_FALSE(VexUtilExportStart());
    EXPECT_EQ(host().exporter().counts().starts, 1u);
    VexUtilExportCancel();
}

TEST_F(ExporterTest, StartRefusedByControlCall) {
    host().exporter().setRefuseStart(true);
    ScopedLock lock(addOn_);
    EXPECT_FALSE(VexUtilExportStart());
    EXPECT_FALSE(VexUtilExportIsRecording());
    EXPECT_EQ(host().exporter().counts().starts, 0u);
}

TEST_F(ExporterTest, WriterThatCannotOpenRefusesTheStartWithADialogNamingTheCause) {
    useRecordingWriter(true);
    const char* name = "/nowhere/x.mp4";
    setup("ExportFName", 0, reinterpret_cast<VexArbParam_t>(name));
    ScopedLock lock(addOn_);
    EXPECT_FALSE(VexUtilExportStart());
    EXPECT_FALSE(VexUtilExportIsRecording());
    EXPECT_EQ(host().userDialogs().errorMessages(),
              std::vector<std::string>{"Cannot write \"/nowhere/x.mp4\"."});
    EXPECT_EQ(host().exporter().log(),
              std::vector<std::string>{"Export not started: the error shown says why."});
    EXPECT_EQ(host().exporter().counts().starts, 0u);
    EXPECT_EQ(host().exporter().counts().frames, 0u);
}

TEST_F(ExporterTest, FactoryThatRefusesTheSetupRefusesTheStartWithADialog) {
    host().exporter().setMovieWriterFactory(
        [](const ExportSettings&) -> std::unique_ptr<vexhost::MovieWriter> {
            throw std::runtime_error("The export format 3 does not make movies");
        });
    ScopedLock lock(addOn_);
    EXPECT_FALSE(VexUtilExportStart());
    EXPECT_EQ(host().userDialogs().errorMessages(),
              std::vector<std::string>{"The export format 3 does not make movies"});
}

TEST_F(ExporterTest, FirstPictureThatCannotBeDrawnRefusesTheStartAndLeavesNoMovie) {
    useRecordingWriter();
    host().drawing().setRenderer(
        std::make_unique<FailingRenderer>("Cannot start OpenGL rendering: no display"));
    ScopedLock lock(addOn_);
    EXPECT_FALSE(VexUtilExportStart());
    EXPECT_FALSE(VexUtilExportIsRecording());
    EXPECT_EQ(record_.calls, (std::vector<std::string>{"open", "cancel"}));
    EXPECT_EQ(host().userDialogs().errorMessages(),
              std::vector<std::string>{"Cannot start OpenGL rendering: no display"});
    EXPECT_EQ(host().exporter().counts().frames, 0u);
}

TEST_F(ExporterTest, WriterFailingLaterIsToldOnceAndTheFinishWritesNoMovie) {
    useRecordingWriter();
    record_.failFrame = 2;
    ScopedLock lock(addOn_);
    ASSERT_TRUE(VexUtilExportStart());
    EXPECT_FALSE(VexUtilExportNextFrame());
    EXPECT_FALSE(VexUtilExportNextFrame());
    EXPECT_FALSE(VexUtilExportFinish());
    EXPECT_FALSE(VexUtilExportIsRecording());
    EXPECT_EQ(record_.calls, (std::vector<std::string>{"open", "frame", "frame", "cancel"}));
    EXPECT_EQ(host().userDialogs().errorMessages(), std::vector<std::string>{"The disk is full."});
    EXPECT_EQ(host().exporter().log(),
              (std::vector<std::string>{vextest::exportStartedLine(21, 800, 600, ""),
                                        "Export failed while adding frame 2: The disk is full.",
                                        "Export failed after 3 frames; no movie written."}));
    EXPECT_EQ(host().exporter().counts().frames, 3u);
    EXPECT_EQ(host().exporter().counts().finishes, 0u);
}

TEST_F(ExporterTest, NextFinishAndCancelWhileIdleAreHostErrors) {
    ScopedLock lock(addOn_);
    EXPECT_FALSE(VexUtilExportNextFrame());
    EXPECT_FALSE(VexUtilExportFinish());
    EXPECT_FALSE(VexUtilExportCancel());
    EXPECT_EQ(takeHostErrors(),
              (std::vector<std::string>{"VexUtilExportNextFrame: no export is being recorded",
                                        "VexUtilExportFinish: no export is being recorded",
                                        "VexUtilExportCancel: no export is being recorded"}));
}

TEST_F(ExporterTest, StartWithoutAFrameIsAHostError) {
    host().frames().removeAll();
    ScopedLock lock(addOn_);
    EXPECT_FALSE(VexUtilExportStart());
    EXPECT_EQ(takeHostErrors(),
              std::vector<std::string>{"VexUtilExportStart: there is no frame to export"});
}

TEST_F(ExporterTest, PicturesHaveTheImageWidthAndTheRegionsShape) {
    useRecordingWriter();
    host().drawing().setRenderer(std::make_unique<RecordingRenderer>());
    setup("ImageWidth", 0, 400);
    {
        ScopedLock lock(addOn_);
        ASSERT_TRUE(VexUtilExportStart());
        VexUtilExportFinish();
    }
    EXPECT_EQ(record_.width, 400);
    EXPECT_EQ(record_.height, 300);
    EXPECT_EQ(record_.frameSizes, (std::vector<std::pair<int, int>>{{400, 300}}));
    EXPECT_EQ(record_.settings.imageWidth, 400);
}

TEST_F(ExporterTest, ImageSizeFollowsTheExportRegion) {
    host().frames().at(0).setPosAndSize(1, 1, 4, 2);
    createFrame3D().setPosAndSize(3, 0, 4, 4);
    setup("ImageWidth", 0, 600);
    setup("ExportRegion", 0, VexExportRegion_CurrentFrame);
    EXPECT_EQ(host().exporter().imageSize(), (std::pair<int, int>{600, 600}));
    setup("ExportRegion", 0, VexExportRegion_AllFrames);  // 6 x 4 inches
    EXPECT_EQ(host().exporter().imageSize(), (std::pair<int, int>{600, 400}));
    setup("ExportRegion", 0, VexExportRegion_WorkArea);  // 1024 x 768 pixels
    EXPECT_EQ(host().exporter().imageSize(), (std::pair<int, int>{600, 450}));
}

TEST_F(ExporterTest, HeightIsTheNearestEvenOneForCodecsThatTakeEvenSizesOnly) {
    // A frame of 800 x 603 pixels; at 400 pixels wide the region is 301.5 pixels high.
    host().frames().at(0).setPosAndSize(1, 1, 8, 6.03);
    setup("ImageWidth", 0, 400);
    const std::vector<std::pair<int, int>> rows = {
        {VexExportFormat_MPEG4, 302}, {VexExportFormat_WMV, 302},
        {VexExportFormat_AVI, 301},   {VexExportFormat_FLV, 301},
        {VexExportFormat_Flash, 301}, {VexExportFormat_RasterMetafile, 301}};
    for (const auto& [format, height] : rows) {
        setup("ExportFormat", 0, format);
        EXPECT_EQ(host().exporter().imageSize(), (std::pair<int, int>{400, height}))
            << "format " << format;
    }
    // Never below 2 rows.
    setup("ExportFormat", 0, VexExportFormat_MPEG4);
    setup("ImageWidth", 0, 1);
    EXPECT_EQ(host().exporter().imageSize(), (std::pair<int, int>{1, 2}));
}

TEST_F(ExporterTest, EveryPictureIsDrawnWithTheSupersampleFactorWhenAntialiasingIsOn) {
    useRecordingWriter();
    std::vector<RecordingRenderer::Call> calls;
    host().drawing().setRenderer(std::make_unique<RecordingRenderer>(&calls));
    setup("UseSuperSampleAntiAliasing", 0, 1);
    setup("SuperSampleFactor", 0, 4);
    {
        ScopedLock lock(addOn_);
        ASSERT_TRUE(VexUtilExportStart());
        VexUtilExportNextFrame();
        VexUtilExportFinish();
    }
    setup("UseSuperSampleAntiAliasing", 0, 0);
    {
        ScopedLock lock(addOn_);
        ASSERT_TRUE(VexUtilExportStart());
        VexUtilExportFinish();
    }
    EXPECT_EQ(RecordingRenderer::supersamples(calls), (std::vector<int>{4, 4, 1}));
}

TEST_F(ExporterTest, ResetCancelsAnOpenExport) {
    useRecordingWriter();
    {
        ScopedLock lock(addOn_);
        ASSERT_TRUE(VexUtilExportStart());
    }
    host().reset();
    EXPECT_EQ(record_.calls, (std::vector<std::string>{"open", "frame", "cancel"}));
    EXPECT_FALSE(host().exporter().isRecording());
}

}  // namespace
