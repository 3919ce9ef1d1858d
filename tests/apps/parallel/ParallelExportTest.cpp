// vexplot --parallel-export under mpirun on this machine, with 1, 2 and 3 processes: the movie
// holds the serial run's frames in order, at the serial run's times; a failing process, a killed
// one and a Stop leave no movie and say why. A short flight of small pictures, so that the whole
// program takes well under a minute on a two-core machine.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "support/KeyFrameData.h"
#include "support/MovieProbe.h"
#include "support/VexplotProcess.h"

namespace {

using vextest::contains;
using vextest::VexplotProcess;
using Result = VexplotProcess::Result;

constexpr int kWidth = 160;
constexpr int kHeight = 120;
constexpr int kFrames = 24;

const vextest::KeyFrameView_s kOverview{2.59808, -4.5, 3.1, 60, 30, 0, 3.2};
const vextest::KeyFrameView_s kNorthEast{3.67423, 2.12132, 4.34264, 45, 120, 0, 3};

// One export of the test's macro: its format and file, and the picture width (the height keeps the
// frame's 4:3 shape).
struct Export {
    const char* keyword;  // $!EXPORTSETUP ExportFormat
    const char* file;
    int width;
    bool intra;  // every frame encoded alone: the same pictures whoever encodes them
};

const Export kAvi{"AVI", "film.avi", 160, true};
const Export kRasterMetafile{"RASTERMETAFILE", "film.rm", 160, true};
// Twice as wide: two encodings of small pictures differ by more, and the measure is for movies.
const Export kMpeg4{"MPEG4", "film.mp4", 320, false};

// How many times a text holds a part.
std::size_t occurrences(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

class ParallelExportTest : public ::testing::Test {
protected:
    // The flight: `frames` frames from one view to another while the surface moves through time.
    void writeFlight(int frames) {
        const vextest::AnimationSettings_s settings = vextest::animationSettings(
            vextest::option::AnimateTime, vextest::TimeAnimationOperation_e::AsCaptured);
        vextest::writeSettingsFile(
            process.directory() + "/flight.keyframe",
            {vextest::keyFrame("Overview", kOverview, static_cast<uint64_t>(frames - 1), 0),
             vextest::keyFrame("North-east", kNorthEast, 1, 0.8)},
            settings);
    }

    // The macro that exports the flight once per export, in order.
    void writeMacro(const std::vector<Export>& exports) {
        std::string macro =
            "$!ADDON \"Key Frame Animation\" OpenSettingsFile FileName=flight.keyframe\n"
            "$!EXPORTSETUP AnimationSpeed = 25\n";
        for (const Export& e : exports) {
            macro += std::string("$!EXPORTSETUP ExportFormat = ") + e.keyword + "\n" +
                     "$!EXPORTSETUP ImageWidth = " + std::to_string(e.width) + "\n" +
                     "$!EXPORTSETUP ExportFName = \"" + e.file + "\"\n" +
                     "$!ADDON \"Key Frame Animation\" Animate AnimationDestination=ToFile\n";
        }
        process.writeFile("m.mcr", macro);
    }

    std::vector<std::string> vexplotArguments(const std::vector<std::string>& options) const {
        std::vector<std::string> arguments = {"--size", "160x120"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        arguments.push_back("m.mcr");
        return arguments;
    }

    Result serial(const std::vector<std::string>& options = {}) const {
        return process.run(vexplotArguments(options));
    }

    // mpirun with `processes` processes of vexplot --parallel-export and the options, and then
    // the processes of `more` (an mpirun app context: "-n", "1", program, arguments...).
    Result parallel(int processes, const std::vector<std::string>& options = {},
                    const std::vector<std::string>& more = {}) const {
        std::vector<std::string> arguments = mpirunOptions();
        arguments.insert(arguments.end(),
                         {"-n", std::to_string(processes), VexplotProcess::vexplotPath()});
        const std::vector<std::string> mine = parallelArguments(options);
        arguments.insert(arguments.end(), mine.begin(), mine.end());
        if (!more.empty()) {
            arguments.push_back(":");
            arguments.insert(arguments.end(), more.begin(), more.end());
        }
        return process.runProgram(MPIRUN_PATH, arguments);
    }

    std::vector<std::string> parallelArguments(const std::vector<std::string>& options) const {
        std::vector<std::string> arguments = {"--parallel-export"};
        const std::vector<std::string> rest = vexplotArguments(options);
        arguments.insert(arguments.end(), rest.begin(), rest.end());
        return arguments;
    }

    static std::vector<std::string> mpirunOptions() {
        // More processes than cores; Open MPI refuses root unless told, and CI runs as root.
        std::vector<std::string> options = {"--oversubscribe"};
        if (geteuid() == 0)
            options.push_back("--allow-run-as-root");
        return options;
    }

    std::string path(const std::string& name) const { return process.directory() + "/" + name; }

    std::vector<std::string> files() const { return process.files(); }
    const std::vector<std::string> kInputs = {"flight.keyframe", "m.mcr"};

    // The files of the scratch directory that are pieces or partial files ("film.avi.part1.avi",
    // "film.avi.partial").
    std::vector<std::string> piecesLeft() const {
        std::vector<std::string> left;
        for (const std::string& name : files()) {
            if (contains(name, ".part"))
                left.push_back(name);
        }
        return left;
    }

    VexplotProcess process;
};

// What a serial run made of one export, to compare with.
struct SerialMovie {
    std::map<std::string, std::string> probed;
    std::vector<double> times;
    std::vector<vexhost::Image> frames;  // of the intra-frame formats
};

TEST_F(ParallelExportTest, OneTwoAndThreeProcessesMakeTheSerialRunsMovies) {
    writeFlight(kFrames);
    const std::vector<Export> exports = {kAvi, kRasterMetafile, kMpeg4};
    writeMacro(exports);
    const Result one = serial({"--trace", "serial.jsonl"});
    ASSERT_EQ(one.exitStatus, 0) << one.err;
    std::map<std::string, SerialMovie> serialMovies;
    for (const Export& e : exports) {
        const std::string movie = path(std::string("serial.") + e.file);
        std::filesystem::rename(path(e.file), movie);
        SerialMovie& made = serialMovies[e.file];
        made.probed = vextest::probeMovie(movie);
        ASSERT_EQ(made.probed.at("nb_read_frames"), std::to_string(kFrames));
        made.times = vextest::frameTimes(movie);
        ASSERT_EQ(made.times.size(), static_cast<std::size_t>(kFrames));
        for (std::size_t i = 1; i < made.times.size(); ++i)
            EXPECT_NEAR(made.times[i] - made.times[i - 1], 0.04, 1e-6) << "25 frames a second";
        if (e.intra)
            made.frames = vextest::decodeFrames(movie, e.width, e.width * 3 / 4);
    }

    for (int processes = 1; processes <= 3; ++processes) {
        SCOPED_TRACE(std::to_string(processes) + " processes");
        const std::string trace = "parallel" + std::to_string(processes) + ".jsonl";
        const Result job = parallel(processes, {"--trace", trace});
        ASSERT_EQ(job.exitStatus, 0) << job.err;
        // Member 0 alone speaks, and tells of each movie as the serial run does.
        EXPECT_EQ(occurrences(job.err, "Export started: "), exports.size()) << job.err;
        EXPECT_EQ(occurrences(job.err, "Wrote 24 frames of "), exports.size()) << job.err;
        EXPECT_EQ(process.readFile(trace), process.readFile("serial.jsonl"));
        EXPECT_EQ(piecesLeft(), std::vector<std::string>());
        for (const Export& e : exports) {
            SCOPED_TRACE(e.file);
            const std::string movie = path(e.file);
            const SerialMovie& expected = serialMovies.at(e.file);
            if (processes == 1) {
                // A team of one draws the same frames into the same encoder: the same file, which
                // says all the rest.
                EXPECT_EQ(process.readFile(e.file),
                          process.readFile(std::string("serial.") + e.file));
                continue;
            }
            EXPECT_EQ(vextest::probeMovie(movie), expected.probed);
            EXPECT_EQ(vextest::frameTimes(movie), expected.times);
            if (e.intra) {
                const std::vector<vexhost::Image> made =
                    vextest::decodeFrames(movie, e.width, e.width * 3 / 4);
                ASSERT_EQ(made.size(), expected.frames.size());
                for (std::size_t i = 0; i < made.size(); ++i)
                    EXPECT_EQ(made[i].rgb, expected.frames[i].rgb) << "frame " << i;
            } else {
                // Each piece is a fresh encoder's: the pictures differ as two encodings of the same
                // pictures do, by little.
                EXPECT_GE(
                    vextest::moviePeakSignalToNoise(movie, path(std::string("serial.") + e.file)),
                    40.0);
            }
        }
    }
}

TEST_F(ParallelExportTest, FewerFramesThanProcessesLeaveTheLastWithout) {
    writeFlight(2);
    writeMacro({kRasterMetafile});
    ASSERT_EQ(serial().exitStatus, 0);
    const std::vector<vexhost::Image> frames =
        vextest::decodeFrames(path("film.rm"), kWidth, kHeight);
    ASSERT_EQ(frames.size(), 2u);
    const Result job = parallel(3);
    ASSERT_EQ(job.exitStatus, 0) << job.err;
    const std::vector<vexhost::Image> made =
        vextest::decodeFrames(path("film.rm"), kWidth, kHeight);
    ASSERT_EQ(made.size(), 2u);
    EXPECT_EQ(made[0].rgb, frames[0].rgb);
    EXPECT_EQ(made[1].rgb, frames[1].rgb);
    EXPECT_EQ(piecesLeft(), std::vector<std::string>());
}

TEST_F(ParallelExportTest, AFailingProcessFailsTheJobWithItsMessage) {
    writeFlight(kFrames);
    writeMacro({kAvi});
    // The third process finds no OpenGL when it comes to draw its frames.
    std::vector<std::string> withoutOpenGl = {"-n", "1", "env",
                                              "__EGL_VENDOR_LIBRARY_FILENAMES=/nonexistent.json",
                                              VexplotProcess::vexplotPath()};
    const std::vector<std::string> arguments = parallelArguments({});
    withoutOpenGl.insert(withoutOpenGl.end(), arguments.begin(), arguments.end());
    const Result job = parallel(2, {}, withoutOpenGl);
    EXPECT_NE(job.exitStatus, 0);
    EXPECT_TRUE(contains(job.err, "\nvexplot: rank 2 of 3 failed: Cannot start OpenGL rendering: "))
        << job.err;
    EXPECT_TRUE(contains(job.err, "\nExport failed: the error shown says why; no movie written.\n"))
        << job.err;
    EXPECT_EQ(files(), kInputs);
}

TEST_F(ParallelExportTest, AStartThatFailsOnOneProcessIsRefusedOnEvery) {
    writeFlight(kFrames);
    writeMacro({kAvi});
    // The third process's piece cannot be written: a folder stands where it would be.
    std::filesystem::create_directory(path("film.avi.part2.avi.partial"));
    const Result job = parallel(3);
    EXPECT_NE(job.exitStatus, 0);
    const std::size_t dialog = job.err.find(
        "\nvexplot: rank 2 of 3 failed: Cannot write the movie file \"film.avi.part2.avi\": Is a "
        "directory\n");
    const std::size_t failure =
        job.err.find("m.mcr:6: Key Frame Animation error:\nUnable to start animation export.\n");
    ASSERT_NE(dialog, std::string::npos) << job.err;
    ASSERT_NE(failure, std::string::npos) << job.err;
    EXPECT_LT(dialog, failure);
    EXPECT_FALSE(process.exists("film.avi"));
}

TEST_F(ParallelExportTest, AProcessKilledBySignalEndsTheJobWithoutAMovie) {
    writeFlight(kFrames);
    writeMacro({kAvi});
    std::vector<std::string> killed = {"-n", "1", "env",
                                       std::string("LD_PRELOAD=") + KILLED_WHILE_DRAWING,
                                       VexplotProcess::vexplotPath()};
    const std::vector<std::string> arguments = parallelArguments({});
    killed.insert(killed.end(), arguments.begin(), arguments.end());
    const Result job = parallel(2, {}, killed);
    EXPECT_NE(job.exitStatus, 0);
    EXPECT_TRUE(contains(job.err + job.out, "process rank 2 with PID")) << job.err << job.out;
    EXPECT_TRUE(contains(job.err + job.out, "on signal 9 (Killed)")) << job.err << job.out;
    EXPECT_FALSE(process.exists("film.avi"));
}

TEST_F(ParallelExportTest, StopOnTheFirstProcessWhileAnimatingEndsEveryProcess) {
    writeFlight(kFrames);
    writeMacro({kAvi});
    // The add-on checks its progress once per frame for the views, then once per frame of the
    // run: half way through the run.
    const Result job = parallel(3, {"--stop-at", std::to_string(kFrames + kFrames / 2)});
    EXPECT_NE(job.exitStatus, 0);
    EXPECT_TRUE(contains(job.err, "Export canceled: no movie was written to \"film.avi\".\n"))
        << job.err;
    EXPECT_EQ(occurrences(job.err, "Animation canceled."), 1u) << job.err;
    EXPECT_EQ(files(), kInputs);
}

TEST_F(ParallelExportTest, StopOnTheFirstProcessWhileDrawingLeavesNoMovie) {
    writeFlight(kFrames);
    writeMacro({kAvi});
    // The first check after the run's: the drawing's first.
    const Result job = parallel(3, {"--stop-at", std::to_string(2 * kFrames + 1)});
    EXPECT_NE(job.exitStatus, 0);
    EXPECT_TRUE(contains(job.err, "Export stopped while drawing the frames; no movie written.\n"))
        << job.err;
    EXPECT_FALSE(contains(job.err, "Animation canceled.")) << job.err;
    EXPECT_EQ(files(), kInputs);
}

}  // namespace
