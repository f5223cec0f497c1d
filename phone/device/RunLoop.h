/// The main thread's work: what waits for the next cycle, and what waits for a moment of the animation clock.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <utility>
#include <vector>

namespace phone {

/// One per process. Time is the animation clock's, in seconds since the start; it moves only through
/// `advance`, so that a flow's waits cost nothing. A person's phone calls `advance` with real time.
class RunLoop {
public:
    using Work = std::function<void()>;
    using TimerId = std::uint64_t;

    static RunLoop& main();

    /// From any thread.
    double now() const { return _now; }

    /// Runs the work at the start of the next cycle, in order. From any thread.
    void perform(Work work);
    /// Runs the work once, `seconds` from now on the animation clock. Main thread only.
    TimerId after(double seconds, Work work);
    /// Runs the work every `seconds` until cancelled; such a timer does not count as movement.
    TimerId every(double seconds, Work work);
    void cancel(TimerId timer);

    /// Called at the end of each cycle: layout and what depends on it.
    void setEndOfCycle(Work work) { _endOfCycle = std::move(work); }

    /// Asked whenever nothing waits for the next cycle and nothing moves. What answers true has done
    /// something, and the loop goes on.
    void setAtRest(std::function<bool()> work) { _atRest = std::move(work); }

    /// Runs cycles until nothing waits for the next one. The clock stands still.
    void drain();
    /// Moves the clock to `now() + seconds`, stopping at every timer on the way, draining at each.
    void advance(double seconds);
    /// The moment of the next timer that counts as movement; negative when there is none.
    double nextMovement() const;
    /// The moment of the next timer of all; negative when there is none.
    double nextTimer() const;

private:
    struct Timer {
        double due = 0;
        double period = 0; // 0 for a timer that fires once
        Work work;
    };

    void cycle();
    TimerId add(Timer timer);
    template <class Counts>
    double nextDue(const Counts& counts) const;

    std::atomic<double> _now = 0; // written by the main thread alone
    TimerId _lastTimer = 0;
    std::map<TimerId, Timer> _timers;
    std::mutex _mutex; // guards _waiting
    std::vector<Work> _waiting;
    Work _endOfCycle;
    std::function<bool()> _atRest;
};

} // namespace phone
