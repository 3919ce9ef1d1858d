// A movie made by a team of processes (Exporter::setTeam, docs/parallel-export.md) is written in
// pieces: each member with frames to draw writes its range of them as a complete movie of the
// export's format beside the movie's file, and member 0 joins the pieces, in member order, into
// the movie without encoding anything again. Each piece starts with a key frame, as every movie
// does, so the pictures after a joint never refer to another piece's.
#ifndef VEXHOST_MOVIEPIECES_H
#define VEXHOST_MOVIEPIECES_H

#include <string>
#include <vector>

#include "vexhost/ExportSettings.h"

namespace vexhost {

// The file of member `member`'s piece: "<file name>.part<member>" and the file name's extension,
// as "film.mp4.part2.mp4", so that tools still know the format by the name.
std::string moviePieceName(const std::string& fileName, int member);

// Joins the pieces (movies of settings.format, in order) into settings.fileName, through
// "<file name>.partial", renamed when complete: a join that fails leaves nothing at the name, and
// an older movie there stays as it was. Packets are copied as they are, with their timestamps
// running on from piece to piece; the raster metafile is joined chunk by chunk. width x height is
// the pictures' size. Answers the export log's line for the movie, as a movie writer's summary.
// Throws std::runtime_error naming the cause: a piece that cannot be read, pieces encoded
// differently, a piece that does not start with a key frame, a file that cannot be written.
std::string joinMoviePieces(const ExportSettings& settings, const std::vector<std::string>& pieces,
                            int width, int height);

}  // namespace vexhost

#endif
