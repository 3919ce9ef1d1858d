// The studio's network side: one port serving the page's files, downloads from the file roots, the
// help pages, and the WebSocket the page talks through. It runs on a thread of its own and never
// touches the host: what pages say arrives in the event queue, and the user-interface thread
// answers through send().
//
// Safe by default (docs/studio.md): every request must carry the session cookie, which a request
// with the printed token obtains; Host headers and WebSocket Origins must be the server's own;
// messages are capped. SIGINT and SIGTERM end the studio: they arrive as a Quit event.
//
// Implemented with Boost.Beast in one translation unit (BeastWebServer.cpp), which only this
// interface shows, because Beast is slow to compile.
#ifndef VEXHOST_STUDIO_WEBSERVER_H
#define VEXHOST_STUDIO_WEBSERVER_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vexhost {
namespace studio {

class EventQueue;
class FileRoots;

class WebServer {
public:
    struct Config {
        std::string address = "127.0.0.1";
        uint16_t port = 0;          // 0: any free port
        std::string token;          // what the printed address carries, and the cookie's value
        std::string webDirectory;   // the page's own files
        std::string helpDirectory;  // the help pages (HTML), served under /help/
        const FileRoots* roots = nullptr;  // downloads: /files/<root>/<path>
        std::size_t maxMessageBytes = 64 * 1024;
    };

    // Listens and starts the network thread. std::runtime_error naming the address when it cannot
    // listen there.
    static std::unique_ptr<WebServer> start(const Config& config, EventQueue& events);

    // Stops listening, closes every connection and joins the network thread.
    virtual ~WebServer() = default;

    // The port listened on (the one chosen, for port 0).
    virtual uint16_t port() const = 0;
    // Queue a message to one page; nothing when that page is gone. Any thread.
    virtual void sendText(uint64_t client, std::string text) = 0;
    virtual void sendBinary(uint64_t client, std::vector<uint8_t> data) = 0;
};

}  // namespace studio
}  // namespace vexhost

#endif
