#include "phone/webdriver/ClientScreen.h"

#include "phone/elements/Refusal.h"

#include <algorithm>

namespace phone::webdriver {

nlohmann::json ClientScreen::request(const nlohmann::json& command) {
    const std::string what = command.at("do");
    if (what == "advance") {
        pass(command.at("seconds"));
        return {{"ok", true}};
    }
    return what == "touch" ? deliver(command) : _phone.request(command);
}

nlohmann::json ClientScreen::deliver(const nlohmann::json& touch) {
    const std::string phase = touch.at("phase");
    if (phase == "began") {
        takeFinger();
    }
    checkFinger();
    nlohmann::json answer;
    try {
        answer = _phone.request(touch);
    } catch (...) {
        letGo();
        throw;
    }
    if (phase == "ended" || phase == "cancelled") {
        letGo();
    } else {
        const std::lock_guard lock(_mutex);
        _fingerAt = {touch.at("x"), touch.at("y")};
    }
    return answer;
}

void ClientScreen::takeFinger() {
    if (fingerIsDown()) {
        throw Refusal(Error::InvalidElementState, "the session's finger is down already; DELETE actions lifts it");
    }
    auto finger = std::make_unique<LivePhone::Finger>(_phone);
    const std::lock_guard lock(_mutex);
    std::swap(_finger, finger);
}

void ClientScreen::checkFinger() const {
    const std::lock_guard lock(_mutex);
    if (_over) {
        throw Refusal(Error::InvalidSessionId, "the session ended while its finger was on the screen");
    }
    if (!_finger || !_finger->isHeld()) {
        throw Refusal(Error::InvalidElementState, "the session's finger is no longer on the screen");
    }
}

bool ClientScreen::fingerIsDown() const {
    const std::lock_guard lock(_mutex);
    return _finger && _finger->isHeld();
}

void ClientScreen::liftFinger() {
    if (!fingerIsDown()) {
        return letGo();
    }
    ScreenPoint at;
    {
        const std::lock_guard lock(_mutex);
        at = _fingerAt;
    }
    touch(Phase::Ended, at.x, at.y);
}

void ClientScreen::letGo() {
    const std::lock_guard lock(_mutex);
    _finger.reset();
}

void ClientScreen::finish() {
    _over = true;
    letGo();
}

void ClientScreen::pass(double seconds) const {
    constexpr double slice = 0.1;
    for (double left = seconds; left > 0 && !_over; left -= slice) {
        _phone.advance(std::min(left, slice));
    }
}

} // namespace phone::webdriver
