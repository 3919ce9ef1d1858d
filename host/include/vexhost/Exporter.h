// Movie export: the export setup (the ("ExportSetup", ...) style values, written by
// VexUtilExportSetup) and the recording state machine.
//
//   idle --start--> recording (frame 1 taken) --next frame--> recording (frame + 1)
//   recording --finish--> idle (movie complete)      recording --cancel--> idle (no movie)
//
// Each picture taken (the start's first one and each next frame) is drawn by the drawing renderer
// from the host's scene at the export size, with the export's supersampling, and handed to the
// movie writer that the writer factory made for this export. The writer encodes on a thread of
// its own, so the next frame is drawn while the last one is encoded. The frame trace gets
// "export-start", "export-frame", "export-finish" and "export-cancel". The default writer writes
// no movie and says so in the export log; vexplot installs the real encoders.
//
// A start is refused (false) while recording, while a control call makes starts refuse, without a
// frame (a host error), and when the writer cannot be made or opened or the first picture cannot
// be drawn or encoded: then an error dialog names the cause (a path that cannot be written, a
// codec that fails) and nothing is left on disk. A writer that fails later is told in an error
// dialog once; the run goes on, and finishing it writes no movie. A next frame, finish or cancel
// while not recording is a host error.
#ifndef VEXHOST_EXPORTER_H
#define VEXHOST_EXPORTER_H

#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "vexhost/ExportSettings.h"
#include "vexhost/MovieWriter.h"
#include "vxsdkbase.h"

namespace vexhost {

class Drawing;
class FrameStack;
class FrameTrace;
class HostErrors;
class StyleStore;
class UserDialogs;

class Exporter {
public:
    using MovieWriterFactory = std::function<std::unique_ptr<MovieWriter>(const ExportSettings&)>;
    struct Counts {
        uint64_t starts = 0;    // successful starts
        uint64_t frames = 0;    // pictures taken, the first one of each export included
        uint64_t finishes = 0;  // successful finishes
        uint64_t cancels = 0;
    };

    // The export setup is the ("ExportSetup", ...) values of `style`; pictures are drawn by
    // `drawing` from the frames of `frames`; host errors, error dialogs and the frame trace's
    // events go to `errors`, `dialogs` and `trace`.
    Exporter(StyleStore& style, FrameStack& frames, Drawing& drawing, HostErrors& errors,
             UserDialogs& dialogs, FrameTrace& trace);
    ~Exporter();
    Exporter(const Exporter&) = delete;
    Exporter& operator=(const Exporter&) = delete;

    bool isRecording() const { return recording_; }
    // Pictures taken into the open (or last) export.
    uint64_t frameCount() const { return frameCount_; }
    const Counts& counts() const { return counts_; }

    // The export setup as it stands now.
    ExportSettings settings() const;
    // The picture size of an export with the current setup: the image width, and the height of the
    // export region (active frame, all frames or work area) scaled to it; for formats whose codec
    // takes even sizes only (takesEvenSizesOnly), the nearest even height.
    std::pair<int, int> imageSize() const;

    void setRefuseStart(bool refuse) { refuseStart_ = refuse; }
    // An empty factory puts the default (no movie) writer back.
    void setMovieWriterFactory(MovieWriterFactory factory);
    // One line per event worth telling the user: starts, refusals, what each writer wrote.
    const std::vector<std::string>& log() const { return log_; }
    std::vector<std::string> takeLog();

    // ---- SDK side ----
    // VexUtilExportSetup: the attribute (case-insensitive, core/ExportSetupAttribute.h), no
    // sub-attribute; ExportFName passes a `const char*` in intValue, AnimationSpeed a double, the
    // others an integer or bool in intValue.
    VexSetValueReturnCode_e setup(const char* attribute, const char* subAttribute,
                                  double doubleValue, VexArbParam_t intValue);
    bool start();
    bool nextFrame();
    bool finish();
    bool cancel();

    // Idle (an open writer is canceled), counts 0, no log, default writer, starts allowed.
    void reset();

private:
    // Draws the current scene and hands it to the writer; throws what either throws.
    void addPicture();
    // A next frame's picture; a failure is told and ends the movie (false).
    bool takePicture();
    void writerFailed(const char* what, const std::exception& error);
    // Cancels and drops the writer, if any, whatever it throws.
    void abandonWriter();

    StyleStore& style_;
    FrameStack& frames_;
    Drawing& drawing_;
    HostErrors& errors_;
    UserDialogs& dialogs_;
    FrameTrace& trace_;
    bool recording_ = false;
    bool refuseStart_ = false;
    uint64_t frameCount_ = 0;
    Counts counts_;
    int width_ = 0, height_ = 0, supersample_ = 1;
    MovieWriterFactory factory_;
    std::unique_ptr<MovieWriter> writer_;  // while recording; null after a writer failure
    std::vector<std::string> log_;
};

}  // namespace vexhost

#endif
