// fuzz_studio_message: what the studio's network hands on, from any page or any client. The first
// byte chooses the road:
// - even: an HTTP request (lines: method, target, Host, Cookie, Origin; the rest of the byte says
//   whether it asks for an upgrade) decided by the server's rules;
// - odd: a page's WebSocket message, handled by the studio's user-interface loop over a host set up
//   as for the macro fuzz targets (FuzzHost: the add-on loaded, a short flight in its dialog).
//
// Rules: the rules always decide (a refusal with a status, or something to serve inside the web
// folder or the roots); a message never throws out of the loop, leaves no host error, and leaves
// the host as FuzzHost::checkHost requires. The studio is told to end before the first message,
// so a question or file dialog is answered No or Cancel at once instead of waiting for a person.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "FuzzHost.h"
#include "FuzzSupport.h"
#include "studio/FileRoots.h"
#include "studio/HttpRules.h"
#include "studio/StudioLoop.h"
#include "vexhost/Host.h"
#include "vexhost/HostErrors.h"
#include "vexhost/IdleQueue.h"

namespace {

std::vector<std::string> fieldsOf(const std::string& text, std::size_t count) {
    std::vector<std::string> fields(1);
    for (char c : text) {
        if (c == '\n' && fields.size() < count)
            fields.emplace_back();
        else
            fields.back() += c;
    }
    fields.resize(count);
    return fields;
}

void decideRequest(uint8_t selector, const std::string& text) {
    static const vexhost::studio::FileRoots roots({std::filesystem::current_path()});
    static vexhost::studio::WebServer::Config config = [] {
        vexhost::studio::WebServer::Config c;
        c.token = "0123456789abcdef0123456789abcdef";
        c.webDirectory = std::filesystem::current_path().string();
        c.helpDirectory = c.webDirectory;
        c.roots = &roots;
        return c;
    }();
    static vexhost::studio::HttpRules rules = [] {
        vexhost::studio::HttpRules r(config);
        r.setPort(8080);
        return r;
    }();
    const std::vector<std::string> f = fieldsOf(text, 5);
    const vexhost::studio::HttpRules::Decision decision =
        rules.decide(f[0], f[1], f[2], f[3], f[4], (selector & 2) != 0);
    using Action = vexhost::studio::HttpRules::Action;
    if (decision.action == Action::Refuse)
        vexfuzz::expect(decision.status >= 400 && decision.status < 500 && !decision.body.empty(),
                        "a refusal without a 4xx status and a reason");
    if (decision.action == Action::File) {
        const std::string inside = std::filesystem::current_path().string() + "/";
        vexfuzz::expect(decision.path.compare(0, inside.size(), inside) == 0,
                        "a file outside the web folder and the roots was served: " + decision.path);
    }
}

void handleMessage(const std::string& text) {
    static vexfuzz::FuzzHost fuzzHost;
    vexhost::Host& host = vexhost::Host::instance();
    // One studio for every input (it listens and has a network thread); it takes the host again
    // after each reset.
    static vexhost::Studio::Loop& loop = [&host]() -> vexhost::Studio::Loop& {
        vexhost::StudioOptions options;
        options.webDirectory = std::filesystem::current_path().string();
        static vexhost::Studio::Loop studio(host, options);
        studio.deliver({vexhost::studio::NetworkEvent::Kind::Quit, 0, {}});
        return studio;
    }();
    fuzzHost.reset();
    loop.attach();
    loop.handleMessage(1, text);
    host.idleQueue().runUntilEmpty();
    vexfuzz::expect(
        host.errors().empty(),
        "host errors: " + (host.errors().empty() ? std::string() : host.errors().texts().front()));
    fuzzHost.checkHost();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    vexfuzz::enterScratchDirectory(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
    if ((data[0] & 1) == 0)
        decideRequest(data[0], text);
    else
        handleMessage(text);
    return 0;
}
