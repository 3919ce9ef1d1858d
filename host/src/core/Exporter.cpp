#include "vexhost/Exporter.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <variant>

#include "core/ExportSetupAttribute.h"
#include "core/NullMovieWriter.h"
#include "vexhost/Drawing.h"
#include "vexhost/FrameRange.h"
#include "vexhost/FrameStack.h"
#include "vexhost/FrameTrace.h"
#include "vexhost/Host.h"
#include "vexhost/HostErrors.h"
#include "vexhost/MoviePieces.h"
#include "vexhost/MovieWriterFactory.h"
#include "vexhost/ProgressStatus.h"
#include "vexhost/StyleStore.h"
#include "vexhost/UserDialogs.h"

namespace vexhost {

namespace {

// Reads one export setup value into its field of ExportSettings.
void readInto(const StyleStore& style, const StyleStore::Path& path, int& field) {
    field = static_cast<int>(style.getInt(path));
}
void readInto(const StyleStore& style, const StyleStore::Path& path, double& field) {
    field = style.getDouble(path);
}
void readInto(const StyleStore& style, const StyleStore::Path& path, bool& field) {
    field = style.getBool(path);
}
void readInto(const StyleStore& style, const StyleStore::Path& path, std::string& field) {
    field = style.getString(path);
}

// A failure as a team's member tells it: its message, which may not be empty, as an empty one
// means that all went well.
std::string failureOf(const std::exception& error) {
    return *error.what() != '\0' ? error.what() : "an unexplained failure";
}

}  // namespace

Exporter::Exporter(StyleStore& style, FrameStack& frames, Drawing& drawing, HostErrors& errors,
                   UserDialogs& dialogs, FrameTrace& trace, ProgressStatus& progress)
    : style_(style),
      frames_(frames),
      drawing_(drawing),
      errors_(errors),
      dialogs_(dialogs),
      trace_(trace),
      progress_(progress) {}

Exporter::~Exporter() {
    abandonWriter();
}

ExportSettings Exporter::settings() const {
    ExportSettings s;
    for (const ExportSetupAttribute& attribute : ExportSetupAttribute::all()) {
        const StyleStore::Path path = attribute.path();
        std::visit([&](auto field) { readInto(style_, path, s.*field); }, attribute.field);
    }
    return s;
}

std::pair<int, int> Exporter::imageSize() const {
    const double ppi = FrameStack::PixelsPerInch;
    int64_t regionWidth = frames_.workAreaWidth(), regionHeight = frames_.workAreaHeight();
    const ExportSettings s = settings();
    if (s.region == VexExportRegion_CurrentFrame && frames_.active() != nullptr) {
        const std::pair<int, int> size = Drawing::pixelSize(*frames_.active());
        regionWidth = size.first;
        regionHeight = size.second;
    } else if (s.region == VexExportRegion_AllFrames && !frames_.empty()) {
        double left = frames_.at(0).x(), top = frames_.at(0).y();
        double right = left + frames_.at(0).width(), bottom = top + frames_.at(0).height();
        for (int i = 1; i < frames_.count(); ++i) {
            const Frame& f = frames_.at(static_cast<std::size_t>(i));
            left = std::min(left, f.x());
            top = std::min(top, f.y());
            right = std::max(right, f.x() + f.width());
            bottom = std::max(bottom, f.y() + f.height());
        }
        // Rounded, as the frames' own sizes are (Drawing::pixelSize).
        regionWidth = std::llround((right - left) * ppi);
        regionHeight = std::llround((bottom - top) * ppi);
    }
    regionWidth = std::max<int64_t>(regionWidth, 1);
    regionHeight = std::max<int64_t>(regionHeight, 1);
    // The picture keeps the region's shape at the chosen width (multiplication first, as whole
    // pixels). Codecs that take even sizes only get the nearest even height instead: padding the
    // picture with a repeated row would put a seam at its edge. The width stays as the user chose
    // it; an odd one is padded by the writer.
    if (takesEvenSizesOnly(s.format)) {
        const int64_t halfHeight = (s.imageWidth * regionHeight + regionWidth) / (2 * regionWidth);
        return {s.imageWidth, static_cast<int>(std::max<int64_t>(2 * halfHeight, 2))};
    }
    const int64_t height = std::max<int64_t>(s.imageWidth * regionHeight / regionWidth, 1);
    return {s.imageWidth, static_cast<int>(height)};
}

void Exporter::setMovieWriterFactory(MovieWriterFactory factory) {
    factory_ = std::move(factory);
}

void Exporter::setMovieJoiner(MovieJoiner joiner) {
    joiner_ = std::move(joiner);
}

void Exporter::setTeam(std::shared_ptr<ExportTeam> team) {
    if (recording_)
        throw std::logic_error("Exporter::setTeam(): an export is being recorded");
    team_ = std::move(team);
    ProgressStatus::StopAgreement agreement;
    if (team_ != nullptr)
        agreement = [team = team_.get()](bool stopPressedHere) {
            return team->agreeOnStop(stopPressedHere);
        };
    progress_.setStopAgreement(std::move(agreement));
}

std::vector<std::string> Exporter::takeLog() {
    std::vector<std::string> taken;
    taken.swap(log_);
    return taken;
}

VexSetValueReturnCode_e Exporter::setup(const char* attribute, const char* subAttribute,
                                        double doubleValue, VexArbParam_t intValue) {
    if (attribute == nullptr || (subAttribute != nullptr && *subAttribute != '\0'))
        return VexSetValue_InvalidCommandOption;
    const ExportSetupAttribute* found = ExportSetupAttribute::find(attribute);
    if (found == nullptr)
        return VexSetValue_InvalidCommandOption;
    const StyleStore::Path path = found->path();
    switch (found->type()) {
        case StyleStore::ValueType::Int:
            return style_.setInt(path, static_cast<int64_t>(intValue));
        case StyleStore::ValueType::Double:
            return style_.setDouble(path, doubleValue);
        case StyleStore::ValueType::Bool:
            if (intValue != 0 && intValue != 1)
                return VexSetValue_InvalidValue;
            return style_.setBool(path, intValue != 0);
        case StyleStore::ValueType::String: {
            const char* name = reinterpret_cast<const char*>(intValue);
            if (name == nullptr)
                return VexSetValue_InvalidValue;
            return style_.setString(path, name);
        }
    }
    return VexSetValue_InvalidCommandOption;
}

bool Exporter::start() {
    if (recording_)
        return false;
    if (refuseStart_) {
        log_.push_back("Export not started: the host was told to refuse export starts.");
        return false;
    }
    if (frames_.active() == nullptr) {
        errors_.record("VexUtilExportStart", "there is no frame to export");
        return false;
    }
    const ExportSettings s = settings();
    const std::pair<int, int> size = imageSize();
    width_ = size.first;
    height_ = size.second;
    supersample_ = s.useSuperSampling ? s.superSampleFactor : 1;
    // The start takes the first frame: a movie that cannot be opened or a first picture that cannot
    // be drawn or encoded refuses the start, with an error dialog that names the cause, as the
    // application tells the user why an export did not begin. In a team, member 0 takes it (the
    // first frame is always in its range); the other members' pieces begin later.
    std::optional<std::string> failure;
    try {
        writer_ = factory_ ? factory_(s) : std::make_unique<NullMovieWriter>();
        if (writer_ == nullptr)
            throw std::runtime_error("There is no movie writer for the export format " +
                                     std::to_string(s.format));
        writer_->open(pieceSettings(s), width_, height_);
        if (team_ == nullptr) {
            addPicture();
        } else {
            scenes_.assign(1, drawing_.scene());
            if (team_->member() == 0)
                writer_->addFrame(drawing_.picture(scenes_.front(), width_, height_, supersample_));
        }
    } catch (const std::exception& error) {
        failure = team_ != nullptr ? failureOf(error) : error.what();
    }
    if (team_ != nullptr) {
        const std::string agreed = team_->agree({false, failure.value_or("")}).failure;
        failure = agreed.empty() ? std::nullopt : std::optional<std::string>(agreed);
    }
    if (failure) {
        abandonWriter();
        scenes_.clear();
        dialogs_.showError(failure->c_str());
        log_.push_back("Export not started: the error shown says why.");
        return false;
    }
    teamSettings_ = s;
    recording_ = true;
    frameCount_ = 1;
    ++counts_.frames;
    ++counts_.starts;
    log_.push_back("Export started: format " + std::to_string(s.format) + ", " +
                   std::to_string(width_) + " x " + std::to_string(height_) + " pixels, to \"" +
                   s.fileName + "\".");
    trace_.writeEvent("export-start");
    return true;
}

bool Exporter::nextFrame() {
    if (!recording_) {
        errors_.record("VexUtilExportNextFrame", "no export is being recorded");
        return false;
    }
    trace_.writeEvent("export-frame");
    if (team_ != nullptr) {
        // Drawn at the finish, by the member whose range it falls in.
        ++frameCount_;
        ++counts_.frames;
        scenes_.push_back(drawing_.scene());
        return true;
    }
    return takePicture();
}

bool Exporter::finish() {
    if (!recording_) {
        errors_.record("VexUtilExportFinish", "no export is being recorded");
        return false;
    }
    trace_.writeEvent("export-finish");
    recording_ = false;
    if (team_ != nullptr)
        return finishTogether();
    if (writer_ == nullptr) {
        log_.push_back("Export failed after " + std::to_string(frameCount_) +
                       " frames; no movie written.");
        ++counts_.failedFinishes;
        return false;
    }
    try {
        writer_->finish();
    } catch (const std::exception& error) {
        writerFailed("finishing the movie", error);
        ++counts_.failedFinishes;
        return false;
    }
    log_.push_back(writer_->summary());
    writer_.reset();
    ++counts_.finishes;
    return true;
}

bool Exporter::cancel() {
    if (!recording_) {
        errors_.record("VexUtilExportCancel", "no export is being recorded");
        return false;
    }
    trace_.writeEvent("export-cancel");
    recording_ = false;
    ++counts_.cancels;
    // Every member of a team cancels here: each has seen the same Stop at the same check.
    scenes_.clear();
    if (writer_ != nullptr) {
        try {
            writer_->cancel();
            // A piece's writer would tell of the piece; the user asked for the movie.
            log_.push_back(team_ == nullptr || team_->size() == 1
                               ? writer_->summary()
                               : "Export canceled: no movie was written to \"" +
                                     teamSettings_.fileName + "\".");
        } catch (const std::exception& error) {
            log_.push_back(std::string("Export cancel failed: ") + error.what());
        }
        writer_.reset();
    }
    return true;
}

ExportSettings Exporter::pieceSettings(const ExportSettings& settings) const {
    ExportSettings piece = settings;
    if (team_ != nullptr && team_->size() > 1)
        piece.fileName = moviePieceName(settings.fileName, team_->member());
    return piece;
}

bool Exporter::finishTogether() {
    const int member = team_->member();
    const int members = team_->size();
    const FrameRange range = FrameRange::of(frameCount_, members, member);
    bool gaveUp = false;
    ExportTeam::Outcome outcome = drawPiece(range, gaveUp);
    scenes_ = std::vector<SceneState>();
    std::string summary;
    if (outcome.failure.empty() && !outcome.stopped && !gaveUp) {
        try {
            // A member without frames (fewer frames than members) has no piece.
            if (range.empty())
                writer_->cancel();
            else
                writer_->finish();
            summary = writer_->summary();
        } catch (const std::exception& error) {
            outcome.failure = failureOf(error);
        }
    }
    if (!outcome.failure.empty() || outcome.stopped || gaveUp)
        abandonWriter();
    writer_.reset();

    ExportTeam::Verdict verdict = team_->agree(outcome);
    if (members > 1) {
        if (verdict.ok()) {
            std::string joinFailure;
            if (member == 0) {
                std::vector<std::string> pieces;
                for (int m = 0; m < members; ++m) {
                    if (!FrameRange::of(frameCount_, members, m).empty())
                        pieces.push_back(moviePieceName(teamSettings_.fileName, m));
                }
                try {
                    summary = joiner_ ? joiner_(teamSettings_, pieces, width_, height_)
                                      : NullMovieWriter::joinNothing(teamSettings_, pieces.size());
                } catch (const std::exception& error) {
                    joinFailure = failureOf(error);
                }
            }
            verdict = team_->agree({false, joinFailure});
        }
        // Written or not, joined or not, the piece has served.
        std::error_code ignored;
        std::filesystem::remove(moviePieceName(teamSettings_.fileName, member), ignored);
    }
    if (!verdict.ok()) {
        if (!verdict.failure.empty())
            dialogs_.showError(verdict.failure.c_str());
        log_.push_back(verdict.failure.empty()
                           ? "Export stopped while drawing the frames; no movie written."
                           : "Export failed: the error shown says why; no movie written.");
        ++counts_.failedFinishes;
        return false;
    }
    log_.push_back(summary);
    ++counts_.finishes;
    return true;
}

ExportTeam::Outcome Exporter::drawPiece(const FrameRange& range, bool& gaveUp) {
    ExportTeam::Outcome outcome;
    ExportTeam::Report mine;
    // Member 0's writer took the first frame at the start.
    uint64_t next = range.first + (team_->member() == 0 && !range.empty() ? 1 : 0);
    mine.framesDone = next - range.first;
    const uint64_t frames = frameCount_;
    // The add-on's own status has ended by now; another's stays as it is, without this progress.
    const bool showsProgress = !progress_.isOpen();
    if (showsProgress)
        progress_.start(("Exporting \"" + teamSettings_.fileName + "\": drawing " +
                         std::to_string(frames) + " frames on " + std::to_string(team_->size()) +
                         (team_->size() == 1 ? " process" : " processes"))
                            .c_str(),
                        true, true);
    for (;;) {
        if (!mine.done && next < range.end) {
            try {
                writer_->addFrame(drawing_.picture(scenes_[next], width_, height_, supersample_));
                ++next;
                ++mine.framesDone;
            } catch (const std::exception& error) {
                outcome.failure = failureOf(error);
                mine.failed = true;
            }
        }
        mine.done = mine.done || mine.failed || next >= range.end;
        const std::optional<ExportTeam::Tally> tally =
            mine.done ? std::optional<ExportTeam::Tally>(team_->await(mine)) : team_->offer(mine);
        if (!tally)
            continue;
        if (showsProgress &&
            !progress_.checkHere(static_cast<int32_t>(tally->framesDone * 100 / frames))) {
            // Told to the others with the next tally, or with the agreement after the last one.
            outcome.stopped = mine.stopped = mine.done = true;
        }
        if (tally->stopped || tally->failed) {
            // The movie will not be made: drawing on, or finishing the piece, would waste time.
            gaveUp = mine.done = true;
        }
        if (tally->allDone)
            break;
    }
    if (showsProgress)
        progress_.finish();
    return outcome;
}

void Exporter::addPicture() {
    writer_->addFrame(drawing_.picture(width_, height_, supersample_));
}

bool Exporter::takePicture() {
    // A frame counts also when the writer failed earlier: the run took it.
    ++frameCount_;
    ++counts_.frames;
    if (writer_ == nullptr)
        return false;
    try {
        addPicture();
    } catch (const std::exception& error) {
        writerFailed(("adding frame " + std::to_string(frameCount_)).c_str(), error);
        return false;
    }
    return true;
}

void Exporter::writerFailed(const char* what, const std::exception& error) {
    // Told once, when it happens: the rest of the run goes on without a movie, and finishing says
    // that none was written.
    dialogs_.showError(error.what());
    log_.push_back(std::string("Export failed while ") + what + ": " + error.what());
    abandonWriter();
}

void Exporter::abandonWriter() {
    if (writer_ == nullptr)
        return;
    try {
        writer_->cancel();
    } catch (...) {
        // The failure is told already; a second one adds nothing.
    }
    writer_.reset();
}

void Exporter::reset() {
    abandonWriter();
    recording_ = false;
    setTeam(nullptr);
    scenes_.clear();
    joiner_ = nullptr;
    refuseStart_ = false;
    frameCount_ = 0;
    counts_ = Counts();
    width_ = height_ = 0;
    supersample_ = 1;
    factory_ = nullptr;
    log_.clear();
}

}  // namespace vexhost
