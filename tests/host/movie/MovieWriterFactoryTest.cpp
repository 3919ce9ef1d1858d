// Movies written through the writers the factory makes, read back with ffprobe.
#include "vexhost/MovieWriterFactory.h"

#include "host/movie/MovieCases.h"
#include "support/ExportLogLines.h"
#include "support/MovieProbe.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>

namespace vexhost {
namespace {

namespace fs = std::filesystem;
using vextest::kMovieCases;
using vextest::MovieCase;
using vextest::testFrame;

// Files written by this process may not grow beyond a limit while the scope lasts: writing past
// it fails with "File too large" instead of stopping the process.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &saved_);
        savedHandler_ = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limited = saved_;
        limited.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limited);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &saved_);
        std::signal(SIGXFSZ, savedHandler_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit saved_{};
    void (*savedHandler_)(int) = nullptr;
};

class MovieWriterFactoryTest : public ::testing::Test {
protected:
    ExportSettings settingsFor(const MovieCase& c, const std::string& fileName) const {
        return vextest::movieSettings(c, (directory_ / fileName).string());
    }

    // Writes frames pictures of width x height and finishes the movie.
    void writeMovie(const ExportSettings& settings, int width, int height, int frames) {
        std::unique_ptr<MovieWriter> writer = createMovieWriter(settings);
        writer->open(settings, width, height);
        for (int i = 0; i < frames; ++i) {
            writer->addFrame(testFrame(width, height, i));
        }
        writer->finish();
        lastSummary_ = writer->summary();
    }

    const vextest::TemporaryDirectory scratch_{"vexhost-movie"};
    const fs::path directory_ = scratch_.path();
    std::string lastSummary_;
};

class MovieFormatTest : public MovieWriterFactoryTest,
                        public ::testing::WithParamInterface<MovieCase> {};

TEST_P(MovieFormatTest, WritesAMovieThatReadsBackAsSetUp) {
    const MovieCase& c = GetParam();
    const ExportSettings settings = settingsFor(c, std::string("movie.") + c.extension);
    writeMovie(settings, 64, 48, 5);

    ASSERT_TRUE(fs::exists(settings.fileName));
    EXPECT_FALSE(fs::exists(settings.fileName + ".partial"));
    auto values = vextest::probeMovie(settings.fileName);
    EXPECT_EQ(values["format_name"], c.container);
    EXPECT_EQ(values["codec_name"], c.codec);
    EXPECT_EQ(values["width"], "64");
    EXPECT_EQ(values["height"], "48");
    EXPECT_EQ(values["r_frame_rate"], "10/1");
    EXPECT_EQ(values["nb_read_frames"], "5");
    EXPECT_NE(lastSummary_.find(vextest::wroteFrames(5, 64, 48, 10)), std::string::npos)
        << lastSummary_;
    EXPECT_NE(lastSummary_.find(settings.fileName), std::string::npos) << lastSummary_;
}

TEST_P(MovieFormatTest, DecodedPictureMatchesTheOriginal) {
    const MovieCase& c = GetParam();
    const ExportSettings settings = settingsFor(c, std::string("colours.") + c.extension);
    writeMovie(settings, 64, 48, 2);
    const Image original = testFrame(64, 48, 0);
    const std::vector<Image> frames = vextest::decodeFrames(settings.fileName, 64, 48, 1);
    ASSERT_EQ(frames.size(), 1u);
    const Image& decoded = frames.front();
    double difference = 0;
    for (std::size_t i = 0; i < original.rgb.size(); ++i) {
        difference += std::abs(original.rgb[i] - decoded.rgb[i]);
    }
    difference /= static_cast<double>(original.rgb.size());
    if (c.format == 0) {
        EXPECT_EQ(difference, 0.0) << "the raster metafile is lossless";
    } else {
        // Lossy codecs, but with the colours converted back the way they were converted in.
        EXPECT_LT(difference, c.flashImageType == 2 ? 12.0 : 6.0);
    }
}

