// Makes the movie writer for an export setup.
//
// The movie formats and what they write:
// - 21 "MPEG-4": H.264 in MP4;
// - 14 "AVI": Motion JPEG in AVI;
// - 20 "Flash (FLV)": FLV1 in FLV;
// - 17 "Flash (SWF)": SWF holding FLV1 (image type 0 True Color: finest quantiser; 2 256 Colors:
//   coarse quantiser) or Motion JPEG (image type 1 JPEG); compression type 1 "Optimize for File
//   Size" trades encoding time and some quality for a smaller file;
// - 22 "WMV": WMV2 in ASF;
// - 0 "Raster Metafile": the host's lossless multi-frame raster file, an animated PNG.
// The frame rate is the export's animation speed. H.264 and WMV2 take even sizes only: an odd
// width or height is padded by one column or row repeating the picture's edge.
#ifndef VEXHOST_MOVIEWRITERFACTORY_H
#define VEXHOST_MOVIEWRITERFACTORY_H

#include <memory>

#include "vexhost/ExportSettings.h"
#include "vexhost/MovieWriter.h"

namespace vexhost {

// True for 0, 14, 17, 20, 21 and 22.
bool isMovieFormat(int exportFormat);

// True for the formats whose codec takes even picture sizes only: 21 (H.264) and 22 (WMV2).
bool takesEvenSizesOnly(int exportFormat);

// A writer for settings.format, not yet open. Throws std::runtime_error naming the fault for a
// format that makes no movie or a Flash image type out of range.
std::unique_ptr<MovieWriter> createMovieWriter(const ExportSettings& settings);

}  // namespace vexhost

#endif
