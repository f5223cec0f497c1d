/// What one client has set up, and how its commands reach the phone.
#pragma once

#include "phone/elements/AccessibilityTree.h"
#include "phone/elements/Refusal.h"
#include "phone/flow/Engine.h"
#include "phone/live/LivePhone.h"

#include <atomic>
#include <mutex>
#include <string>

namespace phone::webdriver {

/// As people see it under its icon.
inline constexpr const char* applicationName = "Phone";
/// The system that the phone stands for.
inline constexpr const char* systemVersion = "7.0";

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

    Session(LivePhone& phone, std::string id) : _phone(phone), _id(std::move(id)) {}
    ~Session() { finish(); }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    const std::string& id() const { return _id; }
    LivePhone& phone() const { return _phone; }
    Engine engine() const { return Engine(_phone); }
    bool isOver() const { return _over; }
    /// Lets go of the screen and of whatever waits.
    void finish();

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

    /// The client's finger, which may stay down from one command to the next. Throws Refusal when the session is over,
    /// when it goes down twice, and when it moves without being down.
    void putFinger(Screen::Phase phase, const Point& point);
    /// Lets time pass, until the session is over.
    void pass(double seconds) const;
    bool fingerIsDown() const;
    void liftFinger();
    /// Where the client's actions have left their pointer, down or not; nullopt before the first.
    std::optional<Point> pointer() const;
    void setPointer(const std::optional<Point>& at);

    /// After a touch or a key: until nothing moves, unless the session says otherwise.
    void settle() const;

private:
    AlertAnswer alertAnswer() const;
    void takeFinger();
    void checkFinger() const;

    LivePhone& _phone;
    const std::string _id;
    std::atomic<bool> _over = false;
    mutable std::mutex _mutex; // guards what follows
    Timeouts _timeouts;
    nlohmann::json _settings = {{"defaultAlertAction", ""}, {"waitForIdleTimeout", 10}};
    std::unique_ptr<LivePhone::Finger> _finger; // nullptr while it is not down
    Point _fingerAt;
    std::optional<Point> _pointer;
};

} // namespace phone::webdriver
