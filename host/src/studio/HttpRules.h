// What the studio's server does with each HTTP request, decided from the request line and headers
// alone (no network, so tests and the fuzz target call it directly):
// - only GET and HEAD (405 otherwise);
// - the Host header must name the server: its listening address, localhost, 127.0.0.1 or [::1],
//   with its port (403 otherwise: a page on another name reaching this port is refused);
// - "/?token=T" with the right token sets the session cookie (HttpOnly, SameSite=Strict) and
//   sends the browser to "/"; a wrong token gets 403;
// - every other request needs the cookie (403 otherwise);
// - "/ws" with an upgrade: the Origin must be "http://" and the Host header (403 otherwise);
// - "/files/<root>/<path>": a file inside a root (FileRoots), 404 for anything else;
// - "/help/<name>": a help page; "/" and "/<path>": the page's own files.
#ifndef VEXHOST_STUDIO_HTTPRULES_H
#define VEXHOST_STUDIO_HTTPRULES_H

#include <cstdint>
#include <string>

#include "studio/WebServer.h"

namespace vexhost {
namespace studio {

class HttpRules {
public:
    enum class Action { Refuse, SetCookie, Text, File, Upgrade };
    struct Decision {
        Action action = Action::Refuse;
        int status = 403;            // Refuse
        std::string body;            // Refuse, Text
        std::string cookie;          // SetCookie: the Set-Cookie value
        std::string path;            // File
        std::string contentType;     // Text, File
        std::string attachmentName;  // File from the roots: its name
    };

    static constexpr const char* CookieName = "vexstudio";

    explicit HttpRules(const WebServer::Config& config) : config_(config) {}
    void setPort(uint16_t port) { port_ = port; }

    Decision decide(const std::string& method, const std::string& target, const std::string& host,
                    const std::string& cookie, const std::string& origin, bool upgrade) const;

    // The content type of a file name's extension (application/octet-stream when unknown).
    static std::string contentType(const std::string& name);
    // %XX decoded into out; false for a bad escape or an escaped NUL.
    static bool percentDecode(const std::string& text, std::string& out);

private:
    bool hostIsOurs(const std::string& host) const;
    bool hasSessionCookie(const std::string& cookieHeader) const;
    Decision serveFile(const std::string& directory, const std::string& relative) const;

    const WebServer::Config& config_;
    uint16_t port_ = 0;
};

}  // namespace studio
}  // namespace vexhost

#endif
