#include "core/NullMovieWriter.h"

namespace vexhost {

void NullMovieWriter::open(const ExportSettings& settings, int width, int height) {
    fileName_ = settings.fileName;
    width_ = width;
    height_ = height;
}

std::string NullMovieWriter::summary() const {
    const std::string frames = std::to_string(frames_) + (frames_ == 1 ? " frame" : " frames");
    if (canceled_)
        return "Export to \"" + fileName_ + "\" canceled after " + frames + "; no movie written.";
    return "No movie written to \"" + fileName_ + "\": this host has no movie encoder (" + frames +
           " of " + std::to_string(width_) + " x " + std::to_string(height_) + " pixels" +
           (finished_ ? "" : " so far") + ").";
}

std::string NullMovieWriter::joinNothing(const ExportSettings& settings, std::size_t pieces) {
    return "No movie written to \"" + settings.fileName + "\": this host has no movie encoder (" +
           std::to_string(pieces) + (pieces == 1 ? " piece" : " pieces") + " not joined).";
}

}  // namespace vexhost
