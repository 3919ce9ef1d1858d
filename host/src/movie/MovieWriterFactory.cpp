#include "vexhost/MovieWriterFactory.h"

#include "core/ExportSetupAttribute.h"
#include "movie/FfmpegMovieWriter.h"
#include "movie/MovieEncoding.h"

namespace vexhost {

bool isMovieFormat(int exportFormat) {
    return ExportSetupAttribute::isMovieFormat(exportFormat);
}

bool takesEvenSizesOnly(int exportFormat) {
    if (!isMovieFormat(exportFormat))
        return false;
    ExportSettings settings;
    settings.format = exportFormat;
    return MovieEncoding::forSettings(settings).evenSize;
}

std::unique_ptr<MovieWriter> createMovieWriter(const ExportSettings& settings) {
    // Refuses what cannot be encoded now, before the export has started anything.
    MovieEncoding::forSettings(settings);
    return std::make_unique<FfmpegMovieWriter>(settings.format);
}

}  // namespace vexhost
