#include "studio/HttpRules.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <optional>
#include <utility>

#include "studio/FileRoots.h"

namespace vexhost {
namespace studio {

namespace fs = std::filesystem;

namespace {

const char* const NeedToken = "Open the address that vexplot printed, with its token.\n";

HttpRules::Decision refuse(int status, std::string body) {
    HttpRules::Decision decision;
    decision.action = HttpRules::Action::Refuse;
    decision.status = status;
    decision.body = std::move(body);
    return decision;
}

// Compares without stopping at the first difference, so the time taken tells nothing of the token.
bool sameSecret(const std::string& a, const std::string& b) {
    if (a.size() != b.size())
        return false;
    unsigned char difference = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        difference |= static_cast<unsigned char>(a[i] ^ b[i]);
    return difference == 0;
}

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

// The value of `name` in a query string ("a=1&token=x"), undecoded.
std::optional<std::string> queryValue(const std::string& query, const std::string& name) {
    std::size_t start = 0;
    while (start <= query.size()) {
        const std::size_t end = std::min(query.find('&', start), query.size());
        const std::string pair = query.substr(start, end - start);
        const std::size_t equals = pair.find('=');
        if (equals != std::string::npos && pair.substr(0, equals) == name)
            return pair.substr(equals + 1);
        start = end + 1;
    }
    return std::nullopt;
}

// A path of the page's own files or help pages: plain names, no hidden files, no "..".
bool isPlainRelativePath(const std::string& path) {
    if (path.empty() || path.front() == '/')
        return false;
    std::size_t start = 0;
    while (start <= path.size()) {
        const std::size_t end = std::min(path.find('/', start), path.size());
        const std::string part = path.substr(start, end - start);
        if (part.empty() || part.front() == '.')
            return false;
        for (char c : part)
            if (!std::isalnum(static_cast<unsigned char>(c)) && c != '.' && c != '_' && c != '-')
                return false;
        start = end + 1;
    }
    return true;
}

struct TypeRow {
    const char* extension;
    const char* type;
};
// Every type the studio serves: the page's files, help pages and what the host writes.
constexpr std::array<TypeRow, 17> ContentTypes = {{
    {".html", "text/html; charset=utf-8"},
    {".js", "text/javascript; charset=utf-8"},
    {".mjs", "text/javascript; charset=utf-8"},
    {".css", "text/css; charset=utf-8"},
    {".svg", "image/svg+xml"},
    {".png", "image/png"},
    {".jpg", "image/jpeg"},
    {".gif", "image/gif"},
    {".json", "application/json"},
    {".md", "text/markdown; charset=utf-8"},
    {".txt", "text/plain; charset=utf-8"},
    {".mcr", "text/plain; charset=utf-8"},
    {".keyframe", "text/plain; charset=utf-8"},
    {".mp4", "video/mp4"},
    {".avi", "video/x-msvideo"},
    {".wmv", "video/x-ms-wmv"},
    {".ico", "image/x-icon"},
}};

}  // namespace

std::string HttpRules::contentType(const std::string& name) {
    const std::string extension = lowered(fs::path(name).extension().string());
    for (const TypeRow& row : ContentTypes)
        if (extension == row.extension)
            return row.type;
    return "application/octet-stream";
}

bool HttpRules::percentDecode(const std::string& text, std::string& out) {
    out.clear();
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            out += text[i];
            continue;
        }
        if (i + 2 >= text.size() || !std::isxdigit(static_cast<unsigned char>(text[i + 1])) ||
            !std::isxdigit(static_cast<unsigned char>(text[i + 2])))
            return false;
        const char decoded = static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
        if (decoded == '\0')
            return false;
        out += decoded;
        i += 2;
    }
    return true;
}

bool HttpRules::hostIsOurs(const std::string& host) const {
    const std::string port = ":" + std::to_string(port_);
    const std::string given = lowered(host);
    for (const std::string& name : {config_.address, std::string("localhost"),
                                    std::string("127.0.0.1"), std::string("[::1]")}) {
        if (given == lowered(name) + port)
            return true;
    }
    return false;
}

