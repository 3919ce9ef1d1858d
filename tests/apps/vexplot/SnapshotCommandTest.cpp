// $!SNAPSHOT in process, with a renderer that draws plain pictures: what it writes, the options
// it takes and every line it refuses. Real pictures are checked in tests/apps/movie.
#include "SnapshotCommand.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "support/HostFixture.h"
#include "support/RecordingRenderer.h"
#include "support/TemporaryDirectory.h"
#include "vexhost/Drawing.h"
#include "vexhost/FrameStack.h"
#include "vexhost/Image.h"
#include "vexhost/MacroError.h"
#include "vexhost/MacroFileRunner.h"
#include "vexhost/MacroRecorder.h"

namespace {

using vexplot::app::SnapshotCommand;

using vextest::RecordingRenderer;

// The width and height a PNG file's header gives, or {0, 0} when it is not a PNG file.
std::pair<uint32_t, uint32_t> pngSize(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    const std::vector<unsigned char> bytes((std::istreambuf_iterator<char>(in)),
                                           std::istreambuf_iterator<char>());
    const unsigned char signature[8] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
    if (bytes.size() < 24 || !std::equal(signature, signature + 8, bytes.begin()))
        return {0, 0};
    const auto word = [&bytes](std::size_t at) {
        return static_cast<uint32_t>(bytes[at]) << 24 | static_cast<uint32_t>(bytes[at + 1]) << 16 |
               static_cast<uint32_t>(bytes[at + 2]) << 8 | bytes[at + 3];
    };
    return {word(16), word(20)};
}

class SnapshotCommandTest : public vextest::HostFixture {
protected:
    void SetUp() override {
        HostFixture::SetUp();
        host().drawing().setRenderer(std::make_unique<RecordingRenderer>(&calls_));
        createFrame3D().setPosAndSize(1, 1, 2.9, 1.5);  // 290 x 150 pixels
    }

    std::string fail(const std::string& arguments) {
        try {
            SnapshotCommand::run(host(), arguments);
        } catch (const vexhost::MacroError& error) {
            return error.what();
        }
        return "(ran)";
    }

    vextest::TemporaryDirectory directory_;
    // The supersample factors of the pictures drawn, in order.
    std::vector<int> factors() const { return RecordingRenderer::supersamples(calls_); }

