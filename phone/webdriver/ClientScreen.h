/// The phone's screen under the finger of one client.
#pragma once

#include "phone/flow/ScreenPoint.h"
#include "phone/live/LivePhone.h"

#include <atomic>
#include <memory>
#include <mutex>

namespace phone::webdriver {

/// Touches take the phone's finger and give it back; it may stay down from one command to the next. Time passes until
/// the client's session is over. Everything else is the phone's. Calls may come from any thread.
class ClientScreen : public Screen {
public:
    explicit ClientScreen(LivePhone& phone) : _phone(phone) {}
    ~ClientScreen() override { finish(); }

    /// Throws Refusal for a touch: when the session is over, when the finger goes down twice, and when it moves without
    /// being down.
    nlohmann::json request(const nlohmann::json& command) override;

    bool fingerIsDown() const;
    /// Where it is; nothing when it is not down.
    void liftFinger();

    bool isOver() const { return _over; }
    /// Lets go of the screen and of whatever waits.
    void finish();

private:
    nlohmann::json deliver(const nlohmann::json& touch);
    void takeFinger();
    void checkFinger() const;
    void letGo();
    void pass(double seconds) const;

    LivePhone& _phone;
    std::atomic<bool> _over = false;
    mutable std::mutex _mutex;                  // guards what follows
    std::unique_ptr<LivePhone::Finger> _finger; // nullptr while it is not down
    ScreenPoint _fingerAt;
};

} // namespace phone::webdriver
