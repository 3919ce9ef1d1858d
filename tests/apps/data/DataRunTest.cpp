// vexplot over data files written with VTK: what a person sees (colours, time steps, moving
// streamtrace markers) and what a person is told when a file cannot be shown.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include <vtkImageData.h>
#include <vtkPolyData.h>
#include <vtkUnstructuredGrid.h>

#include "data/SampleData.h"
#include "support/HostFixture.h"
#include "support/KeyFrameData.h"
#include "support/MovieProbe.h"
#include "support/TraceLines.h"
#include "support/VexplotProcess.h"
#include "vexhost/DataFileLoader.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/View3D.h"

namespace {

using vextest::contains;
using vextest::KeyFrameView_s;
using vextest::SampleData;
using vextest::VexplotProcess;
using Result = VexplotProcess::Result;

constexpr int kWidth = 320;
constexpr int kHeight = 240;
const char* const kSize = "320x240";

class DataRunTest : public vextest::HostFixture {
protected:
    std::string path(const std::string& name) const { return vexplot_.directory() + "/" + name; }

    // The view vexplot fits to the data of `file` in a frame of kWidth x kHeight, worked out by
    // loading the file into this process's host as vexplot does.
    KeyFrameView_s fittedView(const std::string& file,
                              const vexhost::DataFileOptions& options = {}) {
        vexhost::Frame& frame = createFrame3D();
        frame.setPosAndSize(vexhost::Frame::DefaultX, vexhost::Frame::DefaultY,
                            kWidth / vexhost::FrameStack::PixelsPerInch,
                            kHeight / vexhost::FrameStack::PixelsPerInch);
        vexhost::DataFileLoader::load(host(), file, options);
        const vexhost::View3D& v = frame.view();
        return {v.position()[0], v.position()[1], v.position()[2], v.psi(),
                v.theta(),       v.alpha(),       v.width()};
    }

