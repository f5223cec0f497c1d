/// The device's wall clock: what `NSDate` and the C library's clocks of this process answer.
#pragma once

namespace phone {

/// One per process; seconds since 1970, UTC. Until it is told otherwise it is the host's clock.
struct WallClock {
    /// The clock stands still at this moment until it is set again.
    static void set(double unixSeconds);
    /// The clock moves by itself, starting from this moment now.
    static void run(double from);
    static double now();
};

} // namespace phone
