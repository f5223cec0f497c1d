#include "phone/device/RunLoop.h"

#include <algorithm>
#include <cmath>

namespace phone {

RunLoop& RunLoop::main() {
    static auto* loop = new RunLoop; // never destroyed: work may come until the very end
    return *loop;
}

void RunLoop::perform(Work work) {
    std::lock_guard lock(_mutex);
    _waiting.push_back(std::move(work));
}

RunLoop::TimerId RunLoop::add(Timer timer) {
    _timers.emplace(++_lastTimer, std::move(timer));
    return _lastTimer;
}

RunLoop::TimerId RunLoop::after(double seconds, Work work) {
    return add({.due = _now + std::max(seconds, 0.0), .period = 0, .work = std::move(work)});
}

RunLoop::TimerId RunLoop::every(double seconds, Work work) {
    return add({.due = _now + seconds, .period = seconds, .work = std::move(work)});
}

void RunLoop::cancel(TimerId timer) { _timers.erase(timer); }

void RunLoop::cycle() {
    std::vector<Work> batch;
    {
        std::lock_guard lock(_mutex);
        batch.swap(_waiting);
    }
    for (Work& work : batch) {
        work();
    }
    if (_endOfCycle) {
        _endOfCycle();
    }
}

void RunLoop::drain() {
    for (;;) {
        cycle();
        {
            std::lock_guard lock(_mutex);
            if (!_waiting.empty()) {
                continue;
            }
        }
        const bool isAtRest = nextMovement() < 0;
        if (!isAtRest || !_atRest || !_atRest()) {
            return;
        }
    }
}

void RunLoop::advance(double seconds) {
    const double end = _now + seconds;
    drain();
    for (;;) {
        auto next = std::min_element(_timers.begin(), _timers.end(),
                                     [](const auto& a, const auto& b) { return a.second.due < b.second.due; });
        if (next == _timers.end() || next->second.due > end) {
            break;
        }
        _now = std::max(now(), next->second.due);
        if (next->second.period > 0) {
            next->second.due += next->second.period;
            Work work = next->second.work;
            work();
        } else {
            Work work = std::move(next->second.work);
            _timers.erase(next);
            work();
        }
        drain();
    }
    _now = end;
    drain();
}

double RunLoop::nextMovement() const {
    return nextDue([](const Timer& timer) { return timer.period == 0; });
}

double RunLoop::nextTimer() const {
    return nextDue([](const Timer&) { return true; });
}

template <class Counts>
double RunLoop::nextDue(const Counts& counts) const {
    double first = -1;
    for (const auto& [id, timer] : _timers) {
        if (counts(timer) && (first < 0 || timer.due < first)) {
            first = timer.due;
        }
    }
    return first;
}

} // namespace phone
