// Movies and stills from end to end: vexplot with the key frame add-on animates to file through the
// host's renderer and movie writers, and the files are read back as a user's tools read them
// (ffprobe, ffmpeg). Pictures are small, so the tests stay quick on a two-core machine with the
// software rasteriser.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "support/ExportLogLines.h"
#include "support/KeyFrameData.h"
#include "support/MovieProbe.h"
#include "support/VexplotProcess.h"

namespace {

using vextest::AnimationSettings_s;
using vextest::contains;
using vextest::decodeFrames;
using vextest::KeyFrameView_s;
using vextest::probeMovie;
using vextest::VexplotProcess;
using Result = VexplotProcess::Result;

constexpr int kWidth = 160;
constexpr int kHeight = 120;
const char* const kSize = "160x120";

// Two views of the demo data set from different sides.
const KeyFrameView_s kOverview{2.59808, -4.5, 3.1, 60, 30, 0, 3.2};
const KeyFrameView_s kNorthEast{3.67423, 2.12132, 4.34264, 45, 120, 0, 3};

struct KeyFrame {
    KeyFrameView_s view;
    int frameCount;  // frames to the next key frame
    double solutionTime;
};

// Settings with the switches named (vextest::option) on, time as captured, one cycle.
AnimationSettings_s flightSettings(unsigned options = vextest::option::None) {
    return vextest::animationSettings(options, vextest::TimeAnimationOperation_e::AsCaptured);
}

// The $!VIEW line of a view.
std::string viewLine(const KeyFrameView_s& view) {
    std::ostringstream line;
    line << "$!VIEW " << view.X << ' ' << view.Y << ' ' << view.Z << ' ' << view.Psi << ' '
         << view.Theta << ' ' << view.Alpha << ' ' << view.Width << '\n';
    return line.str();
}

std::string exportSetup(const std::string& format, const std::string& fileName,
                        const std::string& speed = "10") {
    return "$!EXPORTSETUP ExportFormat = " + format + "\n" +
           "$!EXPORTSETUP ImageWidth = " + std::to_string(kWidth) + "\n" +
           "$!EXPORTSETUP AnimationSpeed = " + speed + "\n" + "$!EXPORTSETUP ExportFName = \"" +
           fileName + "\"\n";
}

const char* const kAnimateToFile =
    "$!ADDON \"Key Frame Animation\" OpenSettingsFile FileName=flight.keyframe\n"
    "$!ADDON \"Key Frame Animation\" Animate AnimationDestination=ToFile\n";

// Every channel of every pixel is 0.
bool isBlack(const vexhost::Image& picture) {
    return std::all_of(picture.rgb.begin(), picture.rgb.end(), [](uint8_t v) { return v == 0; });
}

std::size_t differingPixels(const vexhost::Image& a, const vexhost::Image& b) {
    std::size_t count = 0;
    for (std::size_t i = 0; i + 2 < a.rgb.size() && i + 2 < b.rgb.size(); i += 3) {
        if (a.rgb[i] != b.rgb[i] || a.rgb[i + 1] != b.rgb[i + 1] || a.rgb[i + 2] != b.rgb[i + 2])
            ++count;
    }
    return count;
}

class MovieExportTest : public ::testing::Test {
protected:
    Result run(const std::string& macro, std::vector<std::string> options = {}) {
        options.insert(options.begin(), {"--size", kSize});
        return process.runMacro(macro, std::move(options));
    }

    std::string path(const std::string& name) const { return process.directory() + "/" + name; }

    // flight.keyframe, the key frames named "Key 1", "Key 2", ... and the settings, as the add-on
    // writes a settings file.
    void writeFlight(const AnimationSettings_s& settings, const std::vector<KeyFrame>& keyFrames) {
        std::vector<vextest::KeyFrame_s> flight;
        for (const KeyFrame& k : keyFrames)
            flight.push_back(vextest::keyFrame("Key " + std::to_string(flight.size() + 1), k.view,
                                               static_cast<uint64_t>(k.frameCount),
                                               k.solutionTime));
        vextest::writeSettingsFile(path("flight.keyframe"), flight, settings);
    }

