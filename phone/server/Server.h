/// The phone over HTTP, on this machine alone: WebDriver, and the page.
#pragma once

#include "phone/live/LivePhone.h"

#include <memory>

namespace phone {

/// Every connection has a thread of its own, so that a slow client delays nobody.
class Server {
public:
    static constexpr int usualPort = 8100;

    /// Listens on the loopback interface; port 0 takes a free one. Throws InputError when the port is taken. The phone
    /// has to outlive the server.
    Server(LivePhone& phone, int port);
    ~Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    int port() const;
    /// Answers requests until `stop`.
    void run();
    /// From any thread.
    void stop();

private:
    class Implementation;
    std::unique_ptr<Implementation> _implementation;
};

} // namespace phone
