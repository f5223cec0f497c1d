#include "phone/foundation/WallClock.h"

#include <sys/time.h>

#include <atomic>
#include <cmath>
#include <ctime>

namespace phone {

namespace {

constexpr double microsecondsPerSecond = 1e6;

// Both change together only while one thread sets the clock; a reader takes whichever it finds.
constinit std::atomic<bool> standsStill = false;
constinit std::atomic<double> moment = 0; // the time itself, or while the clock runs what it is ahead of the host's

// Not the C library's gettimeofday, which is this file's own.
double hostTime() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

} // namespace

void WallClock::set(double unixSeconds) {
    moment = unixSeconds;
    standsStill = true;
}

void WallClock::run(double from) {
    moment = from - hostTime();
    standsStill = false;
}

double WallClock::now() { return standsStill ? moment.load() : hostTime() + moment; }

} // namespace phone

// The clocks by which Foundation and SQLite tell the time. `clock_gettime` stays the host's: waiting on a
// condition with a time limit goes by it.
extern "C" {

int gettimeofday(timeval* time, void*) noexcept {
    const double now = phone::WallClock::now();
    const double seconds = std::floor(now);
    time->tv_sec = static_cast<time_t>(seconds);
    time->tv_usec = static_cast<suseconds_t>(std::floor((now - seconds) * phone::microsecondsPerSecond));
    return 0;
}

time_t time(time_t* into) noexcept {
    const auto now = static_cast<time_t>(std::floor(phone::WallClock::now()));
    if (into != nullptr) {
        *into = now;
    }
    return now;
}

} // extern "C"