TEST_P(MovieFormatTest, OddSizeIsWrittenAndPaddedWhereTheCodecNeedsEvenSizes) {
    const MovieCase& c = GetParam();
    const ExportSettings settings = settingsFor(c, std::string("odd.") + c.extension);
    writeMovie(settings, 65, 49, 3);

    auto values = vextest::probeMovie(settings.fileName);
    EXPECT_EQ(values["width"], c.evenSizeOnly ? "66" : "65");
    EXPECT_EQ(values["height"], c.evenSizeOnly ? "50" : "49");
    EXPECT_EQ(values["nb_read_frames"], "3");
    EXPECT_EQ(lastSummary_.find("encoded at 66 x 50") != std::string::npos, c.evenSizeOnly)
        << lastSummary_;
}

TEST_P(MovieFormatTest, PicturesEndingAtTheirLastPixelAreEncodedWithoutReadingPastThem) {
    // FFmpeg's colour converter reads whole vector registers, up to 16 bytes beyond its input.
    // Each picture here is held in a buffer that ends at its last pixel, in widths that leave
    // every remainder of a register, so a read past it is an invalid read. The converter is
    // assembly the sanitizer build cannot see into: scripts/memcheck.sh runs this test under
    // valgrind, which reports it. Every build checks that each size still makes a whole movie.
    const MovieCase& c = GetParam();
    for (const int width : {64, 66, 70, 78}) {
        const ExportSettings settings =
            settingsFor(c, "edge-" + std::to_string(width) + "." + c.extension);
        std::unique_ptr<MovieWriter> writer = createMovieWriter(settings);
        writer->open(settings, width, 18);
        for (int i = 0; i < 2; ++i) {
            Image picture = testFrame(width, 18, i);
            picture.rgb.shrink_to_fit();
            writer->addFrame(std::move(picture));
        }
        writer->finish();
        auto values = vextest::probeMovie(settings.fileName);
        EXPECT_EQ(values["width"], std::to_string(width));
        EXPECT_EQ(values["nb_read_frames"], "2") << "width " << width;
    }
}

TEST_P(MovieFormatTest, SlowestAndFastestAnimationSpeedsStillMakeMovies) {
    // The export options allow 0.001 to 200 frames per second.
    const MovieCase& c = GetParam();
    for (const double speed : {0.001, 200.0}) {
        ExportSettings settings = settingsFor(c, std::string("speed.") + c.extension);
        settings.animationSpeed = speed;
        writeMovie(settings, 32, 24, 3);
        EXPECT_EQ(vextest::probeMovie(settings.fileName)["nb_read_frames"], "3")
            << "speed " << speed;
    }
}

TEST_P(MovieFormatTest, CancelLeavesNoFile) {
    const MovieCase& c = GetParam();
    const ExportSettings settings = settingsFor(c, std::string("canceled.") + c.extension);
    std::unique_ptr<MovieWriter> writer = createMovieWriter(settings);
    writer->open(settings, 64, 48);
    writer->addFrame(testFrame(64, 48, 0));
    writer->addFrame(testFrame(64, 48, 1));
    writer->cancel();
    EXPECT_TRUE(fs::is_empty(directory_));
    EXPECT_NE(writer->summary().find("Canceled"), std::string::npos) << writer->summary();
}

INSTANTIATE_TEST_SUITE_P(AllMovieFormats, MovieFormatTest, ::testing::ValuesIn(kMovieCases),
                         [](const ::testing::TestParamInfo<MovieCase>& info) {
                             return std::string(info.param.name);
                         });

TEST_F(MovieWriterFactoryTest, FrameRateFollowsTheAnimationSpeed) {
    ExportSettings settings = settingsFor(kMovieCases[0], "slow.mp4");
    settings.animationSpeed = 2.5;
    writeMovie(settings, 32, 32, 3);
    EXPECT_EQ(vextest::probeMovie(settings.fileName)["r_frame_rate"], "5/2");
}

TEST_F(MovieWriterFactoryTest, FlashImageTypeAndCompressionTradeQualityForSize) {
    auto sizeOf = [&](int imageType, int compression) {
        ExportSettings settings = settingsFor(kMovieCases[3], "flash.swf");
        settings.flashImageType = imageType;
        settings.flashCompressionType = compression;
        settings.fileName = (directory_ / ("flash-" + std::to_string(imageType) + "-" +
                                           std::to_string(compression) + ".swf"))
                                .string();
        writeMovie(settings, 160, 120, 6);
        return fs::file_size(settings.fileName);
    };
    EXPECT_LT(sizeOf(0, 1), sizeOf(0, 0)) << "True Color";
    EXPECT_LT(sizeOf(1, 1), sizeOf(1, 0)) << "JPEG";
    EXPECT_LT(sizeOf(2, 1), sizeOf(2, 0)) << "256 Colors";
    EXPECT_LT(sizeOf(2, 0), sizeOf(0, 0)) << "256 Colors against True Color";
}

