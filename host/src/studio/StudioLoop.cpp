#include "studio/StudioLoop.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <random>
#include <sstream>
#include <stdexcept>

#include "studio/HttpRules.h"
#include "studio/ModelJson.h"
#include "vexhost/AddOnRegistry.h"
#include "vexhost/Drawing.h"
#include "vexhost/Exporter.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/GuiError.h"
#include "vexhost/GuiModel.h"
#include "vexhost/GuiUser.h"
#include "vexhost/Host.h"
#include "vexhost/IdleQueue.h"
#include "vexhost/MacroFileRunner.h"
#include "vexhost/MacroRecorder.h"
#include "vexhost/UserDialogs.h"

namespace vexhost {

namespace fs = std::filesystem;
using Json = nlohmann::json;
using namespace studio;

namespace {

// A message the page got wrong: its text is the error reply.
class ProtocolError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Frame sizes the View menu offers, in pixels.
struct FrameSizeRow {
    int width, height;
};
constexpr FrameSizeRow FrameSizes[] = {
    {640, 480}, {800, 600}, {1024, 768}, {1280, 720}, {1920, 1080}};

// Sizes a page may ask for, in pixels.
constexpr int MinPixels = 16;
constexpr int MaxPixels = 4096;

// Which help page and section a help anchor of an add-on dialog opens.
struct HelpRow {
    const char* anchorEnd;  // the end of the anchor the add-on passes
    const char* section;    // the section of docs/dialogs.md
};
constexpr HelpRow HelpPages[] = {
    {"#addons/working-with/keyframe", "Key Frame Animation"},
    {"#addons/working-with/keyframe/options", "Time Animation Options"},
    {"#_export_animation_options", "Export Options"},
};

std::string randomToken() {
    std::random_device device;
    std::string token;
    static const char* const Hex = "0123456789abcdef";
    for (int i = 0; i < 32; ++i)
        token += Hex[device() & 15];
    return token;
}

std::string dump(const Json& value) {
    // File names need not be UTF-8: a bad byte becomes U+FFFD rather than an exception.
    return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

const Json& field(const Json& message, const char* name) {
    const auto found = message.find(name);
    if (found == message.end())
        throw ProtocolError(std::string("the message has no \"") + name + "\"");
    return *found;
}

double numberField(const Json& message, const char* name) {
    const Json& value = field(message, name);
    if (!value.is_number() || !std::isfinite(value.get<double>()))
        throw ProtocolError(std::string("\"") + name + "\" must be a number");
    return value.get<double>();
}

int64_t integerField(const Json& message, const char* name, int64_t low, int64_t high) {
    const Json& value = field(message, name);
    if (!value.is_number_integer())
        throw ProtocolError(std::string("\"") + name + "\" must be a whole number");
    const int64_t number = value.is_number_unsigned() && value.get<uint64_t>() > INT64_MAX
                               ? INT64_MAX
                               : value.get<int64_t>();
    if (number < low || number > high)
        throw ProtocolError(std::string("\"") + name + "\" must be from " + std::to_string(low) +
                            " to " + std::to_string(high));
    return number;
}

bool boolField(const Json& message, const char* name) {
    const Json& value = field(message, name);
    if (!value.is_boolean())
        throw ProtocolError(std::string("\"") + name + "\" must be true or false");
    return value.get<bool>();
}

std::string stringField(const Json& message, const char* name) {
    const Json& value = field(message, name);
    if (!value.is_string())
        throw ProtocolError(std::string("\"") + name + "\" must be a string");
    return value.get<std::string>();
}

const char* fileModeWord(VexSelectFileOption_e mode) {
    switch (mode) {
        case VexSelectFile_ReadMultiFile:
            return "readMultiple";
        case VexSelectFile_WriteFile:
            return "write";
        case VexSelectFile_ReadSingleFile:
        case VexSelectFile_ReadSingleFileNoList:
            break;
    }
    return "read";
}

const char* messageTypeWord(UserDialogs::Kind kind) {
    switch (kind) {
        case UserDialogs::Kind::ErrorDialog:
        case UserDialogs::Kind::ErrorBox:
            return "error";
        case UserDialogs::Kind::WarningBox:
            return "warning";
        default:
            return "information";
    }
}

}  // namespace

// ---- starting and stopping ----

Studio::Loop::Loop(Host& host, const StudioOptions& options)
    : host_(host),
      options_(options),
      token_(randomToken()),
      roots_([&options] {
          std::vector<fs::path> folders(options.roots.begin(), options.roots.end());
          if (folders.empty())
              folders.push_back(fs::current_path());
          return folders;
      }()),
      navigator_(host),
      flight_(host),
      pathCheck_(options.vexpathProgram, options.sceneArguments, events_) {
    WebServer::Config config;
    config.address = options.address;
    config.port = options.port;
    config.token = token_;
    config.webDirectory = options.webDirectory;
    config.helpDirectory = options.helpDirectory;
    config.roots = &roots_;
    server_ = WebServer::start(config, events_);
    attach();
}

void Studio::Loop::attach() {
    host_.userDialogs().setResponder(this);
    host_.progress().setSink([this](const ProgressStatus::Event& event) { onProgress(event); });
    flight_.attach();
    redrawsSeen_ = host_.drawing().drawnFrames();
    exportFinishesSeen_ = host_.exporter().counts().finishes;
    helpPagesSeen_ = host_.userDialogs().helpPages().size();
}

Studio::Loop::~Loop() {
    host_.userDialogs().setResponder(nullptr);
    host_.progress().setSink(nullptr);
}

std::string Studio::Loop::url() const {
    const bool v6 = options_.address.find(':') != std::string::npos;
    return "http://" + (v6 ? "[" + options_.address + "]" : options_.address) + ":" +
           std::to_string(server_->port()) + "/?token=" + token_;
}

void Studio::Loop::run() {
    publish();
    while (!quitting_)
        step();
}

void Studio::Loop::step() {
    Clock::time_point until = Clock::now() + std::chrono::seconds(1);
    if (lowQualitySent_)
        until = std::min(until, lastDrag_ + DragSettle);
    // A check due that cannot start yet (a modal question is up) starts after what ends that.
    const std::optional<Clock::time_point> due = pathCheck_.due();
    if (due && *due > Clock::now())
        until = std::min(until, *due);
    waitAndHandle(
        std::max(std::chrono::milliseconds(1),
                 std::chrono::duration_cast<std::chrono::milliseconds>(until - Clock::now())));
    afterStep();
}

// ---- events ----

void Studio::Loop::waitAndHandle(std::chrono::milliseconds longest) {
    std::optional<NetworkEvent> event = events_.pop(longest);
    while (event) {
        handleEvent(*event);
        if (quitting_ || (prompt_ && prompt_->reply))
            return;
        event = events_.pop(std::chrono::milliseconds(0));
    }
    // A drag that went quiet gets its full picture.
    if (lowQualitySent_ && Clock::now() - lastDrag_ >= DragSettle) {
        dragging_ = false;
        lowQualitySent_ = false;
        markAllDirty();
    }
}

void Studio::Loop::handleEvent(const NetworkEvent& event) {
    switch (event.kind) {
        case NetworkEvent::Kind::Open:
            pages_[event.client] = Page();
            publish();
            sendSnapshot(event.client);
            break;
        case NetworkEvent::Kind::Close:
            pages_.erase(event.client);
            break;
        case NetworkEvent::Kind::Quit:
            quitting_ = true;
            // A run going on ends at its next progress check, as if the person pressed Stop.
            if (host_.progress().isOpen())
                host_.progress().pressStop();
            break;
        case NetworkEvent::Kind::Message:
            handleMessage(event.client, event.text);
            break;
        case NetworkEvent::Kind::Finished:
            event.finish();
            break;
    }
}

void Studio::Loop::handleMessage(uint64_t client, const std::string& text) {
    if (pages_.count(client) == 0)
        pages_[client] = Page();
    try {
        const Json message = Json::parse(text, nullptr, true);
        if (!message.is_object())
            throw ProtocolError("a message must be a JSON object");
        const std::string type = stringField(message, "type");
        const auto& rules = messageRules();
        const auto rule = std::find_if(rules.begin(), rules.end(),
                                       [&type](const MessageRule& r) { return type == r.type; });
        if (rule == rules.end())
            throw ProtocolError("unknown message type \"" + type + "\"");
        if (busy_ && !rule->whileBusy)
            throw ProtocolError("the host is busy: wait for the run to end, or press Stop");
        actingClient_ = client;
        (this->*(rule->handle))(client, message);
    } catch (const Json::parse_error&) {
        sendError(client, "The message is not valid JSON.");
    } catch (const ProtocolError& error) {
        sendError(client, std::string("The message was not done: ") + error.what() + ".");
    } catch (const GuiError& error) {
        sendError(client, error.what());
    } catch (const std::exception& error) {
        sendError(client, std::string("The action failed: ") + error.what());
    }
}

const std::vector<Studio::Loop::MessageRule>& Studio::Loop::messageRules() {
    static const std::vector<MessageRule> rules = {
        {"viewport", true, &Loop::onViewport},
        {"drag", false, &Loop::onDrag},
        {"wheel", false, &Loop::onWheel},
        {"fit", false, &Loop::onFit},
        {"menu", false, &Loop::onMenu},
        {"gui", false, &Loop::onGui},
        {"answer", true, &Loop::onAnswer},
        {"list", true, &Loop::onList},
        {"stop", true, &Loop::onStop},
        {"record", false, &Loop::onRecord},
        {"frameSize", false, &Loop::onFrameSize},
        {"ack", true, &Loop::onAck},
        {"scrub", false, &Loop::onScrub},
        {"live", false, &Loop::onLive},
        // Only a switch for the pictures: the host's work goes on as it was.
        {"path", true, &Loop::onPath},
    };
    return rules;
}

void Studio::Loop::runForPerson(const std::function<void()>& work) {
    // What the person does to the host is shown as it happens: no frame of the last run stays.
    showLive();
    // The add-on may change its list without the dialog showing it (Update takes the view shown);
    // no check starts before the work is done.
    pathCheck_.changed(Clock::now());
    busy_ = true;
    publish();
    try {
        work();
    } catch (...) {
        busy_ = false;
        throw;
    }
    busy_ = false;
    host_.idleQueue().runUntilEmpty();
    markAllDirty();
}

void Studio::Loop::afterStep() {
    if (!busy_)
        host_.idleQueue().runUntilEmpty();
    noteFinishedExports();
    noteHelpRequests(actingClient_);
    // Published first: what the step changed in the key frame dialog puts the check off.
    publish();
    if (startPathCheck())
        publish();
    deliverPictures();
}

void Studio::Loop::serviceWhileBusy() {
    for (std::optional<NetworkEvent> event = events_.pop(std::chrono::milliseconds(0)); event;
         event = events_.pop(std::chrono::milliseconds(0)))
        handleEvent(*event);
    // Ending the studio ends what runs, also a run started after the end was asked for.
    if (quitting_ && host_.progress().isOpen())
        host_.progress().pressStop();
    noteFinishedExports();
    publish();
    if (host_.drawing().drawnFrames() != redrawsSeen_) {
        redrawsSeen_ = host_.drawing().drawnFrames();
        markAllDirty();
        // A frame drawn on screen is shown, as a screen shows every frame: the run waits until
        // the pages have taken their last picture. Not while exporting, whose frames go to the
        // movie; and not for long, so a page that stopped answering holds nobody up.
        if (!host_.exporter().isRecording()) {
            const Clock::time_point giveUp = Clock::now() + ShownFrameWait;
            const auto waiting = [this] {
                return std::any_of(pages_.begin(), pages_.end(), [](const auto& entry) {
                    return entry.second.inFlight && entry.second.viewportWidth > 0;
                });
            };
            while (!quitting_ && waiting() && Clock::now() < giveUp)
                waitAndHandle(
                    std::chrono::duration_cast<std::chrono::milliseconds>(giveUp - Clock::now()));
        }
    }
    deliverPictures();
}

// ---- the page's messages ----

void Studio::Loop::onViewport(uint64_t client, const Json& message) {
    Page& page = pages_[client];
    page.viewportWidth = static_cast<int>(integerField(message, "width", MinPixels, MaxPixels));
    page.viewportHeight = static_cast<int>(integerField(message, "height", MinPixels, MaxPixels));
    page.dirty = true;
}

void Studio::Loop::onDrag(uint64_t client, const Json& message) {
    Page& page = pages_[client];
    const uint32_t seq = static_cast<uint32_t>(integerField(message, "seq", 0, UINT32_MAX));
    const std::string mode = stringField(message, "mode");
    const double dx = numberField(message, "dx"), dy = numberField(message, "dy");
    const bool active = boolField(message, "active");
    if (std::abs(dx) > 1e5 || std::abs(dy) > 1e5)
        throw ProtocolError("\"dx\" and \"dy\" must be under 100000 pixels");
    showLive();
    if (mode == "rotate")
        navigator_.rotate(dx, dy);
    else if (mode == "pan")
        navigator_.pan(dx, dy, std::max(1, page.viewportWidth));
    else if (mode == "zoom")
        navigator_.zoom(dy);
    else
        throw ProtocolError("\"mode\" must be rotate, pan or zoom");
    page.lastSeq = seq;
    dragging_ = active;
    lastDrag_ = Clock::now();
    if (!active) {
        navigator_.commit();
        lowQualitySent_ = false;
    }
    markAllDirty();
}

void Studio::Loop::onWheel(uint64_t client, const Json& message) {
    const uint32_t seq = static_cast<uint32_t>(integerField(message, "seq", 0, UINT32_MAX));
    const double steps = numberField(message, "delta");
    if (std::abs(steps) > 100)
        throw ProtocolError("\"delta\" must be under 100 steps");
    showLive();
    if (navigator_.wheel(steps))
        navigator_.commit();
    pages_[client].lastSeq = seq;
    markAllDirty();
}

void Studio::Loop::onFit(uint64_t, const Json&) {
    showLive();
    if (navigator_.fit())
        navigator_.commit();
    markAllDirty();
}

void Studio::Loop::onMenu(uint64_t, const Json& message) {
    const std::string id = stringField(message, "id");
    for (const MenuItem& item : hostMenus()) {
        if (item.id == id) {
            runForPerson(item.action);
            return;
        }
    }
    throw ProtocolError("there is no menu item \"" + id + "\"");
}

void Studio::Loop::onGui(uint64_t, const Json& message) {
    const std::string action = stringField(message, "action");
    const int32_t id = static_cast<int32_t>(integerField(message, "id", 1, INT32_MAX));
    GuiUser user(host_);
    std::function<void()> work;
    if (action == "press") {
        work = [&] { user.press(id); };
    } else if (action == "select") {
        const Json& lines = field(message, "lines");
        if (!lines.is_array() || lines.size() > 100000)
            throw ProtocolError("\"lines\" must be a list of line numbers");
        std::vector<int32_t> chosen;
        for (const Json& line : lines) {
            if (!line.is_number_integer() || line.get<int64_t>() < 1 ||
                line.get<int64_t>() > INT32_MAX)
                throw ProtocolError("\"lines\" must hold line numbers from 1");
            chosen.push_back(static_cast<int32_t>(line.get<int64_t>()));
        }
        work = [&user, id, chosen] { user.selectLines(id, chosen); };
    } else if (action == "text") {
        const std::string text = stringField(message, "text");
        work = [&user, id, text] { user.enterText(id, text); };
    } else if (action == "spin") {
        const bool up = boolField(message, "up");
        work = [&user, id, up] { user.spin(id, up); };
    } else if (action == "option") {
        const auto entry = static_cast<int32_t>(integerField(message, "entry", 1, INT32_MAX));
        work = [&user, id, entry] { user.chooseOption(id, entry); };
    } else if (action == "toggle") {
        const bool on = boolField(message, "on");
        work = [&user, id, on] { user.setToggle(id, on); };
    } else if (action == "radio") {
        const auto button = static_cast<int32_t>(integerField(message, "button", 1, INT32_MAX));
        work = [&user, id, button] { user.chooseRadioButton(id, button); };
    } else if (action == "menuEntry") {
        std::optional<bool> on;
        if (message.contains("on"))
            on = boolField(message, "on");
        work = [&user, id, on] { user.chooseMenuEntry(id, on); };
    } else if (action == "dialogButton") {
        static const std::pair<const char*, GuiUser::DialogButton> Buttons[] = {
            {"ok", GuiUser::DialogButton::Ok},
            {"apply", GuiUser::DialogButton::Apply},
            {"cancel", GuiUser::DialogButton::Cancel},
            {"close", GuiUser::DialogButton::Close},
            {"help", GuiUser::DialogButton::Help}};
        const std::string name = stringField(message, "button");
        const auto found = std::find_if(std::begin(Buttons), std::end(Buttons),
                                        [&name](const auto& row) { return name == row.first; });
        if (found == std::end(Buttons))
            throw ProtocolError("\"button\" must be ok, apply, cancel, close or help");
        const GuiUser::DialogButton button = found->second;
        work = [&user, id, button] { user.pressDialogButton(id, button); };
    } else {
        throw ProtocolError("unknown gui action \"" + action + "\"");
    }
    runForPerson(work);
}

void Studio::Loop::onAnswer(uint64_t, const Json& message) {
    const uint64_t id = static_cast<uint64_t>(integerField(message, "id", 0, INT64_MAX));
    if (!prompt_ || prompt_->id != id || prompt_->reply)
        throw ProtocolError("there is no question " + std::to_string(id) + " to answer");
    const std::string kind = prompt_->value.at("kind").get<std::string>();
    if (kind == "question") {
        boolField(message, "yes");
    } else if (kind == "file") {
        const Json& file = field(message, "file");
        if (!file.is_null()) {
            if (!file.is_object())
                throw ProtocolError("\"file\" must be {\"root\", \"path\"} or null");
            const auto root = static_cast<std::size_t>(
                integerField(file, "root", 0, static_cast<int64_t>(roots_.size()) - 1));
            const std::string path = stringField(file, "path");
            const std::optional<fs::path> resolved = roots_.resolve(root, path);
            std::error_code error;
            if (path.empty() || !resolved || fs::is_directory(*resolved, error))
                throw ProtocolError("\"" + path + "\" is not a file name inside " +
                                    roots_.name(root));
        }
    }
    prompt_->reply = message;
}

void Studio::Loop::onList(uint64_t client, const Json& message) {
    const auto root = static_cast<std::size_t>(
        integerField(message, "root", 0, static_cast<int64_t>(roots_.size()) - 1));
    const std::string path = stringField(message, "path");
    Json entries = Json::array();
    try {
        for (const FileRoots::Entry& entry : roots_.list(root, path))
            entries.push_back(
                {{"name", entry.name}, {"dir", entry.directory}, {"size", entry.size}});
    } catch (const std::runtime_error& error) {
        throw ProtocolError(error.what());
    }
    sendJson(client, {{"type", "listing"}, {"root", root}, {"path", path}, {"entries", entries}});
}

void Studio::Loop::onStop(uint64_t, const Json&) {
    if (host_.progress().isOpen())
        host_.progress().pressStop();
}

void Studio::Loop::onRecord(uint64_t, const Json& message) {
    const bool on = boolField(message, "on");
    if (on && !host_.macro().isRecording()) {
        host_.macro().setRecording(true);
        // The replay starts from the view the person sees now.
        navigator_.recordView();
    } else if (!on) {
        host_.macro().setRecording(false);
    }
}

void Studio::Loop::onFrameSize(uint64_t, const Json& message) {
    setFrameSize(static_cast<int>(integerField(message, "width", MinPixels, MaxPixels)),
                 static_cast<int>(integerField(message, "height", MinPixels, MaxPixels)));
}

void Studio::Loop::onAck(uint64_t client, const Json& message) {
    Page& page = pages_[client];
    const auto frame = static_cast<uint32_t>(integerField(message, "frame", 0, UINT32_MAX));
    if (frame == page.framesSent)
        page.inFlight = false;
}

void Studio::Loop::onScrub(uint64_t, const Json& message) {
    if (flight_.frameCount() == 0)
        throw ProtocolError("no animation has run: there are no frames to show");
    scrubbed_ = static_cast<std::size_t>(
        integerField(message, "frame", 0, static_cast<int64_t>(flight_.frameCount()) - 1));
    // Pictures as while dragging, the full one once the slider rests.
    dragging_ = true;
    lastDrag_ = Clock::now();
    markAllDirty();
}

void Studio::Loop::onLive(uint64_t, const Json&) {
    showLive();
}

void Studio::Loop::onPath(uint64_t, const Json& message) {
    showPath_ = boolField(message, "show");
    markAllDirty();
}

// ---- host menus ----

std::vector<Studio::Loop::MenuItem> Studio::Loop::hostMenus() {
    std::vector<MenuItem> items = {
        {"file.openMacro", "File", "&Open Macro File...", [this] { openMacroFile(); }},
        {"file.saveMacro", "File", "&Save Recorded Macro...", [this] { saveRecordedMacro(); }},
    };
    if (options_.openDataFile)
        items.push_back(
            {"file.openData", "File", "Open &Data File...", [this] { openDataFile(); }});
    items.push_back({"view.fit", "View", "&Fit", [this] {
                         if (navigator_.fit())
                             navigator_.commit();
                     }});
    for (const FrameSizeRow& size : FrameSizes) {
        const std::string name = std::to_string(size.width) + " x " + std::to_string(size.height);
        items.push_back(
            {"view.size." + std::to_string(size.width) + "x" + std::to_string(size.height), "View",
             "Frame Size " + name, [this, size] { setFrameSize(size.width, size.height); }});
    }
    // The add-ons' items, under the menus they named, as they registered them.
    const auto& options = host_.addOns().menuOptions();
    for (std::size_t i = 0; i < options.size(); ++i) {
        const AddOnRegistry::MenuOption& option = options[i];
        items.push_back({"addon." + std::to_string(i), option.menuPath, option.label,
                         [this, path = option.menuPath, label = option.label] {
                             GuiUser(host_).chooseHostMenuItem(path, label);
                         }});
    }
    return items;
}

void Studio::Loop::openMacroFile() {
    const std::optional<fs::path> file =
        askForFile(VexSelectFile_ReadSingleFile, "Macro File", "", "*.mcr");
    if (!file || !options_.runMacroFile)
        return;
    try {
        options_.runMacroFile(file->string());
    } catch (const std::exception& error) {
        tell(error.what());
    }
}

void Studio::Loop::saveRecordedMacro() {
    const std::optional<fs::path> file =
        askForFile(VexSelectFile_WriteFile, "Macro File", "recorded.mcr", "*.mcr");
    if (!file)
        return;
    // A file that is there is replaced only when the person says so, as the add-on's own Save As
    // asks.
    std::error_code error;
    const std::string question = "\"" + file->filename().string() + "\" exists. Replace it?";
    if (fs::exists(*file, error) &&
        !host_.userDialogs().showMessageBox(question.c_str(), VexMessageBox_YesNo))
        return;
    std::ofstream out(*file, std::ios::binary | std::ios::trunc);
    for (const std::string& line : host_.macro().lines())
        out << line << '\n';
    out.close();
    if (!out) {
        tell("Cannot write the recorded macro to \"" + file->string() + "\".");
        return;
    }
    noteDownload(*file);
}

void Studio::Loop::openDataFile() {
    const std::optional<fs::path> file =
        askForFile(VexSelectFile_ReadSingleFile, "Data File", "", "*.*");
    if (!file)
        return;
    try {
        options_.openDataFile(file->string());
    } catch (const std::exception& error) {
        tell(error.what());
    }
}

void Studio::Loop::setFrameSize(int width, int height) {
    Frame* frame = host_.frames().active();
    if (frame == nullptr)
        throw ProtocolError("there is no frame");
    frame->setPosAndSize(frame->x(), frame->y(), width / FrameStack::PixelsPerInch,
                         height / FrameStack::PixelsPerInch);
    markAllDirty();
}

// ---- prompts ----

Json Studio::Loop::waitForAnswer(Json prompt) {
    // A question asked while another waits (from work the first one's answer started) is shown
    // instead of it; the first comes back when this one is answered.
    std::optional<Prompt> outer = std::move(prompt_);
    prompt_ = Prompt{++lastPromptId_, std::move(prompt), std::nullopt};
    prompt_->value["id"] = prompt_->id;
    const bool wasBusy = busy_;
    // The person answers a question of the host's: the rest of the page waits meanwhile.
    busy_ = true;
    publish();
    while (!quitting_ && !prompt_->reply) {
        waitAndHandle(std::chrono::milliseconds(200));
        publish();
        deliverPictures();
    }
    Json reply = prompt_->reply ? *prompt_->reply : Json();
    prompt_ = std::move(outer);
    busy_ = wasBusy;
    publish();
    return reply;
}

void Studio::Loop::acknowledge(UserDialogs::Kind kind, const std::string& text) {
    waitForAnswer({{"kind", "message"}, {"type", messageTypeWord(kind)}, {"text", text}});
}

bool Studio::Loop::answer(VexMessageBoxType_e type, const std::string& text) {
    const Json reply = waitForAnswer({{"kind", "question"},
                                      {"type", type == VexMessageBox_YesNo ? "yesno" : "okcancel"},
                                      {"text", text}});
    // Quitting answers No: nothing is done that the person did not agree to.
    return reply.is_object() && reply.value("yes", false);
}

std::optional<std::string> Studio::Loop::chooseFile(const UserDialogs::FileDialog& request) {
    const std::optional<fs::path> file =
        askForFile(request.mode, request.fileTypeName, request.defaultFileName, request.filter);
    if (!file)
        return std::nullopt;
    return file->string();
}

std::optional<fs::path> Studio::Loop::askForFile(VexSelectFileOption_e mode,
                                                 const std::string& typeName,
                                                 const std::string& defaultName,
                                                 const std::string& filter) {
    const Json reply = waitForAnswer({{"kind", "file"},
                                      {"mode", fileModeWord(mode)},
                                      {"fileTypeName", typeName},
                                      {"defaultFileName", defaultName},
                                      {"filter", filter}});
    if (!reply.is_object() || !reply.contains("file") || reply["file"].is_null())
        return std::nullopt;
    const Json& file = reply["file"];
    const std::optional<fs::path> path =
        roots_.resolve(file["root"].get<std::size_t>(), file["path"].get<std::string>());
    if (path && mode == VexSelectFile_WriteFile)
        writtenFiles_.push_back(*path);
    return path;
}

void Studio::Loop::tell(const std::string& text) {
    // As the host's own error dialog: recorded, and shown to the person through the responder.
    host_.userDialogs().showError(text.c_str());
}

// ---- state ----

std::map<std::string, Json> Studio::Loop::collectState() {
    std::map<std::string, Json> state;
    const GuiModel& model = host_.guiModel();
    for (const GuiDialog* dialog : model.dialogs()) {
        state["dialog/" + std::to_string(dialog->id)] = ModelJson::dialog(*dialog);
        for (int32_t id : dialog->controls)
            if (const GuiControl* control = model.control(id))
                state["control/" + std::to_string(id)] = ModelJson::control(*control);
    }
    state["modal"] = model.modalDialogsUp();

    Json menus = Json::array();
    for (const MenuItem& item : hostMenus()) {
        auto menu = std::find_if(menus.begin(), menus.end(),
                                 [&item](const Json& m) { return m["name"] == item.menu; });
        if (menu == menus.end()) {
            menus.push_back({{"name", item.menu}, {"items", Json::array()}});
            menu = menus.end() - 1;
        }
        (*menu)["items"].push_back({{"id", item.id}, {"label", item.label}});
    }
    state["menus"] = menus;

    const ProgressStatus& progress = host_.progress();
    if (progress.isOpen()) {
        const auto& percents = progress.checkedPercents();
        state["progress"] = {{"text", progress.text()},
                             {"percent", percents.empty() ? 0 : percents.back()},
                             {"stop", progress.showsStopButton()},
                             {"bar", progress.showsProgressBar()}};
    }
    if (prompt_)
        state["prompt"] = prompt_->value;
    state["busy"] = busy_;
    if (const Frame* frame = host_.frames().active()) {
        const View3D& view = frame->view();
        state["view"] = {{"psi", view.psi()},
                         {"theta", view.theta()},
                         {"alpha", view.alpha()},
                         {"width", view.width()},
                         {"position", view.position()}};
        const std::pair<int, int> size = Drawing::pixelSize(*frame);
        state["frameSize"] = {{"width", size.first}, {"height", size.second}};
    }
    state["recording"] = host_.macro().isRecording();
    state["flight"] = {{"frames", flight_.frameCount()},
                       {"running", flight_.running()},
                       {"frame", scrubbed_ ? Json(*scrubbed_) : Json()},
                       {"path", showPath_}};
    const Json check = pathCheck_.state();
    if (!check.is_null())
        state["flight/check"] = check;

    Json downloads = Json::array();
    for (const fs::path& path : downloads_) {
        std::error_code error;
        const auto size = fs::file_size(path, error);
        const auto place = roots_.locate(path);
        if (error || !place)
            continue;
        // What it is, as the server's content types say: a movie the browser can play, a macro, or
        // another file.
        const std::string name = path.filename().string();
        const char* kind = path.extension() == ".mcr"                                  ? "macro"
                           : HttpRules::contentType(name).compare(0, 6, "video/") == 0 ? "movie"
                                                                                       : "file";
        downloads.push_back(
            {{"name", name},
             {"size", size},
             {"url", "/files/" + std::to_string(place->first) + "/" + place->second},
             {"kind", kind}});
    }
    state["downloads"] = downloads;
    Json roots = Json::array();
    for (std::size_t i = 0; i < roots_.size(); ++i)
        roots.push_back({{"index", i}, {"name", roots_.name(i)}});
    state["roots"] = roots;
    return state;
}

void Studio::Loop::publish() {
    std::map<std::string, Json> state = collectState();
    Json changes = Json::object();
    for (auto& [key, value] : state) {
        std::string text = dump(value);
        auto found = published_.find(key);
        if (found == published_.end() || found->second != text) {
            changes[key] = value;
            published_[key] = std::move(text);
        }
    }
    for (auto it = published_.begin(); it != published_.end();) {
        if (state.count(it->first) == 0) {
            changes[it->first] = nullptr;
            it = published_.erase(it);
        } else {
            ++it;
        }
    }
    state_ = std::move(state);
    if (changes.empty())
        return;
    if (touchesMainDialog(changes))
        pathCheck_.changed(Clock::now());
    const std::string message = dump({{"type", "changes"}, {"state", changes}});
    for (const auto& entry : pages_)
        server_->sendText(entry.first, message);
}

void Studio::Loop::sendSnapshot(uint64_t client) {
    Json state = Json::object();
    for (const auto& [key, value] : state_)
        state[key] = value;
    sendJson(client, {{"type", "snapshot"}, {"state", state}});
}

void Studio::Loop::sendJson(uint64_t client, const Json& message) {
    server_->sendText(client, dump(message));
}

void Studio::Loop::sendError(uint64_t client, const std::string& message) {
    sendJson(client, {{"type", "error"}, {"message", message}});
}

void Studio::Loop::noteDownload(const fs::path& path) {
    if (std::find(downloads_.begin(), downloads_.end(), path) == downloads_.end())
        downloads_.push_back(path);
}

void Studio::Loop::noteFinishedExports() {
    for (const fs::path& path : writtenFiles_) {
        std::error_code error;
        if (fs::is_regular_file(path, error))
            noteDownload(path);
    }
    writtenFiles_.erase(std::remove_if(writtenFiles_.begin(), writtenFiles_.end(),
                                       [this](const fs::path& path) {
                                           return std::find(downloads_.begin(), downloads_.end(),
                                                            path) != downloads_.end();
                                       }),
                        writtenFiles_.end());
    const uint64_t finishes = host_.exporter().counts().finishes;
    if (finishes == exportFinishesSeen_)
        return;
    exportFinishesSeen_ = finishes;
    std::error_code error;
    const fs::path movie = fs::absolute(host_.exporter().settings().fileName, error);
    if (!error && fs::is_regular_file(movie, error))
        noteDownload(fs::weakly_canonical(movie, error));
}

void Studio::Loop::noteHelpRequests(uint64_t client) {
    const std::vector<std::string>& pages = host_.userDialogs().helpPages();
    for (; helpPagesSeen_ < pages.size(); ++helpPagesSeen_) {
        const std::string& anchor = pages[helpPagesSeen_];
        std::string section = "The add-on's dialogs";
        for (const HelpRow& row : HelpPages) {
            const std::string end = row.anchorEnd;
            if (anchor.size() >= end.size() &&
                anchor.compare(anchor.size() - end.size(), end.size(), end) == 0)
                section = row.section;
        }
        std::string query;
        for (char c : section)
            query += c == ' ' ? std::string("%20") : std::string(1, c);
        if (pages_.count(client) != 0)
            sendJson(client, {{"type", "help"},
                              {"title", section},
                              {"url", "/help.html?doc=dialogs.md&section=" + query}});
    }
}

// ---- the last run's frames and the path check ----

void Studio::Loop::onProgress(const ProgressStatus::Event& event) {
    if (flight_.observe(event.kind))
        scrubbed_.reset();
    serviceWhileBusy();
}

bool Studio::Loop::touchesMainDialog(const Json& changes) const {
    const GuiDialog* dialog = PathCheck::mainDialog(host_.guiModel());
    if (dialog == nullptr)
        return false;
    const std::string dialogKey = "dialog/" + std::to_string(dialog->id);
    for (auto it = changes.begin(); it != changes.end(); ++it) {
        if (it.key() == dialogKey)
            return true;
        const auto found = state_.find(it.key());
        if (it.key().compare(0, 8, "control/") == 0 && found != state_.end() &&
            found->second.value("dialogId", 0) == dialog->id)
            return true;
    }
    return false;
}

bool Studio::Loop::startPathCheck() {
    // Never inside the person's work: a run draws its frames, a question waits for its answer.
    if (busy_ || prompt_ || host_.guiModel().isModalDialogUp())
        return false;
    return pathCheck_.startIfDue(Clock::now(), host_.guiModel(), [this](const std::string& line) {
        // In the copy of the process that saves the list: no page answers there, and no progress
        // goes to one.
        host_.userDialogs().setResponder(nullptr);
        host_.progress().setSink(nullptr);
        MacroFileRunner(host_).runLine(line);
    });
}

void Studio::Loop::showLive() {
    if (scrubbed_) {
        scrubbed_.reset();
        markAllDirty();
    }
}

// ---- pictures ----

SceneState Studio::Loop::sceneShown() {
    SceneState scene = scrubbed_ ? flight_.frame(*scrubbed_) : host_.scene(true);
    // The path of a run that is over; scrubbed, the line ends where the camera stands.
    if (showPath_ && !flight_.running() && flight_.frameCount() > 1)
        scene.cameraPath = flight_.path(scrubbed_ ? *scrubbed_ : flight_.frameCount() - 1,
                                        pathCheck_.keyFrames(flight_.frameCount()));
    return scene;
}

void Studio::Loop::markAllDirty() {
    for (auto& entry : pages_)
        entry.second.dirty = true;
}

void Studio::Loop::deliverPictures() {
    const Frame* frame = host_.frames().active();
    if (frame == nullptr)
        return;
    const std::pair<int, int> frameSize = Drawing::pixelSize(*frame);
    for (auto& [client, page] : pages_) {
        if (page.inFlight || !page.dirty || page.viewportWidth <= 0)
            continue;
        // The frame's shape, as large as fits the page's panel (smaller while dragging).
        double scale = std::min(static_cast<double>(page.viewportWidth) / frameSize.first,
                                static_cast<double>(page.viewportHeight) / frameSize.second);
        const bool low = dragging_;
        if (low)
            scale *= DragScale;
        const int width =
            std::max(MinPixels, static_cast<int>(std::lround(frameSize.first * scale)));
        const int height =
            std::max(MinPixels, static_cast<int>(std::lround(frameSize.second * scale)));
        std::vector<uint8_t> message(12, 0);
        try {
            const Image picture = host_.drawing().picture(sceneShown(), width, height, 1);
            jpeg_.encode(picture, low ? DragQuality : FullQuality, message);
        } catch (const std::exception& error) {
            page.dirty = false;
            sendError(client, std::string("The view cannot be drawn: ") + error.what());
            continue;
        }
        ++page.framesSent;
        const uint32_t header[2] = {page.framesSent, page.lastSeq};
        for (int i = 0; i < 8; ++i)
            message[i] = static_cast<uint8_t>(header[i / 4] >> (8 * (i % 4)));
        message[8] = static_cast<uint8_t>(width & 0xff);
        message[9] = static_cast<uint8_t>(width >> 8);
        message[10] = static_cast<uint8_t>(height & 0xff);
        message[11] = static_cast<uint8_t>(height >> 8);
        server_->sendBinary(client, std::move(message));
        page.inFlight = true;
        page.dirty = false;
        if (low)
            lowQualitySent_ = true;
    }
}

// ---- Studio ----

Studio::Studio(std::unique_ptr<Loop> loop) : loop_(std::move(loop)) {}
Studio::~Studio() = default;

std::unique_ptr<Studio> Studio::start(Host& host, const StudioOptions& options) {
    return std::unique_ptr<Studio>(new Studio(std::make_unique<Loop>(host, options)));
}

std::string Studio::url() const {
    return loop_->url();
}
uint16_t Studio::port() const {
    return loop_->port();
}
void Studio::run() {
    loop_->run();
}

}  // namespace vexhost
