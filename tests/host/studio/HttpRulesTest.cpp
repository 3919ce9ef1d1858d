// What the studio's server does with each request: the token exchange, the cookie every other
// request needs, the Host and Origin checks, and which files it serves.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "studio/FileRoots.h"
#include "studio/HttpRules.h"
#include "support/TemporaryDirectory.h"

namespace {

using vexhost::studio::FileRoots;
using vexhost::studio::HttpRules;
using Action = HttpRules::Action;

const std::string Token = "0123456789abcdef0123456789abcdef";
const std::string Host = "127.0.0.1:8123";
const std::string Cookie = "vexstudio=" + Token;

class HttpRulesTest : public ::testing::Test {
protected:
    HttpRulesTest() {
        std::filesystem::create_directories(web_.path() / "js");
        write(web_.path() / "index.html", "<html></html>");
        write(web_.path() / "js" / "page.js", "//");
        write(web_.path() / ".secret", "no");
        write(root_.path() / "movie.mp4", "mp4");
        write(outside_.path() / "passwd", "root");
        std::filesystem::create_symlink(outside_.path() / "passwd", root_.path() / "link");
        roots_ = std::make_unique<FileRoots>(std::vector<std::filesystem::path>{root_.path()});
        config_.token = Token;
        config_.webDirectory = web_.path().string();
        config_.helpDirectory = web_.path().string();
        config_.roots = roots_.get();
        rules_.setPort(8123);
    }

    static void write(const std::filesystem::path& path, const std::string& text) {
        std::ofstream(path) << text;
    }

    HttpRules::Decision get(const std::string& target, const std::string& cookie = Cookie,
                            const std::string& host = Host) const {
        return rules_.decide("GET", target, host, cookie, "", false);
    }

