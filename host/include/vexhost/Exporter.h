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
//
// With an export team (setTeam: the processes of vexplot --parallel-export, each running the same
// export; docs/parallel-export.md) the pictures are drawn at the finish, each process drawing its
// share:
// - the start opens this member's writer on its piece (moviePieceName; the movie's own name in a
//   team of one), member 0 alone takes the first picture, and the team agrees: a failure on any
//   member refuses the start on every one, the error dialog telling the team's line;
// - each next frame keeps the scene it would draw (Drawing::scene) instead of drawing it;
// - the finish draws this member's range of the kept scenes (FrameRange) into its piece, trading
//   tallies with the team (ExportTeam), under a progress status of its own when none is open,
//   whose Stop stops the export on every member; then the team agrees, member 0 joins the pieces
//   with the movie joiner, the team agrees again, and each member removes its piece. After a
//   failure or Stop anywhere every member's finish writes no movie and answers false, and the
//   error dialog tells the team's line of the first failure;
// - the progress checks of the add-on become the team's (ProgressStatus::setStopAgreement), so
//   that a Stop on one member ends the run on all.
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
#include "vexhost/ExportTeam.h"
#include "vexhost/MovieWriter.h"
#include "vexhost/SceneState.h"
#include "vxsdkbase.h"

namespace vexhost {

class Drawing;
class FrameStack;
class FrameTrace;
class HostErrors;
class ProgressStatus;
class StyleStore;
class UserDialogs;
struct FrameRange;

class Exporter {
public:
    using MovieWriterFactory = std::function<std::unique_ptr<MovieWriter>(const ExportSettings&)>;
    // Joins a team's pieces into the movie (joinMoviePieces: the same arguments, the same answer).
    using MovieJoiner = std::function<std::string(
        const ExportSettings&, const std::vector<std::string>& pieces, int width, int height)>;
    struct Counts {
        uint64_t starts = 0;    // successful starts
        uint64_t frames = 0;    // pictures taken, the first one of each export included
        uint64_t finishes = 0;  // successful finishes
        // Finishes that wrote no movie: a writer or a team member failed, or Stop while drawing.
        uint64_t failedFinishes = 0;
        uint64_t cancels = 0;
    };

    // The export setup is the ("ExportSetup", ...) values of `style`; pictures are drawn by
    // `drawing` from the frames of `frames`; host errors, error dialogs and the frame trace's
    // events go to `errors`, `dialogs` and `trace`; a team's drawing shows its progress on
    // `progress`.
    Exporter(StyleStore& style, FrameStack& frames, Drawing& drawing, HostErrors& errors,
             UserDialogs& dialogs, FrameTrace& trace, ProgressStatus& progress);
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
    // An empty joiner puts the default back, which joins nothing, as the default writer writes
    // nothing.
    void setMovieJoiner(MovieJoiner joiner);
    // Null: no team, every picture drawn when it is taken. Not while recording.
    void setTeam(std::shared_ptr<ExportTeam> team);
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

    // Idle (an open writer is canceled), counts 0, no log, default writer and joiner, no team,
    // starts allowed.
    void reset();

private:
    // Draws the current scene and hands it to the writer; throws what either throws.
    void addPicture();
    // The settings this member's writer is opened with: the export's, for its piece's file.
    ExportSettings pieceSettings(const ExportSettings& settings) const;
    // The team's finish: this member's piece, the agreements, the join.
    bool finishTogether();
    // Draws the kept scenes of this member's range that its writer does not have yet, trading
    // tallies with the team until every member is done; answers what this member brings to the
    // agreement, and whether it gave up because of another member's Stop or failure.
    ExportTeam::Outcome drawPiece(const FrameRange& range, bool& gaveUp);
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
    ProgressStatus& progress_;
    bool recording_ = false;
    bool refuseStart_ = false;
    uint64_t frameCount_ = 0;
    Counts counts_;
    int width_ = 0, height_ = 0, supersample_ = 1;
    MovieWriterFactory factory_;
    MovieJoiner joiner_;
    std::unique_ptr<MovieWriter> writer_;  // while recording; null after a writer failure
    std::vector<std::string> log_;
    std::shared_ptr<ExportTeam> team_;
    ExportSettings teamSettings_;     // of the export a team is recording
    std::vector<SceneState> scenes_;  // a team's kept scenes, one per frame taken
};

}  // namespace vexhost

#endif
