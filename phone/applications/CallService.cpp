#include "phone/applications/CallService.h"

#include <stdexcept>

namespace phone {

CallService& CallService::shared() {
    static auto* service = new CallService; // never destroyed: timers may refer to it until the very end
    return *service;
}

void CallService::perform(const std::string& action, const std::string& number) {
    if (action == "call") {
        call(number);
    } else if (action == "accept") {
        accept();
    } else if (action == "hold") {
        hold();
    } else if (action == "cancel") {
        end();
    } else {
        throw std::invalid_argument("no such action of a call: " + action);
    }
}

void CallService::call(const std::string& number) {
    if (isUnderWay()) {
        throw std::logic_error("there is a call already");
    }
    _number = number;
    _accepted = _ended = -1;
    enter(Phase::Ringing);
}

void CallService::accept() {
    if (_phase != Phase::Ringing) {
        throw std::logic_error("no call is ringing");
    }
    _accepted = RunLoop::main().now();
    _clock = RunLoop::main().every(1, [this] { notify(); });
    enter(Phase::Active);
}

void CallService::hold() {
    if (_phase != Phase::Active && _phase != Phase::Held) {
        throw std::logic_error("no call has been accepted");
    }
    enter(_phase == Phase::Active ? Phase::Held : Phase::Active);
}

void CallService::end() {
    if (!isUnderWay()) {
        throw std::logic_error("there is no call");
    }
    stopClock();
    _ended = RunLoop::main().now();
    enter(Phase::Ended);
}

void CallService::clear() {
    if (_phase == Phase::Ended) {
        enter(Phase::Idle);
    }
}

long CallService::seconds() const {
    if (_accepted < 0) {
        return 0;
    }
    return static_cast<long>((_ended < 0 ? RunLoop::main().now() : _ended) - _accepted);
}

void CallService::enter(Phase phase) {
    _phase = phase;
    notify();
}

void CallService::stopClock() {
    if (_clock != 0) {
        RunLoop::main().cancel(_clock);
        _clock = 0;
    }
}

void CallService::notify() const {
    if (_observer) {
        _observer();
    }
}

} // namespace phone
