// The two ways of joining a team's movie pieces (vexhost/MoviePieces.h) into one file at `output`:
// packet by packet through FFmpeg's demuxer and muxer, or chunk by chunk for the animated PNG
// (MovieEncoding::joinsByChunks). Each answers the movie's frame count and encoded size in a
// WrittenMovie, the rest of which the caller fills in; each throws std::runtime_error naming the
// cause and may leave a partial file at `output`, which the caller removes.
#ifndef VEXHOST_MOVIE_PIECEJOINERS_H
#define VEXHOST_MOVIE_PIECEJOINERS_H

#include <stdexcept>
#include <string>
#include <vector>

#include "movie/MovieEncoding.h"
#include "movie/WrittenMovie.h"

namespace vexhost {

// The failures a piece can have, each a std::runtime_error that names it:
//   The movie piece "<piece>" <what>
std::runtime_error pieceFailure(const std::string& piece, const std::string& what);
//   ... cannot be read: <why>
std::runtime_error unreadablePiece(const std::string& piece, const std::string& why);
//   ... was encoded otherwise than "<first piece>": the pieces cannot be joined
std::runtime_error piecesThatDiffer(const std::string& piece, const std::string& first);

// displayName: the movie's name in messages. frameRate: the export's (MovieEncoding::frameRate).
WrittenMovie joinPackets(const MovieEncoding& encoding, AVRational frameRate,
                         const std::vector<std::string>& pieces, const std::string& output,
                         const std::string& displayName);

WrittenMovie joinPngChunks(const std::vector<std::string>& pieces, AVRational frameRate,
                           const std::string& output, const std::string& displayName);

}  // namespace vexhost

#endif