    std::vector<std::string> files() const { return process.files(); }

    VexplotProcess process;
};

// ---- Every movie format through the add-on ----

struct FormatCase {
    const char* name;
    const char* keyword;  // $!EXPORTSETUP ExportFormat
    const char* extra;    // more export setup lines
    const char* file;
    const char* container;  // ffprobe's format_name
    const char* codec;      // ffprobe's codec_name
};

std::ostream& operator<<(std::ostream& out, const FormatCase& c) {
    return out << c.name;
}

const FormatCase kFormats[] = {
    {"Avi", "AVI", "", "film.avi", "avi", "mjpeg"},
    {"FlashVideo", "FLV", "", "film.flv", "flv", "flv1"},
    {"Flash", "FLASH", "", "film.swf", "swf", "flv1"},
    {"FlashJpeg", "FLASH", "$!EXPORTSETUP FlashImageType = JPEG\n", "film.swf", "swf", "mjpeg"},
    {"Mpeg4", "MPEG4", "", "film.mp4", "mov,mp4,m4a,3gp,3g2,mj2", "h264"},
    {"RasterMetafile", "RASTERMETAFILE", "", "film.rm", "apng", "apng"},
    {"Wmv", "WMV", "", "film.wmv", "asf", "wmv2"},
};

class MovieFormatTest : public MovieExportTest, public ::testing::WithParamInterface<FormatCase> {};

TEST_P(MovieFormatTest, ShortAnimationReadsBackAsSetUp) {
    const FormatCase& c = GetParam();
    writeFlight(flightSettings(), {{kOverview, 5, 0}, {kNorthEast, 1, 0}});
    // 25 frames per second: FLV and ASF keep times in milliseconds, so a rate that does not divide
    // 1000 reads back only approximately (12 fps as 12000/1001).
    const Result result = run(exportSetup(c.keyword, c.file, "25") + c.extra + kAnimateToFile,
                              {"--trace", "t.jsonl"});
    ASSERT_EQ(0, result.exitStatus) << result.err;
    ASSERT_TRUE(process.exists(c.file)) << result.err;
    EXPECT_FALSE(process.exists(std::string(c.file) + ".partial"));
    std::map<std::string, std::string> values = probeMovie(path(c.file));
    EXPECT_EQ(values["format_name"], c.container);
    EXPECT_EQ(values["codec_name"], c.codec);
    EXPECT_EQ(values["nb_read_frames"], "6");
    EXPECT_EQ(values["width"], std::to_string(kWidth));
    EXPECT_EQ(values["height"], std::to_string(kHeight));
    EXPECT_EQ(values["r_frame_rate"], "25/1");
    EXPECT_TRUE(contains(result.err, vextest::wroteFrames(6, 160, 120, 25) + " as ")) << result.err;
}

INSTANTIATE_TEST_SUITE_P(EveryMovieFormat, MovieFormatTest, ::testing::ValuesIn(kFormats),
                         [](const ::testing::TestParamInfo<FormatCase>& info) {
                             return std::string(info.param.name);
                         });

// ---- What the pictures show (the raster metafile is lossless: frames as drawn) ----

TEST_F(MovieExportTest, FadeInStartsBlackAndFadeOutEndsBlack) {
    const AnimationSettings_s fade =
        flightSettings(vextest::option::FadeIn | vextest::option::FadeOut);
    // 21 frames: two frames of fading at each end.
    writeFlight(fade, {{kOverview, 20, 0}, {kNorthEast, 1, 0}});
    const Result result = run(exportSetup("RASTERMETAFILE", "fade.rm") + kAnimateToFile);
    ASSERT_EQ(0, result.exitStatus) << result.err;
    const std::vector<vexhost::Image> frames = decodeFrames(path("fade.rm"), kWidth, kHeight);
    ASSERT_EQ(frames.size(), 21u);
    EXPECT_TRUE(isBlack(frames.front()));
    EXPECT_FALSE(isBlack(frames[1])) << "half way in";
    EXPECT_FALSE(isBlack(frames[10]));
    EXPECT_TRUE(isBlack(frames.back()));
}

TEST_F(MovieExportTest, AxisBoxIsAbsentDuringARunAndPresentInASnapshotBeforeIt) {
    // The fade hides the axis; at 6 frames it fades nothing.
    const AnimationSettings_s fadeOut = flightSettings(vextest::option::FadeOut);
    writeFlight(fadeOut, {{kOverview, 5, 0}, {kNorthEast, 1, 0}});
    const Result result = run(viewLine(kOverview) +
                              "$!SNAPSHOT \"axis.png\"\n"
                              "$!SET ThreeDAxis FrameAxis Show = false\n"
                              "$!SNAPSHOT \"no-axis.png\"\n"
                              "$!SET ThreeDAxis FrameAxis Show = true\n" +
                              exportSetup("RASTERMETAFILE", "run.rm") + kAnimateToFile +
                              "$!SNAPSHOT \"after.png\"\n");
    ASSERT_EQ(0, result.exitStatus) << result.err;
    const vexhost::Image axis = decodeFrames(path("axis.png"), kWidth, kHeight).at(0);
    const vexhost::Image noAxis = decodeFrames(path("no-axis.png"), kWidth, kHeight).at(0);
    const vexhost::Image first = decodeFrames(path("run.rm"), kWidth, kHeight, 1).at(0);
    EXPECT_GT(differingPixels(axis, noAxis), 100u) << "the axis box shows in the snapshot";
    EXPECT_EQ(differingPixels(first, noAxis), 0u) << "the run's first frame has no axis box";
    // The run gives the axis back: a snapshot after it at the run's last view shows the box.
    const vexhost::Image after = decodeFrames(path("after.png"), kWidth, kHeight).at(0);
    const vexhost::Image last = decodeFrames(path("run.rm"), kWidth, kHeight).back();
    EXPECT_GT(differingPixels(after, last), 100u);
}

TEST_F(MovieExportTest, FramesAtDifferentKeyFramesDifferAndTheSameViewGivesTheSamePixels) {
    // Out and back: the last key frame is the first one's view again.
    writeFlight(flightSettings(), {{kOverview, 4, 0}, {kNorthEast, 4, 0}, {kOverview, 1, 0}});
    const Result result =
        run(exportSetup("RASTERMETAFILE", "round.rm") + kAnimateToFile + viewLine(kNorthEast) +
            "$!SNAPSHOT \"a.png\"\n" + viewLine(kOverview) + "$!SNAPSHOT \"between.png\"\n" +
            viewLine(kNorthEast) + "$!SNAPSHOT \"b.png\"\n");
    ASSERT_EQ(0, result.exitStatus) << result.err;
    const std::vector<vexhost::Image> frames = decodeFrames(path("round.rm"), kWidth, kHeight);
    ASSERT_EQ(frames.size(), 9u);
    EXPECT_GT(differingPixels(frames[0], frames[4]), 1000u) << "two key frames, two pictures";
    EXPECT_EQ(differingPixels(frames[0], frames[8]), 0u) << "the same view, the same pixels";
    const vexhost::Image a = decodeFrames(path("a.png"), kWidth, kHeight).at(0);
    const vexhost::Image b = decodeFrames(path("b.png"), kWidth, kHeight).at(0);
    EXPECT_EQ(a.rgb, b.rgb) << "the same view twice, another between";
}

// How far apart the colours of two pictures are: the share of pixels that would have to change
// colour to turn one picture's colour histogram (8 levels per channel) into the other's. Moving
// geometry alone keeps most colours; new colours on the surface change it.
double colourHistogramDistance(const vexhost::Image& a, const vexhost::Image& b) {
    const auto histogram = [](const vexhost::Image& picture) {
        std::vector<double> bins(512, 0.0);
        const std::size_t pixels = picture.rgb.size() / 3;
        for (std::size_t i = 0; i < pixels; ++i) {
            const uint8_t* p = &picture.rgb[3 * i];
            bins[static_cast<std::size_t>((p[0] >> 5) << 6 | (p[1] >> 5) << 3 | p[2] >> 5)] +=
                1.0 / static_cast<double>(pixels);
        }
        return bins;
    };
    const std::vector<double> first = histogram(a);
    const std::vector<double> second = histogram(b);
    double distance = 0;
    for (std::size_t i = 0; i < first.size(); ++i)
        distance += std::abs(first[i] - second[i]);
    return distance / 2;
}

TEST_F(MovieExportTest, SteppingSolutionTimeChangesTheColours) {
    const AnimationSettings_s time = flightSettings(vextest::option::AnimateTime);
    // The same view at both key frames: only the solution time moves, from 0 to 0.8.
    writeFlight(time, {{kOverview, 4, 0}, {kOverview, 1, 0.8}});
    const Result result =
        run(exportSetup("RASTERMETAFILE", "time.rm") + kAnimateToFile, {"--trace", "t.jsonl"});
    ASSERT_EQ(0, result.exitStatus) << result.err;
    EXPECT_TRUE(contains(process.readFile("t.jsonl"), "\"solutionTime\": 0.8,"));
    const std::vector<vexhost::Image> frames = decodeFrames(path("time.rm"), kWidth, kHeight);
    ASSERT_EQ(frames.size(), 5u);
    // About 12 % of the pictures change colour from time 0 to 0.8 at this view.
    EXPECT_GT(colourHistogramDistance(frames.front(), frames.back()), 0.05);
    EXPECT_EQ(colourHistogramDistance(frames.front(), frames.front()), 0.0);
}

// ---- Runs that write no movie ----

TEST_F(MovieExportTest, StopDuringARunToFileLeavesNoFile) {
    writeFlight(flightSettings(), {{kOverview, 20, 0}, {kNorthEast, 1, 0}});
    // The views of the 21 frames are made first, a progress check each: the 30th check is the
    // run's ninth frame.
    const Result result =
        run(exportSetup("MPEG4", "stopped.mp4") + kAnimateToFile, {"--stop-at", "30"});
    EXPECT_EQ(1, result.exitStatus) << result.err;
    EXPECT_TRUE(
        contains(result.err, vextest::exportStartedLine(21, 160, 120, "stopped.mp4") + "\n"))
        << result.err;
    EXPECT_TRUE(contains(result.err, "Animation canceled.")) << result.err;
    EXPECT_TRUE(contains(result.err, vextest::movieCanceledLine("stopped.mp4") + "\n"))
        << result.err;
    EXPECT_EQ(files(), (std::vector<std::string>{"flight.keyframe", "m.mcr"}));
}

TEST_F(MovieExportTest, UnwritableFileNameIsNamedByTheHostBeforeTheAddOnGivesUp) {
    writeFlight(flightSettings(), {{kOverview, 5, 0}, {kNorthEast, 1, 0}});
    const Result result = run(exportSetup("MPEG4", "no/such/dir/film.mp4") + kAnimateToFile);
    ASSERT_EQ(1, result.exitStatus) << result.err;
    const std::string dialog =
        "Cannot write the movie file \"no/such/dir/film.mp4\": No such file or directory\n";
    const std::string failure =
        "m.mcr:6: Key Frame Animation error:\nUnable to start animation export.\n";
    ASSERT_TRUE(contains(result.err, dialog)) << result.err;
    ASSERT_TRUE(contains(result.err, failure)) << result.err;
    EXPECT_LT(result.err.find(dialog), result.err.find(failure));
    EXPECT_EQ(files(), (std::vector<std::string>{"flight.keyframe", "m.mcr"}));
}

// ---- OpenGL starts only for a picture somebody asks for ----

// An environment variable set for the scope (and so for the vexplot started in it).
class ScopedEnvironment {
public:
    ScopedEnvironment(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name))
            old_ = old;
        setenv(name, value, 1);
    }
    ~ScopedEnvironment() {
        if (old_.empty())
            unsetenv(name_);
        else
            setenv(name_, old_.c_str(), 1);
    }
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

