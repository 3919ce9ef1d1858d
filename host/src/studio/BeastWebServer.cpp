// The studio's web server on Boost.Beast: the only file that includes Beast (it compiles slowly).
//
// One io_context on one network thread. Each TCP connection starts as an HTTP session; a WebSocket
// upgrade that passes the checks becomes a WebSocket session, registered under a client number so
// the user-interface thread can send to it. Writes to a WebSocket are queued per session and go
// out one at a time, as Beast requires.
#include <boost/asio/signal_set.hpp>
#include <boost/asio/strand.hpp>
#include <boost/beast/core.hpp>
#include <boost/beast/http.hpp>
#include <boost/beast/version.hpp>
#include <boost/beast/websocket.hpp>

#include <atomic>
#include <csignal>
#include <deque>
#include <filesystem>
#include <fstream>
#include <map>
#include <mutex>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "studio/EventQueue.h"
#include "studio/FileRoots.h"
#include "studio/HttpRules.h"
#include "studio/WebServer.h"

namespace vexhost {
namespace studio {

namespace {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = beast::http;
namespace websocket = beast::websocket;
using tcp = asio::ip::tcp;
using Request = http::request<http::string_body>;

// How long an HTTP connection may take to send its request; WebSockets use Beast's suggested
// server timeouts (pings keep a quiet page alive).
constexpr auto HttpTimeout = std::chrono::seconds(30);
constexpr std::size_t MaxHeaderBytes = 8 * 1024;

class Server;

class WebSocketSession : public std::enable_shared_from_this<WebSocketSession> {
public:
    WebSocketSession(tcp::socket socket, Server& server, uint64_t client)
        : ws_(std::move(socket)), server_(server), client_(client) {}

    void accept(Request request);
    void send(std::shared_ptr<const std::string> data, bool binary);
    void close();

private:
    void read();
    void write();

    websocket::stream<beast::tcp_stream> ws_;
    Server& server_;
    uint64_t client_;
    beast::flat_buffer buffer_;
    struct Outgoing {
        std::shared_ptr<const std::string> data;
        bool binary;
    };
    std::deque<Outgoing> outgoing_;
    bool open_ = false;
};

class Server final : public WebServer {
public:
    Server(const Config& config, EventQueue& events);
    ~Server() override;

    uint16_t port() const override { return port_; }
    void sendText(uint64_t client, std::string text) override {
        post(client, std::make_shared<const std::string>(std::move(text)), false);
    }
    void sendBinary(uint64_t client, std::vector<uint8_t> data) override {
        post(client, std::make_shared<const std::string>(data.begin(), data.end()), true);
    }

    const Config& config() const { return config_; }
    const HttpRules& rules() const { return rules_; }
    EventQueue& events() { return events_; }
    asio::io_context& context() { return context_; }

    void detach(uint64_t client) {
        std::lock_guard<std::mutex> lock(mutex_);
        sessions_.erase(client);
    }
    uint64_t nextClient() {
        std::lock_guard<std::mutex> lock(mutex_);
        return ++lastClient_;
    }
    void registerSession(uint64_t client, const std::shared_ptr<WebSocketSession>& session) {
        std::lock_guard<std::mutex> lock(mutex_);
        sessions_[client] = session;
    }

private:
    void post(uint64_t client, std::shared_ptr<const std::string> data, bool binary);
    void acceptNext();

    Config config_;
    EventQueue& events_;
    HttpRules rules_;
    asio::io_context context_{1};
    tcp::acceptor acceptor_{context_};
    asio::signal_set signals_{context_, SIGINT, SIGTERM};
    uint16_t port_ = 0;
    std::mutex mutex_;
    uint64_t lastClient_ = 0;
    std::map<uint64_t, std::weak_ptr<WebSocketSession>> sessions_;
    std::thread thread_;
};

// ---- HTTP ----

http::response<http::string_body> textResponse(
    const Request& request, http::status status, const std::string& body,
    const std::string& type = "text/plain; charset=utf-8") {
    http::response<http::string_body> response{status, request.version()};
    response.set(http::field::server, "vexplot studio");
    response.set(http::field::content_type, type);
    response.set(http::field::cache_control, "no-store");
    response.set("X-Content-Type-Options", "nosniff");
    response.keep_alive(request.keep_alive());
    response.body() = request.method() == http::verb::head ? std::string() : body;
    response.prepare_payload();
    if (request.method() == http::verb::head)
        response.content_length(body.size());
    return response;
}

class HttpSession : public std::enable_shared_from_this<HttpSession> {
public:
    HttpSession(tcp::socket socket, Server& server) : stream_(std::move(socket)), server_(server) {}

