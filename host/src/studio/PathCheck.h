// The camera path check beside the add-on's key frame list: `vexpath check --json` on the list as
// the add-on saves it, run again whenever the list may have changed (docs/studio.md, "The path
// check"), and the key frames of its report for the path drawn over the view.
//
// changed() says the list may have changed. Once Debounce has passed without another change, the
// next startIfDue() on an idle host (no run, no modal question: the caller's to say) starts a
// check while the add-on's main dialog is up with two key frames or more; with fewer there is
// nothing to fly, and the last result goes. A check:
// - saves the list with the add-on's own macro line, SaveSettingsFile, in a copy of this process
//   (ChildProcess::fork), so the add-on and the host of the studio stay exactly as they were: the
//   add-on takes the name of a file it saves as the one its File > Save writes to next, and a
//   recorder that is on would record the line;
// - on a worker thread: waits for the copy, and runs vexpath on the file unless it holds what the
//   last check read (a click in the list changes nothing of the flight), then removes the file;
// - hands the result to the user-interface thread through the event queue.
// A newer check cancels an older one still going (its processes killed, its result dropped); a
// check that takes longer than Timeout is stopped and shown as such.
#ifndef VEXHOST_STUDIO_PATHCHECK_H
#define VEXHOST_STUDIO_PATHCHECK_H

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include <nlohmann/json.hpp>

#include "studio/EventQueue.h"
#include "vexhost/CameraPath.h"

namespace vexhost {

class GuiModel;
struct GuiDialog;

namespace studio {

class PathCheck {
public:
    using Json = nlohmann::json;
    using Clock = std::chrono::steady_clock;

    static constexpr std::chrono::milliseconds Debounce{300};
    static constexpr std::chrono::seconds Timeout{30};
    // The add-on's name in macro lines, and the title of its main dialog, which holds the list.
    static constexpr const char* AddOnName = "Key Frame Animation";
    static constexpr const char* DialogTitle = "Key Frame Animation";

    // Runs one macro line on the host; throws with the message the line failed with.
    using RunMacroLine = std::function<void(const std::string& line)>;

    // `vexpath`: the program; empty: there are no checks. `sceneArguments`: its scene options
    // (--data, ...), asked for at each check. Results come back as events of `events`.
    PathCheck(std::string vexpath, std::function<std::vector<std::string>()> sceneArguments,
              EventQueue& events);
    // Cancels a check still going and waits for its worker.
    ~PathCheck();
    PathCheck(const PathCheck&) = delete;
    PathCheck& operator=(const PathCheck&) = delete;

    // The add-on's main dialog while it is up; nullptr otherwise.
    static const GuiDialog* mainDialog(const GuiModel& model);

    void changed(Clock::time_point now);
    // When the wait after the last change ends, while a check waits for it.
    std::optional<Clock::time_point> due() const;
    // See above. `runLine` runs in the copy of this process. True when what state() shows changed
    // (a check started, or a result went with its list).
    bool startIfDue(Clock::time_point now, const GuiModel& model, const RunMacroLine& runLine);

    // The state key `flight/check`: {"dialogId", "checking", "error", "keyFrames", "frames",
    // "legs", "warnings"} (the last four as vexpath reports them), or null when there is nothing
    // to show.
    Json state() const;
    // The key frames of a flight of `frames` frames: where the last check put them and their names
    // when its flight has that many frames, else the first and the last frame, unnamed.
    std::vector<CameraPath::KeyFrame> keyFrames(std::size_t frames) const;

private:
    struct Result;
    struct Job;

    static Result work(Job& job);
    void cancel();
    void finish(uint64_t generation, const Result& result);
    void clear();

    std::string vexpath_;
    std::function<std::vector<std::string>()> sceneArguments_;
    EventQueue& events_;
    std::optional<Clock::time_point> changedAt_;
    uint64_t generation_ = 0;
    std::shared_ptr<std::atomic<bool>> canceled_;
    std::thread worker_;

    int32_t dialogId_ = 0;
    bool checking_ = false;
    std::string lastSaved_;  // the file the last check read
    Json report_;            // vexpath's report; null before a check and after a failure
    std::string error_;
};

}  // namespace studio
}  // namespace vexhost

#endif
