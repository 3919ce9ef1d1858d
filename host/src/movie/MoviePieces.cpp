#include "vexhost/MoviePieces.h"

#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "movie/FfmpegMovieWriter.h"
#include "movie/MovieEncoding.h"
#include "movie/MovieOutput.h"
#include "movie/PieceJoiners.h"
#include "movie/WrittenMovie.h"

namespace vexhost {

std::runtime_error pieceFailure(const std::string& piece, const std::string& what) {
    return std::runtime_error("The movie piece \"" + piece + "\" " + what);
}

std::runtime_error unreadablePiece(const std::string& piece, const std::string& why) {
    return pieceFailure(piece, "cannot be read: " + why);
}

std::runtime_error piecesThatDiffer(const std::string& piece, const std::string& first) {
    return pieceFailure(
        piece, "was encoded otherwise than \"" + first + "\": the pieces cannot be joined");
}

std::string moviePieceName(const std::string& fileName, int member) {
    return fileName + ".part" + std::to_string(member) +
           std::filesystem::path(fileName).extension().string();
}

std::string joinMoviePieces(const ExportSettings& settings, const std::vector<std::string>& pieces,
                            int width, int height) {
    const MovieEncoding encoding = MovieEncoding::forSettings(settings);
    if (pieces.empty())
        throw std::invalid_argument("joinMoviePieces(): no pieces");
    // The movie's own way to its name: complete under the partial name, then renamed.
    const std::string partial = FfmpegMovieWriter::partialName(settings.fileName);
    WrittenMovie movie;
    try {
        const AVRational frameRate = MovieEncoding::frameRate(settings.animationSpeed);
        movie = encoding.joinsByChunks
                    ? joinPngChunks(pieces, frameRate, partial, settings.fileName)
                    : joinPackets(encoding, frameRate, pieces, partial, settings.fileName);
        std::error_code error;
        std::filesystem::rename(partial, settings.fileName, error);
        if (error)
            throw std::runtime_error(MovieOutput::cannotWrite(settings.fileName, error.message()));
    } catch (...) {
        std::error_code ignored;
        std::filesystem::remove(partial, ignored);
        throw;
    }
    movie.width = width;
    movie.height = height;
    movie.framesPerSecond = settings.animationSpeed;
    movie.description = encoding.description;
    movie.fileName = settings.fileName;
    return movie.summary();
}

}  // namespace vexhost