    void start() { read(); }

private:
    void read() {
        parser_.emplace();
        parser_->header_limit(MaxHeaderBytes);
        parser_->body_limit(server_.config().maxMessageBytes);
        stream_.expires_after(HttpTimeout);
        http::async_read(stream_, buffer_, *parser_,
                         [self = shared_from_this()](beast::error_code error, std::size_t) {
                             self->onRead(error);
                         });
    }

    void onRead(beast::error_code error) {
        if (error == http::error::end_of_stream) {
            beast::error_code ignored;
            stream_.socket().shutdown(tcp::socket::shutdown_send, ignored);
            return;
        }
        if (error) {
            if (error == http::error::header_limit || error == http::error::body_limit ||
                error == http::error::bad_target || error == http::error::bad_method ||
                error == http::error::bad_version || error == http::error::bad_field ||
                error == http::error::bad_value) {
                Request bare;
                bare.version(11);
                bare.keep_alive(false);
                send(textResponse(bare, http::status::bad_request, "Bad request.\n"));
            }
            return;
        }
        Request request = parser_->release();
        const HttpRules::Decision decision = server_.rules().decide(
            std::string(request.method_string()), std::string(request.target()),
            std::string(request[http::field::host]), std::string(request[http::field::cookie]),
            std::string(request[http::field::origin]), websocket::is_upgrade(request));
        switch (decision.action) {
            case HttpRules::Action::Refuse:
                send(textResponse(request, static_cast<http::status>(decision.status),
                                  decision.body));
                return;
            case HttpRules::Action::SetCookie: {
                auto response = textResponse(request, http::status::found, "");
                response.set(http::field::location, "/");
                response.set(http::field::set_cookie, decision.cookie);
                send(std::move(response));
                return;
            }
            case HttpRules::Action::Text:
                send(textResponse(request, http::status::ok, decision.body, decision.contentType));
                return;
            case HttpRules::Action::File:
                sendFile(request, decision);
                return;
            case HttpRules::Action::Upgrade: {
                stream_.expires_never();
                auto session = std::make_shared<WebSocketSession>(stream_.release_socket(), server_,
                                                                  server_.nextClient());
                session->accept(std::move(request));
                return;
            }
        }
    }

    void sendFile(const Request& request, const HttpRules::Decision& decision) {
        http::file_body::value_type body;
        beast::error_code error;
        body.open(decision.path.c_str(), beast::file_mode::scan, error);
        if (error) {
            send(textResponse(request, http::status::not_found, "Not found.\n"));
            return;
        }
        const auto size = body.size();
        if (request.method() == http::verb::head) {
            http::response<http::empty_body> response{http::status::ok, request.version()};
            response.set(http::field::content_type, decision.contentType);
            response.content_length(size);
            response.keep_alive(request.keep_alive());
            send(std::move(response));
            return;
        }
        http::response<http::file_body> response{
            std::piecewise_construct, std::make_tuple(std::move(body)),
            std::make_tuple(http::status::ok, request.version())};
        response.set(http::field::server, "vexplot studio");
        response.set(http::field::content_type, decision.contentType);
        response.set(http::field::cache_control, "no-store");
        response.set("X-Content-Type-Options", "nosniff");
        if (!decision.attachmentName.empty())
            response.set(http::field::content_disposition,
                         "inline; filename=\"" + decision.attachmentName + "\"");
        response.content_length(size);
        response.keep_alive(request.keep_alive());
        send(std::move(response));
    }

    template <class Body>
    void send(http::response<Body>&& response) {
        auto owned = std::make_shared<http::response<Body>>(std::move(response));
        stream_.expires_after(HttpTimeout);
        http::async_write(stream_, *owned,
                          [self = shared_from_this(), owned](beast::error_code error, std::size_t) {
                              if (error || !owned->keep_alive()) {
                                  beast::error_code ignored;
                                  self->stream_.socket().shutdown(tcp::socket::shutdown_send,
                                                                  ignored);
                                  return;
                              }
                              self->read();
                          });
    }

