/// What one client has set up, and how its commands reach the phone.
#pragma once

#include "phone/elements/AccessibilityTree.h"
#include "phone/elements/Refusal.h"
#include "phone/flow/Engine.h"
#include "phone/live/LivePhone.h"
#include "phone/webdriver/ClientScreen.h"

#include <mutex>
#include <string>

namespace phone::webdriver {

/// As people see it under its icon.
inline constexpr const char* applicationName = "Phone";

/// Which button answers a question of the system.
enum class AlertAnswer { None, Accept, Dismiss };

/// Calls may come from any thread. What waits ends early once the session is over.
class Session {
public:
    struct Timeouts { // in seconds
        double implicit = 0;
        double pageLoad = 300;
        double script = 30;
    };

    Session(LivePhone& phone, std::string id) : _phone(phone), _screen(phone), _id(std::move(id)) {}

    const std::string& id() const { return _id; }
    LivePhone& phone() const { return _phone; }
    /// For touches, and for waiting that ends with the session.
    ClientScreen& screen() { return _screen; }
    /// Hands on that screen.
    Engine engine() { return Engine(_screen); }
    bool isOver() const { return _screen.isOver(); }
    /// Lets go of the screen and of whatever waits.
    void finish() { _screen.finish(); }

    /// The screen as it stands, after the system's question has been answered where the session says how.
    AccessibilityTree tree();
    /// The same, with the question still on it.
    AccessibilityTree seen() const;
    /// How the client names the element from now on, for as long as its view lives.
    /// `launch` is the one in which it was seen.
    static std::string referenceTo(const Element& element, std::uint64_t launch);
    /// Throws Refusal: no such element for a name that was never given, stale when its view has gone.
    Element element(const AccessibilityTree& tree, const std::string& reference) const;

    Timeouts timeouts() const;
    void setTimeouts(const Timeouts& timeouts);
    nlohmann::json settings() const;
    /// Changes these settings; others stay. Throws Refusal for a value that a setting cannot have.
    void change(const nlohmann::json& settings);
    nlohmann::json capabilities() const;

    /// Where the client's actions have left their pointer, down or not; nullopt before the first.
    std::optional<Point> pointer() const;
    void setPointer(const std::optional<Point>& at);

    /// After a touch or a key: until nothing moves, unless the session says otherwise.
    void settle() const;

private:
    AlertAnswer alertAnswer() const;

    LivePhone& _phone;
    ClientScreen _screen;
    const std::string _id;
    mutable std::mutex _mutex; // guards what follows
    Timeouts _timeouts;
    nlohmann::json _settings = {{"defaultAlertAction", ""}, {"waitForIdleTimeout", 10}};
    std::optional<Point> _pointer;
};

} // namespace phone::webdriver
