// A team's movie pieces joined into one movie (joinMoviePieces): every format, read back with
// ffprobe and ffmpeg against the same frames written as one movie.
#include "vexhost/MoviePieces.h"

#include "host/movie/MovieCases.h"
#include "support/MovieProbe.h"
#include "support/TemporaryDirectory.h"
#include "vexhost/FrameRange.h"
#include "vexhost/MovieWriterFactory.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace vexhost {
namespace {

namespace fs = std::filesystem;
using vextest::kMovieCases;
using vextest::MovieCase;

constexpr int kWidth = 64;
constexpr int kHeight = 48;
constexpr int kFrames = 8;

std::string readAll(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

class MoviePiecesTest : public ::testing::Test {
protected:
    ExportSettings settingsFor(const MovieCase& c, const std::string& name) const {
        return vextest::movieSettings(c, (directory_ / name).string());
    }

    // Writes the test pictures first .. end - 1, at `width`, as one movie; answers its summary.
    std::string writeFrames(const ExportSettings& settings, int first, int end,
                            int width = kWidth) const {
        std::unique_ptr<MovieWriter> writer = createMovieWriter(settings);
        writer->open(settings, width, kHeight);
        for (int i = first; i < end; ++i)
            writer->addFrame(vextest::testFrame(width, kHeight, i));
        writer->finish();
        return writer->summary();
    }

    // The pieces of `members` members for the movie `settings` names, written as members do.
    std::vector<std::string> writePieces(const ExportSettings& settings, int members) const {
        std::vector<std::string> pieces;
        for (int m = 0; m < members; ++m) {
            const FrameRange range = FrameRange::of(kFrames, members, m);
            ExportSettings piece = settings;
            piece.fileName = moviePieceName(settings.fileName, m);
            writeFrames(piece, static_cast<int>(range.first), static_cast<int>(range.end));
            pieces.push_back(piece.fileName);
        }
        return pieces;
    }

    const vextest::TemporaryDirectory scratch_{"vexhost-pieces"};
    const fs::path directory_ = scratch_.path();
};

class MoviePiecesFormatTest : public MoviePiecesTest,
                              public ::testing::WithParamInterface<MovieCase> {};

TEST_P(MoviePiecesFormatTest, JoinedPiecesAreTheWholeMoviesFramesAtItsTimes) {
    const MovieCase& c = GetParam();
    const std::string extension = std::string(".") + c.extension;
    const ExportSettings whole = settingsFor(c, "whole" + extension);
    const ExportSettings joined = settingsFor(c, "joined" + extension);
    const std::string wholeSummary = writeFrames(whole, 0, kFrames);

    const std::string summary = joinMoviePieces(joined, writePieces(joined, 3), kWidth, kHeight);

    // The summary a single writer gives, naming the joined movie.
    std::string expected = wholeSummary;
    expected.replace(expected.find(whole.fileName), whole.fileName.size(), joined.fileName);
    EXPECT_EQ(summary, expected);
    EXPECT_FALSE(fs::exists(joined.fileName + ".partial"));
    EXPECT_EQ(vextest::probeMovie(joined.fileName), vextest::probeMovie(whole.fileName));
    const std::vector<double> times = vextest::frameTimes(joined.fileName);
    EXPECT_EQ(times.size(), static_cast<std::size_t>(kFrames));
    EXPECT_EQ(times, vextest::frameTimes(whole.fileName));

    const int width = c.evenSizeOnly ? (kWidth + 1) / 2 * 2 : kWidth;
    const std::vector<Image> wholeFrames = vextest::decodeFrames(whole.fileName, width, kHeight);
    const std::vector<Image> joinedFrames = vextest::decodeFrames(joined.fileName, width, kHeight);
    ASSERT_EQ(joinedFrames.size(), wholeFrames.size());
    // Frames of intra-frame codecs are encoded alone: the same pictures whoever encoded them.
    // The others' pieces start afresh, so their pictures differ as two encodings of the same
    // pictures do: the coarsest (FLV1 in SWF at 256 colours) keeps about 30 dB.
    const bool intra = std::strcmp(c.codec, "mjpeg") == 0 || std::strcmp(c.codec, "apng") == 0;
    for (std::size_t i = 0; i < joinedFrames.size(); ++i) {
        if (intra)
            EXPECT_EQ(joinedFrames[i].rgb, wholeFrames[i].rgb) << "frame " << i;
        else
            EXPECT_GT(vextest::peakSignalToNoise(joinedFrames[i], wholeFrames[i]), 25.0)
                << "frame " << i;
    }
}

INSTANTIATE_TEST_SUITE_P(AllMovieFormats, MoviePiecesFormatTest, ::testing::ValuesIn(kMovieCases),
                         [](const ::testing::TestParamInfo<MovieCase>& info) {
                             return std::string(info.param.name);
                         });

TEST_F(MoviePiecesTest, PieceNamesKeepTheMoviesExtension) {
    EXPECT_EQ(moviePieceName("out/film.mp4", 2), "out/film.mp4.part2.mp4");
    EXPECT_EQ(moviePieceName("film.flight.rm", 0), "film.flight.rm.part0.rm");
    EXPECT_EQ(moviePieceName("film", 11), "film.part11");
}

TEST_F(MoviePiecesTest, ASinglePieceIsTheMovie) {
    const ExportSettings joined = settingsFor(kMovieCases[1], "joined.avi");
    const std::string summary = joinMoviePieces(joined, writePieces(joined, 1), kWidth, kHeight);
    EXPECT_EQ(summary, "Wrote 8 frames of 64 x 48 at 10 fps as Motion JPEG in AVI to \"" +
                           joined.fileName + "\".");
    EXPECT_EQ(vextest::probeMovie(joined.fileName)["nb_read_frames"], "8");
}

TEST_F(MoviePiecesTest, RasterMetafilePiecesOfOneFrameArePlainPicturesAndJoinAllTheSame) {
    const MovieCase& c = kMovieCases[8];
    // Three frames, one per piece: each piece a plain PNG picture, as the muxer writes one frame.
    const ExportSettings whole = settingsFor(c, "whole.rm");
    writeFrames(whole, 0, 3);
    std::vector<std::string> pieces;
    for (int m = 0; m < 3; ++m) {
        ExportSettings piece = settingsFor(c, "joined.rm");
        piece.fileName = moviePieceName(piece.fileName, m);
        writeFrames(piece, m, m + 1);
        pieces.push_back(piece.fileName);
    }
    const ExportSettings joined = settingsFor(c, "joined.rm");
    joinMoviePieces(joined, pieces, kWidth, kHeight);
    EXPECT_EQ(vextest::probeMovie(joined.fileName), vextest::probeMovie(whole.fileName));
    EXPECT_EQ(vextest::frameTimes(joined.fileName), vextest::frameTimes(whole.fileName));
    const std::vector<Image> frames = vextest::decodeFrames(joined.fileName, kWidth, kHeight);
    const std::vector<Image> wholeFrames = vextest::decodeFrames(whole.fileName, kWidth, kHeight);
    ASSERT_EQ(frames.size(), 3u);
    for (std::size_t i = 0; i < frames.size(); ++i)
        EXPECT_EQ(frames[i].rgb, wholeFrames[i].rgb) << "frame " << i;

    // A movie of one frame stays the plain picture the writer wrote.
    const ExportSettings single = settingsFor(c, "single.rm");
    joinMoviePieces(single, {pieces[0]}, kWidth, kHeight);
    const ExportSettings first = settingsFor(c, "first.rm");
    writeFrames(first, 0, 1);
    EXPECT_EQ(readAll(single.fileName), readAll(first.fileName));
}

TEST_F(MoviePiecesTest, PiecesEncodedOtherwiseAreNotJoinedAndLeaveNothing) {
    for (const MovieCase& c : {kMovieCases[0], kMovieCases[8]}) {
        const std::string extension = std::string(".") + c.extension;
        const ExportSettings joined = settingsFor(c, "joined" + extension);
        std::vector<std::string> pieces = writePieces(joined, 2);
        // The second piece at another picture width.
        ExportSettings wider = joined;
        wider.fileName = pieces[1];
        writeFrames(wider, 4, kFrames, kWidth + 16);
        try {
            joinMoviePieces(joined, pieces, kWidth, kHeight);
            ADD_FAILURE() << c.name << ": the pieces were joined";
        } catch (const std::runtime_error& error) {
            EXPECT_EQ(std::string(error.what()), "The movie piece \"" + pieces[1] +
                                                     "\" was encoded otherwise than \"" +
                                                     pieces[0] + "\": the pieces cannot be joined");
        }
        EXPECT_FALSE(fs::exists(joined.fileName)) << c.name;
        EXPECT_FALSE(fs::exists(joined.fileName + ".partial")) << c.name;
    }
}

TEST_F(MoviePiecesTest, AMissingPieceIsNamedAndAnOlderMovieStays) {
    for (const MovieCase& c : {kMovieCases[1], kMovieCases[8]}) {
        const std::string extension = std::string(".") + c.extension;
        const ExportSettings joined = settingsFor(c, "joined" + extension);
        std::ofstream(joined.fileName) << "the older movie";
        std::vector<std::string> pieces = writePieces(joined, 3);
        fs::remove(pieces[2]);
        try {
            joinMoviePieces(joined, pieces, kWidth, kHeight);
            ADD_FAILURE() << c.name << ": the pieces were joined";
        } catch (const std::runtime_error& error) {
            const std::string cause = error.what();
            EXPECT_EQ(cause.find("The movie piece \"" + pieces[2] + "\" cannot be read: "), 0u)
                << cause;
        }
        EXPECT_EQ(readAll(joined.fileName), "the older movie") << c.name;
        EXPECT_FALSE(fs::exists(joined.fileName + ".partial")) << c.name;
    }
}

TEST_F(MoviePiecesTest, ADamagedRasterMetafilePieceIsNotJoined) {
    const ExportSettings joined = settingsFor(kMovieCases[8], "joined.rm");
    std::vector<std::string> pieces = writePieces(joined, 2);
    // One byte of the second piece's picture data changed: its chunk's checksum no longer holds.
    std::string bytes = readAll(pieces[1]);
    const std::size_t data = bytes.find("IDAT") + 10;
    bytes[data] = static_cast<char>(bytes[data] ^ 0x55);
    std::ofstream(pieces[1], std::ios::binary | std::ios::trunc) << bytes;
    try {
        joinMoviePieces(joined, pieces, kWidth, kHeight);
        ADD_FAILURE() << "the pieces were joined";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(std::string(error.what()), "The movie piece \"" + pieces[1] +
                                                 "\" cannot be read: its IDAT chunk is damaged");
    }
    EXPECT_FALSE(fs::exists(joined.fileName));
    EXPECT_FALSE(fs::exists(joined.fileName + ".partial"));
}

}  // namespace
}  // namespace vexhost
