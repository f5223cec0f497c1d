/// The WebDriver protocol, without its transport: a request in, an answer out.
#pragma once

#include "phone/live/LivePhone.h"
#include "phone/webdriver/Call.h"

#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace phone::webdriver {

class Session;

/// One per phone. There is one session at a time: a new one ends the one before. Calls may come from any thread.
class Protocol {
public:
    /// The phone has to outlive the protocol.
    explicit Protocol(LivePhone& phone);
    ~Protocol();

    /// `path` is the request's, decoded, without the query. Never throws: what cannot be done is an answer, too.
    Answer answer(const std::string& method, const std::string& path, const Query& query, const std::string& body);

    /// Ends the session, if there is one, and with it what its client waits for.
    void endSession();

private:
    struct Request;

    nlohmann::json perform(Request& request);
    nlohmann::json performRoute(Request& request, const std::vector<std::string>& parts, bool hasSession);
    nlohmann::json status() const;
    nlohmann::json begin(Request& request);
    std::shared_ptr<Session> current(const std::string& id) const;
    std::shared_ptr<Session> take(const std::string& id);
    static void end(const std::shared_ptr<Session>& session);
    /// With _mutex held. Throws Refusal when there is no session of this id; "" may be none.
    void check(const std::string& id) const;

    LivePhone& _phone;
    mutable std::mutex _mutex;         // guards what follows
    std::shared_ptr<Session> _session; // nullptr when there is none
};

/// An answer for what never came as far as the protocol.
Answer refusal(int status, const char* error, const std::string& message);

} // namespace phone::webdriver
