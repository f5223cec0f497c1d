#include "phone/server/Server.h"

#include "phone/flow/InputError.h"
#include "phone/server/Connections.h"
#include "phone/server/Page.h"
#include "phone/server/RequestGuard.h"
#include "phone/webdriver/Protocol.h"

#include <httplib.h>

#include <sys/socket.h>

namespace phone {

namespace {

using httplib::Request;
using httplib::Response;

constexpr std::size_t longestBody = 4 << 20; // bytes
constexpr int readSeconds = 10;              // for a part of a request to come
constexpr int writeSeconds = 10;
constexpr std::size_t requestsPerConnection = 100000;
constexpr int forbidden = 403;
constexpr const char* loopback = "127.0.0.1";
constexpr const char* everyPath = R"([\s\S]*)";

void send(Response& response, const webdriver::Answer& answer) {
    response.status = answer.status;
    response.set_content(answer.body, "application/json; charset=utf-8");
    response.set_header("Cache-Control", "no-store");
}

/// The same for a request whose body nobody reads: what is left of it must not be taken for the next request.
void sendAndHangUp(Response& response, const webdriver::Answer& answer) {
    response.status = answer.status;
    response.set_header("Connection", "close");
    response.set_content_provider("application/json; charset=utf-8",
                                  [body = answer.body](std::size_t, httplib::DataSink& sink) {
                                      sink.write(body.data(), body.size());
                                      return false; // ends the connection, and with it the answer
                                  });
}

/// What went wrong before the protocol saw the request.
webdriver::Answer refusalOf(int status) {
    switch (status) {
    case 413:
        return webdriver::refusal(status, "invalid argument",
                                  "the request is larger than 4 MiB, or a form; send it as application/json");
    case 414:
        return webdriver::refusal(status, "invalid argument", "the request's path is too long");
    default:
        return webdriver::refusal(status, "invalid argument", "this is no request in HTTP that can be read");
    }
}

} // namespace

class Server::Implementation {
public:
    Implementation(LivePhone& phone, int port) : _protocol(phone), _page(phone, Page::folderBesideThis()) {
        setLimits();
        _http.new_task_queue = [] { return new Connections; }; // the server deletes it
        listen(port);
        _http.set_pre_routing_handler(
            [this](const Request& request, Response& response) { return guard(request, response); });
        _http.set_error_handler([](const Request&, Response& response) {
            if (response.body.empty() && !response.content_provider_) {
                send(response, refusalOf(response.status));
            }
        });
        _page.serveOn(_http); // before the protocol, which takes every path
        const auto toProtocol = [this](const Request& request, Response& response) {
            send(response, _protocol.answer(request.method, request.path,
                                            {request.params.begin(), request.params.end()}, request.body));
        };
        _http.Get(everyPath, toProtocol);
        _http.Post(everyPath, toProtocol);
        _http.Put(everyPath, toProtocol);
        _http.Patch(everyPath, toProtocol);
        _http.Delete(everyPath, toProtocol);
        _http.Options(everyPath, toProtocol);
    }

    int port() const { return _port; }
    void run() { _http.listen_after_bind(); }
    void stop() {
        _protocol.endSession();
        _page.close();
        _http.stop();
    }

private:
    void listen(int port) {
        int listening = -1;
        _http.set_socket_options([&](socket_t socket) {
            const int yes = 1; // but not SO_REUSEPORT: two servers at one port would take turns
            setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
            listening = socket;
        });
        const bool bound =
            port == 0 ? (_port = _http.bind_to_any_port(loopback)) > 0 : _http.bind_to_port(loopback, port);
        if (!bound) {
            throw InputError("port " + std::to_string(port) + " cannot be had; choose another with --port");
        }
        _port = port == 0 ? _port : port;
        ::listen(listening, SOMAXCONN); // the library lets five clients wait
    }

    void setLimits() {
        _http.set_payload_max_length(longestBody);
        _http.set_read_timeout(readSeconds);
        _http.set_write_timeout(writeSeconds);
        _http.set_keep_alive_max_count(requestsPerConnection);
        _http.set_tcp_nodelay(true);
    }

    httplib::Server::HandlerResponse guard(const Request& request, Response& response) const {
        const auto why = whyRefused({.host = request.get_header_value("Host"),
                                     .origin = request.get_header_value("Origin"),
                                     .site = request.get_header_value("Sec-Fetch-Site")},
                                    _port);
        if (why) {
            sendAndHangUp(response, webdriver::refusal(forbidden, "unknown error", *why));
            return httplib::Server::HandlerResponse::Handled;
        }
        return httplib::Server::HandlerResponse::Unhandled;
    }

    httplib::Server _http;
    webdriver::Protocol _protocol;
    Page _page;
    int _port = 0;
};

Server::Server(LivePhone& phone, int port) : _implementation(std::make_unique<Implementation>(phone, port)) {}

Server::~Server() = default;

int Server::port() const { return _implementation->port(); }

void Server::run() { _implementation->run(); }

void Server::stop() { _implementation->stop(); }

} // namespace phone
