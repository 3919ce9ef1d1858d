// The studio: the host as a local web server, for a person at a browser (docs/studio.md).
//
// start() listens and returns; run() then serves on the calling thread, which becomes the host's
// user-interface thread: every host call, every add-on callback and every picture happens there,
// while a network thread only carries messages (through a queue) and files. run() returns when
// the process gets SIGINT or SIGTERM.
//
// While it runs, the studio stands for the person at the screen: message boxes, questions and file
// dialogs that find no queued answer go to the pages and wait for the person's answer
// (UserDialogs::Responder), and every progress check lets the person's Stop through and streams
// the frame drawn. Nothing of the add-on changes: the page's actions reach it through GuiUser, as
// $!UI lines do.
#ifndef VEXHOST_STUDIO_H
#define VEXHOST_STUDIO_H

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vexhost {

class Host;

struct StudioOptions {
    std::string address = "127.0.0.1";
    uint16_t port = 0;               // 0: any free port
    std::vector<std::string> roots;  // folders the file chooser and downloads reach; empty: the
                                     // working directory
    std::string webDirectory;        // the page's own files
    std::string helpDirectory;       // the documentation the help pages show (docs/)
    // File > Open Macro File: runs a macro file as the batch program does; throws
    // std::runtime_error with the message the person should read.
    std::function<void(const std::string& path)> runMacroFile;
    // File > Open Data File (no such item when empty): replaces the data set with the file's;
    // throws std::runtime_error with the message.
    std::function<void(const std::string& path)> openDataFile;
    // The path check beside the key frame add-on's list: vexpath (empty: no check), and its scene
    // options (--data, ...), asked for at each check, so they are those of the scene shown then.
    std::string vexpathProgram;
    std::function<std::vector<std::string>()> sceneArguments;
};

class Studio {
public:
    // std::runtime_error naming the cause when it cannot listen, a root does not exist, or the
    // JPEG encoder cannot start.
    static std::unique_ptr<Studio> start(Host& host, const StudioOptions& options);
    ~Studio();
    Studio(const Studio&) = delete;
    Studio& operator=(const Studio&) = delete;

    // The address to open, with the session's token: "http://127.0.0.1:8080/?token=...".
    std::string url() const;
    uint16_t port() const;
    // Serves until SIGINT or SIGTERM; see above.
    void run();

    class Loop;

private:
    explicit Studio(std::unique_ptr<Loop> loop);
    std::unique_ptr<Loop> loop_;
};

}  // namespace vexhost

#endif
