// The studio's user-interface thread (vexhost/Studio.h): pages, their state, their pictures, and
// the person's actions on the host. See docs/studio.md for what goes over the wire.
#ifndef VEXHOST_STUDIO_STUDIOLOOP_H
#define VEXHOST_STUDIO_STUDIOLOOP_H

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "studio/EventQueue.h"
#include "studio/FileRoots.h"
#include "studio/FlightRecorder.h"
#include "studio/JpegEncoder.h"
#include "studio/PathCheck.h"
#include "studio/ViewNavigator.h"
#include "studio/WebServer.h"
#include "vexhost/ProgressStatus.h"
#include "vexhost/SceneState.h"
#include "vexhost/Studio.h"
#include "vexhost/UserDialogs.h"

namespace vexhost {

class Studio::Loop final : public UserDialogs::Responder {
public:
    using Json = nlohmann::json;
    using Clock = std::chrono::steady_clock;

    // Pictures while a drag goes on: this share of the full size, at this JPEG quality; the full
    // picture follows DragSettle after the last movement.
    static constexpr double DragScale = 0.5;
    static constexpr int DragQuality = 50;
    static constexpr int FullQuality = 85;
    static constexpr std::chrono::milliseconds DragSettle{150};
    // The longest an on-screen run waits for a page to take its last picture before drawing on.
    static constexpr std::chrono::milliseconds ShownFrameWait{500};

    Loop(Host& host, const StudioOptions& options);
    ~Loop() override;

    // Takes the host's user dialogs and progress status (the constructor does; again after the
    // host was reset, as the fuzz target resets it between inputs).
    void attach();

    std::string url() const;
    uint16_t port() const { return server_->port(); }
    // Steps until the studio is told to end.
    void run();
    // One step: waits for the pages (no longer than the next timer: a drag settling, a path check
    // due), handles what came, then publishes the state and draws the pictures owed. Public for
    // the tests, which step until what they wait for shows in state().
    void step();
    // The state as last published.
    const std::map<std::string, Json>& state() const { return state_; }

    // A message from a page, handled now; public for the tests of hostile input and the fuzz
    // target, which feed messages without a network. Replies go to that page.
    void handleMessage(uint64_t client, const std::string& text);
    // Queues an event as the network does: it is handled when the loop next looks (a question
    // waiting for its answer, a progress check).
    void deliver(studio::NetworkEvent event) { events_.push(std::move(event)); }

    // UserDialogs::Responder: the person at the page answers.
    void acknowledge(UserDialogs::Kind kind, const std::string& text) override;
    bool answer(VexMessageBoxType_e type, const std::string& text) override;
    std::optional<std::string> chooseFile(const UserDialogs::FileDialog& request) override;

private:
    struct Page {
        int viewportWidth = 0, viewportHeight = 0;
        uint32_t framesSent = 0;
        bool inFlight = false;  // a picture sent and not yet acknowledged
        bool dirty = true;      // the view has changed since its last picture
        uint32_t lastSeq = 0;   // the last view message applied
    };
    struct Prompt {
        uint64_t id = 0;
        Json value;                 // as the page sees it
        std::optional<Json> reply;  // the answer message, once given
    };
    struct MenuItem {
        std::string id, menu, label;
        std::function<void()> action;
    };
    // What a page's message of one type does; `whileBusy`: allowed while a run of the add-on is
    // going on (the person's Stop, answers, pictures, files to choose).
    struct MessageRule {
        const char* type;
        bool whileBusy;
        void (Loop::*handle)(uint64_t client, const Json& message);
    };
    static const std::vector<MessageRule>& messageRules();

    // ---- events ----
    void handleEvent(const studio::NetworkEvent& event);
    // Waits for events no longer than the next timer; handles what came.
    void waitAndHandle(std::chrono::milliseconds longest);
    // Work the add-on does for the person: busy meanwhile, the idle queue after.
    void runForPerson(const std::function<void()>& work);
    // During a run (progress checks): takes what the pages said, shows the state and the frame.
    void serviceWhileBusy();
    void afterStep();

    // ---- the page's messages (messageRules) ----
    void onViewport(uint64_t client, const Json& message);
    void onDrag(uint64_t client, const Json& message);
    void onWheel(uint64_t client, const Json& message);
    void onFit(uint64_t client, const Json& message);
    void onMenu(uint64_t client, const Json& message);
    void onGui(uint64_t client, const Json& message);
    void onAnswer(uint64_t client, const Json& message);
    void onList(uint64_t client, const Json& message);
    void onStop(uint64_t client, const Json& message);
    void onRecord(uint64_t client, const Json& message);
    void onFrameSize(uint64_t client, const Json& message);
    void onAck(uint64_t client, const Json& message);
    void onScrub(uint64_t client, const Json& message);
    void onLive(uint64_t client, const Json& message);
    void onPath(uint64_t client, const Json& message);

    // ---- host menus ----
    std::vector<MenuItem> hostMenus();
    void openMacroFile();
    void saveRecordedMacro();
    void openDataFile();
    void setFrameSize(int width, int height);

    // ---- prompts ----
    Json waitForAnswer(Json prompt);
    std::optional<std::filesystem::path> askForFile(VexSelectFileOption_e mode,
                                                    const std::string& typeName,
                                                    const std::string& defaultName,
                                                    const std::string& filter);
    void tell(const std::string& text);

    // ---- state ----
    std::map<std::string, Json> collectState();
    void publish();
    void sendSnapshot(uint64_t client);
    void sendJson(uint64_t client, const Json& message);
    void sendError(uint64_t client, const std::string& message);
    void noteDownload(const std::filesystem::path& path);
    void noteHelpRequests(uint64_t client);
    void noteFinishedExports();

    // ---- the last run's frames and the path check ----
    void onProgress(const ProgressStatus::Event& event);
    // The state changes just published touch the add-on's main dialog.
    bool touchesMainDialog(const Json& changes) const;
    // True when it changed the state.
    bool startPathCheck();
    void showLive();

    // ---- pictures ----
    void markAllDirty();
    void deliverPictures();
    // What the pictures show now: the live scene or the frame scrubbed to, with the path if asked.
    SceneState sceneShown();

    Host& host_;
    StudioOptions options_;
    std::string token_;
    studio::FileRoots roots_;
    studio::EventQueue events_;
    studio::JpegEncoder jpeg_;
    studio::ViewNavigator navigator_;
    studio::FlightRecorder flight_;
    studio::PathCheck pathCheck_;  // after events_: its worker hands results to the queue
    std::unique_ptr<studio::WebServer> server_;  // last: the network stops before the rest goes

    std::map<uint64_t, Page> pages_;
    std::map<std::string, Json> state_;
    std::map<std::string, std::string> published_;  // key -> the value as last sent
    std::optional<Prompt> prompt_;
    uint64_t lastPromptId_ = 0;
    bool busy_ = false;
    bool quitting_ = false;
    bool dragging_ = false;
    bool lowQualitySent_ = false;
    Clock::time_point lastDrag_{};
    uint64_t redrawsSeen_ = 0;
    uint64_t exportFinishesSeen_ = 0;
    std::size_t helpPagesSeen_ = 0;
    uint64_t actingClient_ = 0;
    std::vector<std::filesystem::path> downloads_;
    std::vector<std::filesystem::path> writtenFiles_;  // file dialog answers in write mode
    std::optional<std::size_t> scrubbed_;              // the frame shown instead of the live view
    bool showPath_ = false;
};

}  // namespace vexhost

#endif
