#include "phone/server/PageRecording.h"

#include "phone/eventkit/CalendarFolder.h"
#include "phone/flow/InputError.h"
#include "phone/flow/LocalTime.h"
#include "phone/server/SettingsPane.h"

#include <cmath>

namespace phone {

namespace {

double steadySeconds() { return std::chrono::duration<double>(LivePhone::Clock::now().time_since_epoch()).count(); }

/// The local time without its zone.
std::string localTime(double moment, const std::string& zone) {
    return iso8601(moment, zone).substr(0, std::string_view("2026-03-05T14:37:12").size());
}

} // namespace

void PageRecording::start() {
    const std::lock_guard lock(_mutex);
    if (_on) {
        throw InputError("a recording runs already");
    }
    const LivePhone::Status status = _phone.status();
    const bool runs = status.life == LivePhone::Life::Running;
    const double now =
        std::floor(runs ? _phone.state().at("clock").get<double>() : static_cast<double>(std::time(nullptr)));
    FlowRecorder::Beginning beginning{status.settings,
                                      localTime(now, status.settings.zone),
                                      {},
                                      CalendarFolder(_phone.root(), EntityType::Reminder).access(),
                                      CalendarFolder(_phone.root(), EntityType::Event).access()};
    for (const SettingsSwitch& one : settingsSwitches(_phone.root())) {
        beginning.switches.emplace_back(one.key, one.chosen);
    }
    _phone.chooseClock(now);
    _phone.launch();
    _recorder.emplace(beginning);
    _stoppedClock = !status.clockStands;
    _on = true;
    _phone.announce();
}

void PageRecording::stop() {
    const std::lock_guard lock(_mutex);
    if (!_on) {
        throw InputError("no recording runs");
    }
    look();
    _on = false;
    if (_stoppedClock) {
        _phone.chooseClock(std::nullopt);
    }
    _phone.announce();
}

bool PageRecording::isOn() const {
    const std::lock_guard lock(_mutex);
    return _on;
}

std::size_t PageRecording::count() const {
    const std::lock_guard lock(_mutex);
    return _recorder ? _recorder->count() : 0;
}

std::string PageRecording::text() {
    const std::lock_guard lock(_mutex);
    if (!_recorder) {
        throw InputError("nothing has been recorded");
    }
    if (_on) {
        look();
    }
    return _recorder->text();
}

void PageRecording::look() {
    if (_recorder->wantsLook() && _phone.status().life == LivePhone::Life::Running) {
        _recorder->look(_phone.tree(true));
    }
}

FlowRecorder::Moment PageRecording::moment() {
    const std::lock_guard lock(_mutex);
    if (_on) {
        look();
    }
    return {steadySeconds(), _phone.isMoving()};
}

std::string PageRecording::tree(const ScreenPoint& point) {
    const std::lock_guard lock(_mutex);
    return _on ? _phone.treeAt(point.x, point.y) : "";
}

} // namespace phone