TEST_F(MovieWriterFactoryTest, UnwritablePathThrowsNamingThePathAndTheCause) {
    ExportSettings settings = settingsFor(kMovieCases[0], "movie.mp4");
    settings.fileName = (directory_ / "no-such-folder" / "movie.mp4").string();
    std::unique_ptr<MovieWriter> writer = createMovieWriter(settings);
    try {
        writer->open(settings, 64, 48);
        FAIL() << "no exception";
    } catch (const std::runtime_error& e) {
        EXPECT_EQ(std::string(e.what()), "Cannot write the movie file \"" + settings.fileName +
                                             "\": No such file or directory");
    }
    EXPECT_FALSE(fs::exists(directory_ / "no-such-folder"));
    EXPECT_NE(writer->summary().find("No such file or directory"), std::string::npos)
        << writer->summary();
    writer->cancel();  // nothing was opened: nothing to do, and no error
}

TEST_F(MovieWriterFactoryTest, MissingFileNameThrows) {
    ExportSettings settings = settingsFor(kMovieCases[1], "");
    settings.fileName.clear();
    std::unique_ptr<MovieWriter> writer = createMovieWriter(settings);
    try {
        writer->open(settings, 64, 48);
        FAIL() << "no exception";
    } catch (const std::runtime_error& e) {
        EXPECT_EQ(std::string(e.what()), "No movie file name is set");
    }
}

TEST_F(MovieWriterFactoryTest, AnimationSpeedThatIsNotPositiveThrows) {
    ExportSettings settings = settingsFor(kMovieCases[1], "movie.avi");
    settings.animationSpeed = 0;
    std::unique_ptr<MovieWriter> writer = createMovieWriter(settings);
    try {
        writer->open(settings, 64, 48);
        FAIL() << "no exception";
    } catch (const std::runtime_error& e) {
        EXPECT_EQ(std::string(e.what()),
                  "The animation speed 0 is not a positive number of frames per second");
    }
    EXPECT_TRUE(fs::is_empty(directory_));
}

TEST_F(MovieWriterFactoryTest, NonMovieFormatIsRefusedByTheFactory) {
    ExportSettings settings;
    settings.format = 13;
    try {
        createMovieWriter(settings);
        FAIL() << "no exception";
    } catch (const std::runtime_error& e) {
        EXPECT_EQ(std::string(e.what()).rfind("The export format 13 does not make movies", 0), 0u)
            << e.what();
    }
}

TEST_F(MovieWriterFactoryTest, FlashImageTypeOutOfRangeIsRefused) {
    ExportSettings settings;
    settings.format = 17;
    settings.flashImageType = 3;
    EXPECT_THROW(createMovieWriter(settings), std::runtime_error);
}

TEST_F(MovieWriterFactoryTest, MovieFormatsAreTheSixAnimationFormats) {
    for (int format = -1; format <= 30; ++format) {
        const bool movie = format == 0 || format == 14 || format == 17 || format == 20 ||
                           format == 21 || format == 22;
        EXPECT_EQ(isMovieFormat(format), movie) << "format " << format;
    }
}

TEST_F(MovieWriterFactoryTest, CancelLeavesAnEarlierMovieOfTheSameNameAlone) {
    const ExportSettings settings = settingsFor(kMovieCases[1], "movie.avi");
    {
        std::ofstream earlier(settings.fileName);
        earlier << "earlier movie";
    }
    std::unique_ptr<MovieWriter> writer = createMovieWriter(settings);
    writer->open(settings, 64, 48);
    writer->addFrame(testFrame(64, 48, 0));
    writer->cancel();
    std::ifstream earlier(settings.fileName);
    std::string content;
    std::getline(earlier, content);
    EXPECT_EQ(content, "earlier movie");
    EXPECT_FALSE(fs::exists(settings.fileName + ".partial"));
}