    VexplotProcess vexplot_;
};

// The redraw lines' solution times of a frame trace.
std::vector<double> redrawTimes(const std::string& trace) {
    std::vector<double> times;
    for (const std::string& line : vextest::linesOf(trace)) {
        if (vextest::traceEventOf(line) != "redraw")
            continue;
        const std::size_t at = line.find("\"solutionTime\": ");
        times.push_back(std::strtod(line.c_str() + at + 16, nullptr));
    }
    return times;
}

TEST_F(DataRunTest, AMissingFileIsOneLineAndExitStatus1) {
    const Result result = vexplot_.run({"--data", "flow.vtu"});
    EXPECT_EQ(1, result.exitStatus);
    EXPECT_EQ("vexplot: Cannot read \"flow.vtu\": no such file.\n", result.err);
}

TEST_F(DataRunTest, AFileVtkCannotParseIsOneLineWithVtksWordsAndNothingElse) {
    vexplot_.writeFile("broken.vtp", "<VTKFile type=\"PolyData\"><PolyData>");
    const Result result = vexplot_.run({"--data", "broken.vtp"});
    EXPECT_EQ(1, result.exitStatus);
    EXPECT_EQ(1u, vextest::linesOf(result.err).size()) << result.err;
    EXPECT_EQ(0u, result.err.find("vexplot: Cannot read \"broken.vtp\": VTK says: ")) << result.err;
    EXPECT_EQ("", result.out);
}

TEST_F(DataRunTest, AnUnknownArrayIsOneLineAndExitStatus1) {
    SampleData::writeXml(*SampleData::plane(2), path("plane.vtp"));
    const Result result = vexplot_.run({"--data", "plane.vtp", "--color-by", "density"});
    EXPECT_EQ(1, result.exitStatus);
    EXPECT_EQ(
        "vexplot: Cannot colour \"plane.vtp\" by \"density\": no point or cell array has "
        "that name (it has temperature, velocity, pressure).\n",
        result.err);
}

TEST_F(DataRunTest, DataOptionsWithoutAFileAreUsageErrors) {
    const Result colour = vexplot_.run({"--color-by", "p"});
    EXPECT_EQ(2, colour.exitStatus);
    EXPECT_TRUE(contains(colour.err, "--color-by needs a data file (--data FILE)")) << colour.err;
    const Result seedless = vexplot_.run({"--data", "x.vtu", "--streamtraces", "flow"});
    EXPECT_EQ(2, seedless.exitStatus);
    EXPECT_TRUE(contains(seedless.err, "--streamtraces needs a seed")) << seedless.err;
}

TEST_F(DataRunTest, TheSurfaceIsColouredByItsArrayAtAKnownPoint) {
    // temperature = x over the unit square: the middle of the picture is the middle of the
    // square, where the value is in the middle of its range: pure green in the rainbow map.
    SampleData::writeXml(*SampleData::plane(16), path("plane.vtp"));
    const Result result =
        vexplot_.runMacro("$!SNAPSHOT \"mid.png\"\n", {"--data", "plane.vtp", "--size", kSize});
    ASSERT_EQ(0, result.exitStatus) << result.err;
    const vexhost::Image picture = vextest::decodeFrames(path("mid.png"), kWidth, kHeight).at(0);
    const uint8_t* centre =
        &picture.rgb[(static_cast<std::size_t>(kHeight / 2) * kWidth + kWidth / 2) * 3];
    EXPECT_GT(centre[1], 120) << "green " << int(centre[1]);
    EXPECT_LT(centre[0], 12) << "red " << int(centre[0]);
    EXPECT_LT(centre[2], 12) << "blue " << int(centre[2]);
}

TEST_F(DataRunTest, EveryFormatIsShownThroughTheDataOption) {
    // The unit plane, or the box, in each format: the middle of the picture is the data's middle,
    // drawn in a colour of the map, not the background.
    SampleData::writeXml(*SampleData::plane(8), path("plane.vtp"), SampleData::Encoding::Ascii);
    SampleData::writeXml(*SampleData::box(4, 2, 2), path("box.vtu"),
                         SampleData::Encoding::AppendedRawZlib);
    SampleData::writeStructured(4, 2, 2, path("box.vts"));
    SampleData::writeRectilinear(4, 2, 2, path("box.vtr"));
    SampleData::writeXml(*SampleData::boxImage(4, 2, 2), path("box.vti"));
    SampleData::writeMultiBlock(path("case.vtm"));
    SampleData::writeLegacy(*SampleData::box(4, 2, 2), path("box.vtk"));
    SampleData::writeStl(*SampleData::plane(8), path("plane.stl"));
    SampleData::writePly(*SampleData::plane(8), path("plane.ply"));
    SampleData::writeObj(*SampleData::plane(8), path("plane.obj"));
    SampleData::writeXml(*SampleData::plane(8), path("step_1.vtp"));
    SampleData::writeXml(*SampleData::plane(8), path("step_2.vtp"));
    SampleData::writePvd(path("steps.pvd"), {"step_1.vtp", "step_2.vtp"}, {0, 1});
    for (const char* file :
         {"plane.vtp", "box.vtu", "box.vts", "box.vtr", "box.vti", "case.vtm", "box.vtk",
          "plane.stl", "plane.ply", "plane.obj", "steps.pvd", "step_*.vtp"}) {
        SCOPED_TRACE(file);
        const Result result =
            vexplot_.runMacro("$!SNAPSHOT \"shown.png\"\n", {"--data", file, "--size", kSize});
        ASSERT_EQ(0, result.exitStatus) << result.err;
        EXPECT_EQ("", result.err);
        const vexhost::Image picture =
            vextest::decodeFrames(path("shown.png"), kWidth, kHeight).at(0);
        const uint8_t* centre =
            &picture.rgb[(static_cast<std::size_t>(kHeight / 2) * kWidth + kWidth / 2) * 3];
        EXPECT_GT(centre[0] + centre[1] + centre[2], 150)
            << int(centre[0]) << " " << int(centre[1]) << " " << int(centre[2]);
    }
}

TEST_F(DataRunTest, AFlightOverATimeSeriesShowsEachFramesStep) {
    const double times[] = {1, 2, 4};
    std::vector<std::string> files;
    for (int i = 0; i < 3; ++i) {
        files.push_back("flow_" + std::to_string(i) + ".vtu");
        SampleData::writeXml(*SampleData::boxAt(2, 10.0 * i), path(files.back()));
    }
    SampleData::writePvd(path("flow.pvd"), files, {times[0], times[1], times[2]});
    const KeyFrameView_s view = fittedView(path("flow.pvd"));
    vextest::writeSettingsFile(
        path("flight.keyframe"),
        {vextest::keyFrame("Early", view, 4, times[0]), vextest::keyFrame("Mid", view, 4, times[1]),
         vextest::keyFrame("Late", view, 1, times[2])},
        vextest::animationSettings(vextest::option::AnimateTime,
                                   vextest::TimeAnimationOperation_e::AsCaptured));
    const Result result = vexplot_.runMacro(
        "$!ADDON \"Key Frame Animation\" OpenSettingsFile FileName=flight.keyframe\n"
        "$!ADDON \"Key Frame Animation\" Animate AnimationDestination=OnScreen\n",
        {"--data", "flow.pvd", "--trace", "trace.jsonl", "--size", kSize});
    ASSERT_EQ(0, result.exitStatus) << result.err;
    const std::vector<double> shown = redrawTimes(vexplot_.readFile("trace.jsonl"));
    // Every frame stands at one of the series' own times, the step the captured time falls in,
    // and the steps follow the key frames: 4 frames of the first, 4 of the second, then the last.
    ASSERT_EQ(9u, shown.size()) << vexplot_.readFile("trace.jsonl");
    const double expected[] = {1, 1, 1, 1, 2, 2, 2, 2, 4};
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const double step =
            *std::prev(std::upper_bound(std::begin(times), std::end(times), shown[i]));
        EXPECT_EQ(expected[i], step) << "frame " << i << " at time " << shown[i];
    }
}