private:
    const char* name_;
    std::string old_;
};

// The EGL loader finds no driver at all: OpenGL cannot start.
class WithoutOpenGlTest : public MovieExportTest {
protected:
    ScopedEnvironment noDriver{"__EGL_VENDOR_LIBRARY_FILENAMES", "/nonexistent/egl-vendor.json"};
};

TEST_F(WithoutOpenGlTest, OnScreenRunNeverStartsOpenGl) {
    writeFlight(flightSettings(), {{kOverview, 5, 0}, {kNorthEast, 1, 0}});
    const Result result =
        run("$!ADDON \"Key Frame Animation\" OpenSettingsFile FileName=flight.keyframe\n"
            "$!ADDON \"Key Frame Animation\" Animate AnimationDestination=OnScreen\n"
            "$!REDRAW\n",
            {"--trace", "t.jsonl"});
    EXPECT_EQ(0, result.exitStatus) << result.err;
    EXPECT_FALSE(contains(result.err, "OpenGL")) << result.err;
}

TEST_F(WithoutOpenGlTest, SnapshotFailsNamingWhy) {
    const Result result = run("$!SNAPSHOT \"still.png\"\n");
    EXPECT_EQ(1, result.exitStatus);
    EXPECT_TRUE(contains(result.err, "m.mcr:1: Cannot start OpenGL rendering: ")) << result.err;
    EXPECT_EQ(files(), std::vector<std::string>{"m.mcr"});
}