TEST_F(MovieWriterFactoryTest, FinishThatCannotPlaceTheFileThrowsAndLeavesNothing) {
    // A folder that is not empty stands where the movie should go.
    const ExportSettings settings = settingsFor(kMovieCases[1], "taken");
    fs::create_directories(fs::path(settings.fileName) / "inside");
    std::unique_ptr<MovieWriter> writer = createMovieWriter(settings);
    writer->open(settings, 64, 48);
    writer->addFrame(testFrame(64, 48, 0));
    try {
        writer->finish();
        FAIL() << "no exception";
    } catch (const std::runtime_error& e) {
        EXPECT_EQ(std::string(e.what()).rfind(
                      "Cannot write the movie file \"" + settings.fileName + "\": ", 0),
                  0u)
            << e.what();
    }
    EXPECT_FALSE(fs::exists(settings.fileName + ".partial"));
    EXPECT_NE(writer->summary().find("Failed"), std::string::npos) << writer->summary();
}

TEST_F(MovieWriterFactoryTest, FailureWhileEncodingIsReportedByALaterCall) {
    const ExportSettings settings = settingsFor(kMovieCases[1], "full.avi");
    std::unique_ptr<MovieWriter> writer = createMovieWriter(settings);
    std::string failure;
    {
        const FileSizeLimit limit(64 * 1024);
        writer->open(settings, 320, 240);
        try {
            for (int i = 0; i < 400; ++i) {
                writer->addFrame(testFrame(320, 240, i));
            }
            writer->finish();
        } catch (const std::runtime_error& e) {
            failure = e.what();
        }
    }
    EXPECT_EQ(failure.rfind("The movie \"" + settings.fileName + "\" (Motion JPEG in AVI) ", 0), 0u)
        << failure;
    EXPECT_NE(failure.find("File too large"), std::string::npos) << failure;
    writer->cancel();
    EXPECT_TRUE(fs::is_empty(directory_));
}

TEST_F(MovieWriterFactoryTest, FrameOfAnotherSizeIsAProgrammingError) {
    const ExportSettings settings = settingsFor(kMovieCases[1], "movie.avi");
    std::unique_ptr<MovieWriter> writer = createMovieWriter(settings);
    writer->open(settings, 64, 48);
    EXPECT_THROW(writer->addFrame(testFrame(32, 48, 0)), std::invalid_argument);
    writer->cancel();
}

TEST_F(MovieWriterFactoryTest, CallsOutOfOrderAreProgrammingErrors) {
    const ExportSettings settings = settingsFor(kMovieCases[1], "movie.avi");
    std::unique_ptr<MovieWriter> writer = createMovieWriter(settings);
    EXPECT_THROW(writer->addFrame(testFrame(64, 48, 0)), std::logic_error);
    EXPECT_THROW(writer->finish(), std::logic_error);
    writer->open(settings, 64, 48);
    EXPECT_THROW(writer->open(settings, 64, 48), std::logic_error);
    writer->addFrame(testFrame(64, 48, 0));
    writer->finish();
    EXPECT_THROW(writer->cancel(), std::logic_error);
    EXPECT_THROW(writer->finish(), std::logic_error);
    EXPECT_TRUE(fs::exists(settings.fileName));
}

TEST_F(MovieWriterFactoryTest, WriterDroppedWhileOpenLeavesNoFile) {
    const ExportSettings settings = settingsFor(kMovieCases[0], "dropped.mp4");
    {
        std::unique_ptr<MovieWriter> writer = createMovieWriter(settings);
        writer->open(settings, 64, 48);
        writer->addFrame(testFrame(64, 48, 0));
    }
    EXPECT_TRUE(fs::is_empty(directory_));
}

TEST_F(MovieWriterFactoryTest, ManyFramesPassThroughTheBoundedQueue) {
    const ExportSettings settings = settingsFor(kMovieCases[0], "long.mp4");
    writeMovie(settings, 64, 48, 40);
    EXPECT_EQ(vextest::probeMovie(settings.fileName)["nb_read_frames"], "40");
}

}  // namespace
}  // namespace vexhost
