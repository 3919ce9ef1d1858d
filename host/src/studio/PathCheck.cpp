#include "studio/PathCheck.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

#include "studio/ChildProcess.h"
#include "vexhost/GuiModel.h"
#include "vexhost/ScratchFile.h"

namespace vexhost {
namespace studio {

namespace {

using End = ChildProcess::Outcome::End;

std::string readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

std::string trimmed(std::string text) {
    while (!text.empty() && (text.back() == '\n' || text.back() == ' '))
        text.pop_back();
    return text;
}

// Why a process that did not exit by itself ended, in the person's words; nothing when it exited.
std::optional<std::string> unfinished(const ChildProcess::Outcome& outcome, const char* what) {
    switch (outcome.end) {
        case End::Exited:
            return std::nullopt;
        case End::TimedOut:
            return "The check took longer than " + std::to_string(PathCheck::Timeout.count()) +
                   " seconds and was stopped.";
        case End::Signalled:
            return std::string(what) + " ended on signal " + std::to_string(outcome.status) + ".";
        case End::Canceled:
            break;
    }
    return std::string(what) + " was canceled.";
}

}  // namespace

struct PathCheck::Result {
    bool unchanged = false;  // the list saved as the last check read it
    std::string saved;
    Json report;  // null when the check failed
    std::string error;
};

struct PathCheck::Job {
    std::string vexpath;
    std::vector<std::string> arguments;
    std::string lastSaved;
    Clock::time_point deadline;
    std::shared_ptr<std::atomic<bool>> canceled = std::make_shared<std::atomic<bool>>(false);
    std::unique_ptr<ScratchFile> file;
    std::optional<ChildProcess> saver;
};

PathCheck::PathCheck(std::string vexpath, std::function<std::vector<std::string>()> sceneArguments,
                     EventQueue& events)
    : vexpath_(std::move(vexpath)), sceneArguments_(std::move(sceneArguments)), events_(events) {}

PathCheck::~PathCheck() {
    cancel();
}

const GuiDialog* PathCheck::mainDialog(const GuiModel& model) {
    for (const GuiDialog* dialog : model.dialogs())
        if (dialog->up && dialog->title == DialogTitle)
            return dialog;
    return nullptr;
}

void PathCheck::changed(Clock::time_point now) {
    changedAt_ = now;
}

std::optional<PathCheck::Clock::time_point> PathCheck::due() const {
    if (!changedAt_)
        return std::nullopt;
    return *changedAt_ + Debounce;
}

bool PathCheck::startIfDue(Clock::time_point now, const GuiModel& model,
                           const RunMacroLine& runLine) {
    if (!changedAt_ || now < *changedAt_ + Debounce)
        return false;
    changedAt_.reset();
    const GuiDialog* dialog = mainDialog(model);
    // A dialog that went down keeps what it showed; it shows the list again when it comes back,
    // which is a change.
    if (vexpath_.empty() || dialog == nullptr)
        return false;
    dialogId_ = dialog->id;
    std::size_t keyFrames = 0;
    for (int32_t id : dialog->controls) {
        const GuiControl* control = model.control(id);
        if (control != nullptr && control->kind == GuiControl::Kind::List) {
            keyFrames = control->items.size();
            break;
        }
    }
    cancel();
    if (keyFrames < 2) {
        clear();
        return true;
    }

    auto job = std::make_shared<Job>();
    job->vexpath = vexpath_;
    job->arguments = sceneArguments_ ? sceneArguments_() : std::vector<std::string>();
    job->lastSaved = lastSaved_;
    job->deadline = now + Timeout;
    try {
        job->file = std::make_unique<ScratchFile>("vexstudio-check", ".keyframe");
        const std::string line = std::string("$!ADDON \"") + AddOnName +
                                 "\" SaveSettingsFile FileName=\"" + job->file->path() + "\"";
        job->saver.emplace(ChildProcess::fork([&runLine, &line] {
            runLine(line);
            return 0;
        }));
    } catch (const std::exception& error) {
        report_ = nullptr;
        error_ = error.what();
        return true;
    }
    checking_ = true;
    const uint64_t generation = ++generation_;
    canceled_ = job->canceled;
    worker_ = std::thread([this, generation, job] {
        Result result = work(*job);
        // Gone before the result comes: what shows a check's end finds nothing of it left.
        job->file.reset();
        if (job->canceled->load())
            return;
        events_.push(NetworkEvent([this, generation, result] { finish(generation, result); }));
    });
    return true;
}

PathCheck::Result PathCheck::work(Job& job) {
    Result result;
    const ChildProcess::Outcome saved = job.saver->wait(job.deadline, *job.canceled);
    if (saved.end == End::Canceled)
        return result;
    if (const auto why = unfinished(saved, "Saving the key frame list")) {
        result.error = *why;
        return result;
    }
    if (saved.status != 0) {
        result.error = "The key frame list cannot be saved for the check: " + trimmed(saved.err);
        return result;
    }
    result.saved = readFile(job.file->path());
    if (result.saved == job.lastSaved) {
        result.unchanged = true;
        return result;
    }
    std::vector<std::string> arguments = {"check", "--json", job.file->path()};
    arguments.insert(arguments.end(), job.arguments.begin(), job.arguments.end());
    ChildProcess::Outcome checked;
    try {
        checked = ChildProcess::run(job.vexpath, arguments).wait(job.deadline, *job.canceled);
    } catch (const std::exception& error) {
        result.error = error.what();
        return result;
    }
    if (const auto why = unfinished(checked, "vexpath")) {
        result.error = *why;
        return result;
    }
    // vexpath check exits 0 without warnings and 1 with them; otherwise it says why on standard
    // error: the add-on's message on a list it cannot fly, after the file's name, which means
    // nothing to the person.
    if (checked.status != 0 && checked.status != 1) {
        result.error = trimmed(checked.err);
        const std::string prefix = "vexpath: " + job.file->path() + ": ";
        if (result.error.compare(0, prefix.size(), prefix) == 0)
            result.error.erase(0, prefix.size());
        return result;
    }
    try {
        result.report = Json::parse(checked.out);
        result.report.erase("file");
    } catch (const Json::exception& error) {
        result.report = nullptr;
        result.error = std::string("The check's report cannot be read: ") + error.what();
    }
    return result;
}

void PathCheck::cancel() {
    if (!worker_.joinable())
        return;
    canceled_->store(true);
    worker_.join();
    checking_ = false;
}

void PathCheck::finish(uint64_t generation, const Result& result) {
    if (generation != generation_)
        return;
    checking_ = false;
    if (result.unchanged)
        return;
    lastSaved_ = result.saved;
    report_ = result.report;
    error_ = result.error;
}

void PathCheck::clear() {
    lastSaved_.clear();
    report_ = nullptr;
    error_.clear();
}

PathCheck::Json PathCheck::state() const {
    if (!checking_ && report_.is_null() && error_.empty())
        return nullptr;
    Json state = report_.is_object() ? report_
                                     : Json{{"keyFrames", 0},
                                            {"frames", 0},
                                            {"legs", Json::array()},
                                            {"warnings", Json::array()}};
    state["dialogId"] = dialogId_;
    state["checking"] = checking_;
    state["error"] = error_.empty() ? Json() : Json(error_);
    return state;
}

std::vector<CameraPath::KeyFrame> PathCheck::keyFrames(std::size_t frames) const {
    const bool matches = report_.is_object() && report_.value("frames", uint64_t(0)) == frames &&
                         report_.contains("legs") && report_.at("legs").is_array() &&
                         !report_.at("legs").empty();
    if (!matches)
        return frames > 0 ? std::vector<CameraPath::KeyFrame>{{0, ""}, {frames - 1, ""}}
                          : std::vector<CameraPath::KeyFrame>{};
    std::vector<CameraPath::KeyFrame> keys;
    const Json& legs = report_.at("legs");
    for (const Json& leg : legs)
        keys.push_back({leg.value("firstFrame", std::size_t(0)), leg.value("from", "")});
    const Json& last = legs.back();
    keys.push_back({last.value("firstFrame", std::size_t(0)) + last.value("frames", std::size_t(0)),
                    last.value("to", "")});
    return keys;
}

}  // namespace studio
}  // namespace vexhost
