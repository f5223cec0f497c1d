#include "phone/live/LiveFlowPhone.h"

#include <algorithm>

namespace phone {

namespace {
constexpr double longestStep = 0.25; // seconds that pass before a cancelled command notices
} // namespace

Screen* LiveFlowPhone::screen() { return _phone.status().life == LivePhone::Life::Running ? this : nullptr; }

void LiveFlowPhone::start(const LaunchSettings& settings, double now) {
    checkGoingOn();
    _phone.chooseClock(now);
    _phone.launch(settings);
}

nlohmann::json LiveFlowPhone::request(const nlohmann::json& command) {
    checkGoingOn();
    const std::string what = command.at("do");
    if (what == "setClock") {
        _phone.chooseClock(command.at("seconds").get<double>());
        return {{"ok", true}};
    }
    if (what != "advance") {
        return _phone.request(command);
    }
    nlohmann::json answer;
    double left = command.at("seconds");
    do {
        const double step = std::min(left, longestStep);
        answer = _phone.request({{"do", "advance"}, {"seconds", step}});
        left -= step;
        checkGoingOn();
    } while (left > 0);
    return answer;
}

void LiveFlowPhone::checkGoingOn() const {
    if (_cancelled) {
        throw ScreenError("the play was stopped");
    }
}

} // namespace phone
