#include "phone/webdriver/Protocol.h"

#include "phone/device/Profile.h"
#include "phone/webdriver/Capabilities.h"
#include "phone/webdriver/Routes.h"

#include <algorithm>
#include <cstdint>
#include <random>
#include <set>

namespace phone::webdriver {

struct Protocol::Request {
    std::string method;
    std::vector<std::string> parts; // of the path
    Call call;
    std::string session; // the one it is for; "" for none
};

namespace {

std::string written(const json& answer) { return answer.dump(-1, ' ', false, json::error_handler_t::replace); }

json sessionOrNull(const std::string& id) { return id.empty() ? json() : json(id); }

Answer refused(int status, const char* error, const std::string& message, const std::string& session) {
    // The standard's name for the last, and the mobile drivers'.
    const json value = {{"error", error}, {"message", message}, {"stacktrace", ""}, {"traceback", ""}};
    return {status, written({{"value", value}, {"sessionId", sessionOrNull(session)}})};
}

std::string freshId() {
    std::random_device source;
    std::string id;
    for (int part = 0; part < 4; ++part) {
        constexpr const char* digits = "0123456789abcdef";
        const std::uint32_t bits = source();
        for (unsigned shift = 0; shift < 32; shift += 4) {
            id += digits[bits >> shift & 0xFU];
        }
    }
    return id;
}

json parsed(const std::string& body) {
    if (body.empty()) {
        return json::object();
    }
    constexpr int deepest = 64; // levels; nothing that is asked for needs more
    bool isTooDeep = false;
    const auto limit = [&](int depth, json::parse_event_t, json&) {
        isTooDeep = isTooDeep || depth > deepest;
        return !isTooDeep;
    };
    const json read = json::parse(body, limit, false);
    if (read.is_discarded() || !read.is_object()) {
        throw Refusal(Error::InvalidArgument, "the request's body has to be a JSON object");
    }
    return read;
}

/// Whether it is one of the paths that do not stand among the routes.
bool isFixed(const std::vector<std::string>& parts) {
    static const std::set<std::vector<std::string>> paths = {
        {"status"}, {"wda", "healthcheck"}, {"session"}, {"sessions"}, {"appium", "sessions"}};
    return paths.contains(parts);
}

bool takesABody(const std::string& method) { return method == "POST" || method == "PUT" || method == "PATCH"; }

} // namespace

Answer refusal(int status, const char* error, const std::string& message) {
    return refused(status, error, message, "");
}

Protocol::Protocol(LivePhone& phone) : _phone(phone) {}

Protocol::~Protocol() { endSession(); }

Answer Protocol::answer(const std::string& method, const std::string& path, const Query& query,
                        const std::string& body) {
    Request request{method, pathParts(path), {}, {}};
    request.call.query = query;
    const auto refuse = [&](Error error, const std::string& message) {
        return refused(httpStatusOf(error), nameOf(error), message, request.session);
    };
    try {
        if (takesABody(method)) {
            request.call.body = parsed(body);
        }
        const json value = perform(request);
        return {200, written({{"value", value}, {"sessionId", sessionOrNull(request.session)}})};
    } catch (const Refusal& refusal) {
        return refuse(refusal.code(), refusal.what());
    } catch (const ApplicationDied& death) {
        // No fault of the server's, and no use in asking again: the client has to launch the application.
        return refuse(Error::InvalidElementState, std::string(death.what()) + " with \"mobile: launchApp\"");
    } catch (const ScreenError& error) {
        return refuse(Error::InvalidElementState, error.what());
    } catch (const json::exception& error) {
        return refuse(Error::InvalidArgument, error.what());
    } catch (const std::exception& error) {
        return refuse(Error::UnknownError, error.what());
    }
}

json Protocol::perform(Request& request) {
    const auto& parts = request.parts;
    const auto is = [&](const char* method, std::initializer_list<const char*> path) {
        return request.method == method && std::equal(parts.begin(), parts.end(), path.begin(), path.end());
    };
    if (is("GET", {"status"})) {
        return status();
    }
    if (is("GET", {"wda", "healthcheck"})) {
        return nullptr;
    }
    if (is("POST", {"session"})) {
        return begin(request);
    }
    if (is("GET", {"sessions"}) || is("GET", {"appium", "sessions"})) {
        const auto session = current("");
        return session ? json::array({{{"id", session->id()}, {"capabilities", session->capabilities()}}})
                       : json::array();
    }
    if (parts.size() < 2 || parts.front() != "session") {
        return performRoute(request, parts, false);
    }
    request.session = parts[1];
    const bool isWhole = parts.size() == 2;
    if (isWhole && request.method == "DELETE") {
        end(take(request.session));
        return nullptr;
    }
    if (isWhole && request.method == "GET") {
        return current(request.session)->capabilities();
    }
    return performRoute(request, {parts.begin() + 2, parts.end()}, true);
}

json Protocol::performRoute(Request& request, const std::vector<std::string>& parts, bool hasSession) {
    bool isKnown = hasSession ? parts.empty() : isFixed(parts);
    for (const Route& route : routes()) {
        if ((!hasSession && !route.needsNoSession) || !matches(route, parts, request.call)) {
            continue;
        }
        isKnown = true;
        if (request.method != route.method) {
            continue;
        }
        auto session = hasSession ? current(request.session) : current("");
        if (!session) {
            session = std::make_shared<Session>(_phone, "");
        }
        return route.command(*session, request.call);
    }
    std::string path;
    for (const std::string& part : request.parts) {
        path += "/" + part;
    }
    if (isKnown) {
        throw Refusal(Error::UnknownMethod, path + " is not asked with " + request.method);
    }
    throw Refusal(Error::UnknownCommand, request.method + " " + path + " is no command; docs/webdriver.md lists them");
}

json Protocol::status() const {
    const auto phone = _phone.status();
    const std::string_view version = systemNamed(phone.settings.system)->version;
    return {{"ready", true},
            {"message", phone.life == LivePhone::Life::Died ? phone.epitaph : "the phone takes commands"},
            {"state", "success"},
            {"os", {{"name", "iOS"}, {"version", version}, {"sdkVersion", version}}},
            {"ios", {{"ip", "127.0.0.1"}}},
            {"build", {{"version", PHONE_VERSION}, {"productBundleIdentifier", "phone"}}},
            {"device", deviceNamed(phone.settings.device)->isTablet() ? "ipad" : "iphone"}};
}

json Protocol::begin(Request& request) {
    const Capabilities capabilities = readCapabilities(request.call.body, _phone.status().settings);
    auto session = std::make_shared<Session>(_phone, freshId());
    session->change(capabilities.settings);
    endSession();
    try {
        if (capabilities.startsAfresh || _phone.status().life != LivePhone::Life::Running ||
            capabilities.launchesOther) {
            _phone.launch(capabilities.phone);
        }
    } catch (const ScreenError& error) {
        throw Refusal(Error::SessionNotCreated, error.what());
    }
    request.session = session->id();
    const json described = {{"sessionId", session->id()}, {"capabilities", session->capabilities()}};
    {
        const std::lock_guard lock(_mutex);
        std::swap(_session, session);
    }
    end(session); // of another client that was faster
    return described;
}

void Protocol::endSession() { end(take("")); }

void Protocol::end(const std::shared_ptr<Session>& session) {
    if (session) {
        session->finish();
    }
}

/// The session of this id, or the one that there is for "", which there is no longer then.
std::shared_ptr<Session> Protocol::take(const std::string& id) {
    const std::lock_guard lock(_mutex);
    check(id);
    return std::move(_session);
}

/// The session of this id, or the one that there is for ""; nullptr for "" when there is none.
std::shared_ptr<Session> Protocol::current(const std::string& id) const {
    const std::lock_guard lock(_mutex);
    check(id);
    return _session;
}

void Protocol::check(const std::string& id) const {
    if (!id.empty() && (!_session || _session->id() != id)) {
        throw Refusal(Error::InvalidSessionId, "there is no session \"" + id + "\"; POST /session begins one");
    }
}

} // namespace phone::webdriver