    std::vector<RecordingRenderer::Call> calls_;
};

TEST_F(SnapshotCommandTest, WritesThePictureOfTheActiveFrameAtItsPixelSize) {
    const std::string file = directory_.file("still.png");
    SnapshotCommand::run(host(), "\"" + file + "\"");
    EXPECT_EQ(pngSize(file), (std::pair<uint32_t, uint32_t>{290, 150}));
    EXPECT_EQ(factors(), std::vector<int>{1});
    EXPECT_EQ(host().drawing().drawnFrames(), 0u) << "a snapshot is not a redraw";
}

TEST_F(SnapshotCommandTest, SupersampleDrawsAtThatFactorAndKeepsTheFramesSize) {
    const std::string file = directory_.file("smooth.png");
    SnapshotCommand::run(host(), "\"" + file + "\" supersample=3");
    EXPECT_EQ(pngSize(file), (std::pair<uint32_t, uint32_t>{290, 150}));
    EXPECT_EQ(factors(), std::vector<int>{3});
}

TEST_F(SnapshotCommandTest, ReplacesAnEarlierFile) {
    const std::string file = directory_.file("still.png");
    std::ofstream(file) << "not a picture";
    SnapshotCommand::run(host(), "\"" + file + "\"");
    EXPECT_EQ(pngSize(file).first, 290u);
}

struct BadSnapshot {
    const char* name;
    const char* arguments;
    const char* message;
};

std::ostream& operator<<(std::ostream& out, const BadSnapshot& row) {
    return out << row.name;
}

const char* const Usage =
    "$!SNAPSHOT needs the picture's file name in double quotes: $!SNAPSHOT \"<file.png>\" "
    "[SUPERSAMPLE=<n>].";

const BadSnapshot BadSnapshots[] = {
    {"Nothing", "", Usage},
    {"Unquoted", "still.png", Usage},
    {"NoClosingQuote", "\"still.png", Usage},
    {"TwoNames", "\"a.png\" \"b.png\"", Usage},
    {"EmptyName", "\"\"", "$!SNAPSHOT: the file name is empty."},
    {"UnknownOption", "\"a.png\" FAST",
     "$!SNAPSHOT: \"FAST\" is not an option; use SUPERSAMPLE=<n> with n from 1 to 16."},
    {"SupersampleZero", "\"a.png\" SUPERSAMPLE=0",
     "$!SNAPSHOT: \"SUPERSAMPLE=0\" is not an option; use SUPERSAMPLE=<n> with n from 1 to 16."},
    {"SupersampleTooLarge", "\"a.png\" SUPERSAMPLE=17",
     "$!SNAPSHOT: \"SUPERSAMPLE=17\" is not an option; use SUPERSAMPLE=<n> with n from 1 to 16."},
    {"SupersampleWithBlanks", "\"a.png\" SUPERSAMPLE = 2",
     "$!SNAPSHOT: \"SUPERSAMPLE = 2\" is not an option; use SUPERSAMPLE=<n> with n from 1 to 16."},
    {"SupersampleNotANumber", "\"a.png\" SUPERSAMPLE=2x",
     "$!SNAPSHOT: \"SUPERSAMPLE=2x\" is not an option; use SUPERSAMPLE=<n> with n from 1 to 16."},
};

class BadSnapshotTest : public SnapshotCommandTest,
                        public ::testing::WithParamInterface<BadSnapshot> {};

TEST_P(BadSnapshotTest, IsRefusedNamingWhatWasWrongAndWritesNothing) {
    // Relative names land in the scratch directory, where the test can see that none was written.
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(directory_.path());
    EXPECT_EQ(fail(GetParam().arguments), GetParam().message);
    std::filesystem::current_path(before);
    EXPECT_TRUE(std::filesystem::is_empty(directory_.path()));
    EXPECT_TRUE(calls_.empty()) << "nothing was drawn";
}

INSTANTIATE_TEST_SUITE_P(EveryFault, BadSnapshotTest, ::testing::ValuesIn(BadSnapshots),
                         [](const ::testing::TestParamInfo<BadSnapshot>& info) {
                             return std::string(info.param.name);
                         });

TEST_F(SnapshotCommandTest, WithoutAFrameNothingIsDrawn) {
    host().frames().removeAll();
    EXPECT_EQ(fail("\"" + directory_.file("a.png") + "\""),
              "$!SNAPSHOT: there is no frame to draw.");
}

TEST_F(SnapshotCommandTest, HostWithoutRendererWritesNoFile) {
    host().drawing().setRenderer(nullptr);
    const std::string file = directory_.file("a.png");
    EXPECT_EQ(fail("\"" + file + "\""),
              "$!SNAPSHOT: this host draws no pictures (it has no renderer); \"" + file +
                  "\" was not written.");
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(SnapshotCommandTest, FileThatCannotBeWrittenIsNamedWithItsCause) {
    const std::string file = directory_.file("no/such/dir/a.png");
    try {
        SnapshotCommand::run(host(), "\"" + file + "\"");
        FAIL() << "wrote " << file;
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string(error.what()).find(file), std::string::npos) << error.what();
    }
}

TEST_F(SnapshotCommandTest, InstalledCommandRunsInAnyCaseAndIsRecorded) {
    vexhost::MacroFileRunner runner(host());
    SnapshotCommand::install(runner, host());
    host().macro().setRecording(true);
    const std::string line = "$!snapshot \"" + directory_.file("a.png") + "\"";
    EXPECT_TRUE(runner.runLine(line));
    EXPECT_EQ(pngSize(directory_.file("a.png")).first, 290u);
    EXPECT_EQ(host().macro().lines(), std::vector<std::string>{line});
}

}  // namespace