bool HttpRules::hasSessionCookie(const std::string& cookieHeader) const {
    // "a=1; vexstudio=TOKEN; b=2"
    std::size_t start = 0;
    while (start < cookieHeader.size()) {
        std::size_t end = cookieHeader.find(';', start);
        if (end == std::string::npos)
            end = cookieHeader.size();
        std::string pair = cookieHeader.substr(start, end - start);
        const std::size_t first = pair.find_first_not_of(' ');
        pair = first == std::string::npos ? std::string() : pair.substr(first);
        const std::size_t equals = pair.find('=');
        if (equals != std::string::npos && pair.substr(0, equals) == CookieName &&
            sameSecret(pair.substr(equals + 1), config_.token))
            return true;
        start = end + 1;
    }
    return false;
}

HttpRules::Decision HttpRules::serveFile(const std::string& directory,
                                         const std::string& relative) const {
    if (!isPlainRelativePath(relative))
        return refuse(404, "Not found.\n");
    const fs::path path = fs::path(directory) / relative;
    std::error_code error;
    if (!fs::is_regular_file(path, error))
        return refuse(404, "Not found.\n");
    Decision decision;
    decision.action = Action::File;
    decision.path = path.string();
    decision.contentType = contentType(relative);
    return decision;
}

HttpRules::Decision HttpRules::decide(const std::string& method, const std::string& target,
                                      const std::string& host, const std::string& cookie,
                                      const std::string& origin, bool upgrade) const {
    if (method != "GET" && method != "HEAD")
        return refuse(405, "Only GET and HEAD are served.\n");
    if (!hostIsOurs(host))
        return refuse(403, "This server answers only to its own address.\n");

    const std::size_t question = target.find('?');
    const std::string rawPath = target.substr(0, question);
    const std::string query = question == std::string::npos ? "" : target.substr(question + 1);
    std::string path;
    if (!percentDecode(rawPath, path) || path.empty() || path.front() != '/')
        return refuse(400, "Bad request.\n");

    if (path == "/") {
        if (const std::optional<std::string> token = queryValue(query, "token")) {
            if (!sameSecret(*token, config_.token))
                return refuse(403, NeedToken);
            Decision decision;
            decision.action = Action::SetCookie;
            decision.cookie = std::string(CookieName) + "=" + config_.token +
                              "; HttpOnly; SameSite=Strict; Path=/";
            return decision;
        }
    }
    if (!hasSessionCookie(cookie))
        return refuse(403, NeedToken);

    if (path == "/ws") {
        if (!upgrade)
            return refuse(400, "The WebSocket needs an upgrade.\n");
        if (origin != "http://" + host)
            return refuse(403, "WebSockets are served only to the studio's own page.\n");
        Decision decision;
        decision.action = Action::Upgrade;
        return decision;
    }
    if (upgrade)
        return refuse(404, "Not found.\n");

    const std::string filesPrefix = "/files/";
    if (path.compare(0, filesPrefix.size(), filesPrefix) == 0) {
        const std::string rest = path.substr(filesPrefix.size());
        const std::size_t slash = rest.find('/');
        if (config_.roots == nullptr || slash == std::string::npos || slash == 0 || slash > 3 ||
            !std::all_of(rest.begin(), rest.begin() + slash,
                         [](char c) { return c >= '0' && c <= '9'; }))
            return refuse(404, "Not found.\n");
        const std::size_t root = std::stoul(rest.substr(0, slash));
        const std::optional<fs::path> file = config_.roots->resolve(root, rest.substr(slash + 1));
        std::error_code error;
        if (!file || !fs::is_regular_file(*file, error))
            return refuse(404, "Not found.\n");
        Decision decision;
        decision.action = Action::File;
        decision.path = file->string();
        decision.contentType = contentType(file->filename().string());
        decision.attachmentName = file->filename().string();
        // The name goes into a header between quotes: nothing that could end it.
        decision.attachmentName.erase(
            std::remove_if(decision.attachmentName.begin(), decision.attachmentName.end(),
                           [](char c) { return c == '"' || c == '\\' || c < 0x20; }),
            decision.attachmentName.end());
        return decision;
    }
    const std::string helpPrefix = "/help/";
    if (path.compare(0, helpPrefix.size(), helpPrefix) == 0)
        return serveFile(config_.helpDirectory, path.substr(helpPrefix.size()));
    return serveFile(config_.webDirectory, path == "/" ? "index.html" : path.substr(1));
}

}  // namespace studio
}  // namespace vexhost