    beast::tcp_stream stream_;
    Server& server_;
    beast::flat_buffer buffer_;
    std::optional<http::request_parser<http::string_body>> parser_;
};

// ---- WebSocket ----

void WebSocketSession::accept(Request request) {
    ws_.set_option(websocket::stream_base::timeout::suggested(beast::role_type::server));
    ws_.read_message_max(server_.config().maxMessageBytes);
    ws_.set_option(websocket::stream_base::decorator([](websocket::response_type& response) {
        response.set(http::field::server, "vexplot studio");
    }));
    auto request_ = std::make_shared<Request>(std::move(request));
    ws_.async_accept(*request_, [self = shared_from_this(), request_](beast::error_code error) {
        if (error)
            return;
        self->open_ = true;
        self->server_.registerSession(self->client_, self);
        self->server_.events().push({NetworkEvent::Kind::Open, self->client_, {}});
        self->read();
    });
}

void WebSocketSession::read() {
    ws_.async_read(buffer_, [self = shared_from_this()](beast::error_code error, std::size_t) {
        if (error) {
            // Closed by the page, timed out, or a message over the cap (Beast closes with "too
            // big"): the page is gone either way.
            self->open_ = false;
            self->server_.detach(self->client_);
            self->server_.events().push({NetworkEvent::Kind::Close, self->client_, {}});
            return;
        }
        // Binary messages go on as they are: they are no JSON, so the page gets an error reply.
        self->server_.events().push({NetworkEvent::Kind::Message, self->client_,
                                     beast::buffers_to_string(self->buffer_.data())});
        self->buffer_.consume(self->buffer_.size());
        self->read();
    });
}

void WebSocketSession::send(std::shared_ptr<const std::string> data, bool binary) {
    if (!open_)
        return;
    outgoing_.push_back({std::move(data), binary});
    if (outgoing_.size() == 1)
        write();
}

void WebSocketSession::write() {
    const Outgoing& next = outgoing_.front();
    ws_.binary(next.binary);
    ws_.async_write(asio::buffer(*next.data),
                    [self = shared_from_this()](beast::error_code error, std::size_t) {
                        if (error) {
                            self->outgoing_.clear();
                            return;
                        }
                        self->outgoing_.pop_front();
                        if (!self->outgoing_.empty())
                            self->write();
                    });
}

void WebSocketSession::close() {
    if (!open_)
        return;
    open_ = false;
    ws_.async_close(websocket::close_code::going_away,
                    [self = shared_from_this()](beast::error_code) {});
}

// ---- The server ----

Server::Server(const Config& config, EventQueue& events)
    : config_(config), events_(events), rules_(config_) {
    beast::error_code error;
    const asio::ip::address address = asio::ip::make_address(config.address, error);
    if (error)
        throw std::runtime_error("cannot listen on \"" + config.address + "\": not an address");
    const tcp::endpoint endpoint(address, config.port);
    acceptor_.open(endpoint.protocol(), error);
    if (!error)
        acceptor_.set_option(asio::socket_base::reuse_address(true), error);
    if (!error)
        acceptor_.bind(endpoint, error);
    if (!error)
        acceptor_.listen(asio::socket_base::max_listen_connections, error);
    if (error)
        throw std::runtime_error("cannot listen on " + config.address + ":" +
                                 std::to_string(config.port) + ": " + error.message());
    port_ = acceptor_.local_endpoint().port();
    rules_.setPort(port_);
    signals_.async_wait([this](beast::error_code error, int) {
        if (!error)
            events_.push({NetworkEvent::Kind::Quit, 0, {}});
    });
    acceptNext();
    thread_ = std::thread([this] { context_.run(); });
}

Server::~Server() {
    asio::post(context_, [this] {
        beast::error_code ignored;
        acceptor_.close(ignored);
        signals_.cancel(ignored);
        std::lock_guard<std::mutex> lock(mutex_);
        for (auto& entry : sessions_)
            if (auto session = entry.second.lock())
                session->close();
    });
    // Closing handshakes get a moment; then whatever is left is cut.
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    context_.stop();
    if (thread_.joinable())
        thread_.join();
}

void Server::acceptNext() {
    acceptor_.async_accept(asio::make_strand(context_),
                           [this](beast::error_code error, tcp::socket socket) {
                               if (error == asio::error::operation_aborted)
                                   return;
                               if (!error)
                                   std::make_shared<HttpSession>(std::move(socket), *this)->start();
                               acceptNext();
                           });
}

void Server::post(uint64_t client, std::shared_ptr<const std::string> data, bool binary) {
    std::shared_ptr<WebSocketSession> session;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        const auto found = sessions_.find(client);
        if (found != sessions_.end())
            session = found->second.lock();
    }
    if (session == nullptr)
        return;
    asio::post(context_, [session, data = std::move(data), binary]() mutable {
        session->send(std::move(data), binary);
    });
}

}  // namespace

std::unique_ptr<WebServer> WebServer::start(const Config& config, EventQueue& events) {
    return std::make_unique<Server>(config, events);
}

}  // namespace studio
}  // namespace vexhost
