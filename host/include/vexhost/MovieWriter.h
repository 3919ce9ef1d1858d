// The host's movie encoder seam: one writer per export, fed one picture per exported frame.
//
// open() either leaves an open movie file or throws std::runtime_error whose text names the cause
// (a path that cannot be written, a codec that fails). finish() leaves a complete file at the
// export file name; cancel() removes whatever was written. A writer is finished or canceled at most
// once.
#ifndef VEXHOST_MOVIEWRITER_H
#define VEXHOST_MOVIEWRITER_H

#include <memory>
#include <string>

#include "vexhost/ExportSettings.h"
#include "vexhost/Image.h"

namespace vexhost {

class MovieWriter {
public:
    virtual ~MovieWriter() = default;
    // width and height: the picture size every frame will have.
    virtual void open(const ExportSettings& settings, int width, int height) = 0;
    // Takes the picture over: the export hands each frame on without copying it, and a writer that
    // encodes on another thread keeps it until it is encoded.
    virtual void addFrame(Image frame) = 0;
    virtual void finish() = 0;
    virtual void cancel() = 0;
    // One line for the export log: what was written (or why nothing was).
    virtual std::string summary() const = 0;
};

}  // namespace vexhost

#endif
