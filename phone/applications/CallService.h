/// The call: who calls, how far it is, and since when.
#pragma once

#include "phone/device/RunLoop.h"

#include <functional>
#include <string>
#include <utility>

namespace phone {

/// One per process. The telephone's side of a call enters here, and so do the call screen's buttons.
class CallService {
public:
    enum class Phase { Idle, Ringing, Active, Held, Ended };

    static CallService& shared();

    /// "call": a call from the number comes in; "accept"; "hold": holds it, or goes on with it; "cancel":
    /// the call ends. Throws std::invalid_argument for another action, and std::logic_error when there is
    /// no call, or already one, for the action. The number counts for "call" alone.
    void perform(const std::string& action, const std::string& number);

    void call(const std::string& number);
    void accept();
    void hold();
    void end();
    /// The call screen has gone: what ended is over.
    void clear();

    Phase phase() const { return _phase; }
    /// Of the call under way, or of the last one.
    const std::string& number() const { return _number; }
    /// Whole seconds since the call was accepted, up to its end; 0 before.
    long seconds() const;

    /// Called when the phase has changed, and every second of a call. Replaces the one before.
    void setObserver(std::function<void()> observer) { _observer = std::move(observer); }

private:
    bool isUnderWay() const { return _phase != Phase::Idle && _phase != Phase::Ended; }
    void enter(Phase phase);
    void stopClock();
    void notify() const;

    Phase _phase = Phase::Idle;
    std::string _number;
    double _accepted = -1; // moments of the animation clock; negative: not yet
    double _ended = -1;
    RunLoop::TimerId _clock = 0; // runs from accepting to the end; 0: none
    std::function<void()> _observer;
};

} // namespace phone