TEST_F(WithoutOpenGlTest, ExportShowsWhyItCannotStartAndLeavesNoFile) {
    writeFlight(flightSettings(), {{kOverview, 5, 0}, {kNorthEast, 1, 0}});
    const Result result = run(exportSetup("AVI", "film.avi") + kAnimateToFile);
    EXPECT_EQ(1, result.exitStatus);
    const std::size_t dialog = result.err.find("Cannot start OpenGL rendering: ");
    const std::size_t failure =
        result.err.find("m.mcr:6: Key Frame Animation error:\nUnable to start animation export.\n");
    ASSERT_NE(dialog, std::string::npos) << result.err;
    ASSERT_NE(failure, std::string::npos) << result.err;
    EXPECT_LT(dialog, failure);
    EXPECT_EQ(files(), (std::vector<std::string>{"flight.keyframe", "m.mcr"}));
}

// ---- The demo, as scripts/demo.sh renders it ----

TEST_F(MovieExportTest, DemoMacroWritesTheDemoMovie) {
    const char* source = std::getenv("VEX_TEST_SOURCE_DIR");
    ASSERT_NE(nullptr, source);
    // The macro names its files from the top of the source tree; the movie goes to out/.
    std::filesystem::create_directory_symlink(std::string(source) + "/examples", path("examples"));
    std::filesystem::create_directory(path("out"));
    const Result result = process.run({"--size", "1280x720", "examples/demo.mcr"});
    ASSERT_EQ(0, result.exitStatus) << result.err;
    std::map<std::string, std::string> values = probeMovie(path("out/demo.mp4"));
    EXPECT_EQ(values["codec_name"], "h264");
    EXPECT_EQ(values["width"], "1280");
    EXPECT_EQ(values["height"], "720");
    EXPECT_EQ(values["nb_read_frames"], "161");
    EXPECT_EQ(values["r_frame_rate"], "30/1");
    const std::vector<vexhost::Image> ends = decodeFrames(path("out/demo.mp4"), 1280, 720, 1);
    ASSERT_EQ(ends.size(), 1u);
    // Faded in from black (a lossy codec: black within a step or two).
    EXPECT_LE(*std::max_element(ends[0].rgb.begin(), ends[0].rgb.end()), 2);
}

}  // namespace