TEST_F(DataRunTest, StreamtraceMarkersMoveAlongTheComputedFlowAndNothingElseChanges) {
    // The fluid's outer surface would hide the streamtraces inside it: the wall is drawn alone.
    SampleData::writeMultiBlock(path("case.vtm"));
    vexhost::DataFileOptions options;
    options.hiddenBlocks = {"fluid"};
    options.streamtraceArray = "flow";
    options.seed.start = {0.05, 0.2, 0.3};
    options.seed.end = {0.05, 0.8, 0.3};
    options.seed.count = 3;
    const KeyFrameView_s view = fittedView(path("case.vtm"), options);
    vextest::writeSettingsFile(path("still.keyframe"),
                               {vextest::keyFrame("A", view, 6), vextest::keyFrame("B", view, 1)},
                               vextest::animationSettings(vextest::option::AnimateStreamtraces));
    const Result result = vexplot_.runMacro(
        "$!EXPORTSETUP ExportFormat = RASTERMETAFILE\n"
        "$!EXPORTSETUP ImageWidth = " +
            std::to_string(kWidth) +
            "\n"
            "$!EXPORTSETUP ExportFName = \"markers.rm\"\n"
            "$!ADDON \"Key Frame Animation\" OpenSettingsFile FileName=still.keyframe\n"
            "$!ADDON \"Key Frame Animation\" Animate AnimationDestination=ToFile\n",
        {"--data", "case.vtm", "--hide-block", "fluid", "--streamtraces", "flow", "--seed-line",
         "0.05,0.2,0.3,0.05,0.8,0.3,3", "--size", kSize});
    ASSERT_EQ(0, result.exitStatus) << result.err;
    const std::vector<vexhost::Image> frames =
        vextest::decodeFrames(path("markers.rm"), kWidth, kHeight);
    ASSERT_GE(frames.size(), 4u);
    // Markers are magenta, lit or in shade: red and blue well above green, unlike the surface's
    // colour map, the grey streamtrace lines, the axis, its text and the background. Text drawn
    // over a marker blends with it, so a changed pixel must have a marker pixel of either frame
    // within two pixels of it.
    const auto marker = [](const uint8_t* p) {
        return p[0] > 30 && p[0] > 1.6 * p[1] && p[2] > 1.4 * p[1];
    };
    const auto nearMarker = [&](int x, int y) {
        for (int dy = -2; dy <= 2; ++dy) {
            for (int dx = -2; dx <= 2; ++dx) {
                const int u = x + dx, v = y + dy;
                if (u < 0 || v < 0 || u >= kWidth || v >= kHeight)
                    continue;
                const std::size_t at = (static_cast<std::size_t>(v) * kWidth + u) * 3;
                if (marker(&frames[0].rgb[at]) || marker(&frames[3].rgb[at]))
                    return true;
            }
        }
        return false;
    };
    std::size_t differing = 0, markerPixels = 0;
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const std::size_t at = (static_cast<std::size_t>(y) * kWidth + x) * 3;
            const uint8_t* a = &frames[0].rgb[at];
            const uint8_t* b = &frames[3].rgb[at];
            markerPixels += marker(a) ? 1 : 0;
            if (a[0] == b[0] && a[1] == b[1] && a[2] == b[2])
                continue;
            ++differing;
            EXPECT_TRUE(nearMarker(x, y))
                << "pixel " << x << ", " << y << " changed off the markers";
        }
    }
    EXPECT_GT(markerPixels, 0u);
    EXPECT_GT(differing, 0u);
}

}  // namespace