    vextest::TemporaryDirectory web_{"studio-web"}, root_{"studio-root"},
        outside_{"studio-outside"};
    std::unique_ptr<FileRoots> roots_;
    vexhost::studio::WebServer::Config config_;
    HttpRules rules_{config_};
};

TEST_F(HttpRulesTest, TheTokenIsExchangedForAStrictHttpOnlyCookie) {
    const HttpRules::Decision decision = get("/?token=" + Token, "");
    ASSERT_EQ(Action::SetCookie, decision.action);
    EXPECT_EQ("vexstudio=" + Token + "; HttpOnly; SameSite=Strict; Path=/", decision.cookie);
}

TEST_F(HttpRulesTest, AWrongOrMissingTokenIsRefused) {
    for (const std::string& target : {"/?token=" + Token.substr(1) + "0", std::string("/?token="),
                                      std::string("/?token=") + Token + "x"}) {
        const HttpRules::Decision decision = get(target, "");
        EXPECT_EQ(Action::Refuse, decision.action) << target;
        EXPECT_EQ(403, decision.status) << target;
    }
}

TEST_F(HttpRulesTest, EveryRequestWithoutTheCookieIsRefused) {
    for (const std::string& cookie :
         {std::string(), std::string("vexstudio=wrong"), std::string("other=" + Token),
          std::string("vexstudio=") + Token + "0"}) {
        for (const char* target : {"/", "/index.html", "/files/0/movie.mp4", "/help/index.html"}) {
            const HttpRules::Decision decision = get(target, cookie);
            EXPECT_EQ(403, decision.status) << target << " with " << cookie;
            EXPECT_EQ(Action::Refuse, decision.action);
        }
        EXPECT_EQ(403, rules_.decide("GET", "/ws", Host, cookie, "http://" + Host, true).status);
    }
}

TEST_F(HttpRulesTest, TheCookieIsFoundAmongOthers) {
    EXPECT_EQ(Action::File, get("/", "a=1; " + Cookie + "; b=2").action);
}

TEST_F(HttpRulesTest, OnlyTheServersOwnHostNamesAreAnswered) {
    for (const char* host : {"127.0.0.1:8123", "localhost:8123", "LOCALHOST:8123", "[::1]:8123"})
        EXPECT_EQ(Action::File, get("/", Cookie, host).action) << host;
    for (const char* host : {"evil.example:8123", "127.0.0.1:8124", "127.0.0.1", "", "localhost"}) {
        const HttpRules::Decision decision = get("/", Cookie, host);
        EXPECT_EQ(403, decision.status) << host;
        EXPECT_EQ("This server answers only to its own address.\n", decision.body);
    }
    // Before the token is taken, too: a page elsewhere cannot even exchange it.
    EXPECT_EQ(403, get("/?token=" + Token, "", "evil.example:8123").status);
}

TEST_F(HttpRulesTest, TheWebSocketIsServedToTheStudiosOwnPageOnly) {
    EXPECT_EQ(Action::Upgrade,
              rules_.decide("GET", "/ws", Host, Cookie, "http://" + Host, true).action);
    for (const char* origin :
         {"http://evil.example", "https://127.0.0.1:8123", "", "http://127.0.0.1:8124", "null"}) {
        const HttpRules::Decision decision =
            rules_.decide("GET", "/ws", Host, Cookie, origin, true);
        EXPECT_EQ(403, decision.status) << origin;
    }
    EXPECT_EQ(400, rules_.decide("GET", "/ws", Host, Cookie, "http://" + Host, false).status);
}

TEST_F(HttpRulesTest, OnlyGetAndHeadAreServed) {
    EXPECT_EQ(Action::File, rules_.decide("HEAD", "/", Host, Cookie, "", false).action);
    for (const char* method : {"POST", "PUT", "DELETE", "OPTIONS", "get"})
        EXPECT_EQ(405, rules_.decide(method, "/", Host, Cookie, "", false).status) << method;
}

TEST_F(HttpRulesTest, ThePagesOwnFilesAreServedAndNothingBesideThem) {
    HttpRules::Decision decision = get("/");
    ASSERT_EQ(Action::File, decision.action);
    EXPECT_EQ((web_.path() / "index.html").string(), decision.path);
    EXPECT_EQ("text/html; charset=utf-8", decision.contentType);
    decision = get("/js/page.js");
    ASSERT_EQ(Action::File, decision.action);
    EXPECT_EQ("text/javascript; charset=utf-8", decision.contentType);
    for (const char* target : {"/.secret", "/../studio-root/movie.mp4", "/js/../index.html",
                               "/%2e%2e/x", "/js//page.js", "/missing.html", "/js"})
        EXPECT_EQ(404, get(target).status) << target;
}

TEST_F(HttpRulesTest, BadEscapesAreBadRequests) {
    for (const char* target : {"/%", "/%4", "/%zz", "/a%00b", "nopath", ""})
        EXPECT_EQ(400, get(target).status) << target;
}

TEST_F(HttpRulesTest, DownloadsComeFromInsideTheRootsOnly) {
    HttpRules::Decision decision = get("/files/0/movie.mp4");
    ASSERT_EQ(Action::File, decision.action);
    EXPECT_EQ("video/mp4", decision.contentType);
    EXPECT_EQ("movie.mp4", decision.attachmentName);
    for (const std::string& target :
         {std::string("/files/0/../studio-outside/passwd"), std::string("/files/0/%2e%2e/x"),
          std::string("/files/0/..%2F..%2Fetc%2Fpasswd"), std::string("/files/0//etc/passwd"),
          std::string("/files/0/%2Fetc%2Fpasswd"), std::string("/files/0/link"),
          std::string("/files/1/movie.mp4"), std::string("/files/x/movie.mp4"),
          std::string("/files/0/"), std::string("/files/0"), std::string("/files//movie.mp4"),
          std::string("/files/00000000000000000000/movie.mp4"),
          "/files/0/" + (outside_.path() / "passwd").string()})
        EXPECT_EQ(404, get(target).status) << target;
}

TEST_F(HttpRulesTest, ContentTypesComeFromOneTable) {
    EXPECT_EQ("video/mp4", HttpRules::contentType("a.MP4"));
    EXPECT_EQ("text/plain; charset=utf-8", HttpRules::contentType("flight.keyframe"));
    EXPECT_EQ("application/octet-stream", HttpRules::contentType("noextension"));
}

}  // namespace
