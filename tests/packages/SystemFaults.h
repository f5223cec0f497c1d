/// A disk that fails, or a process that ends, at the nth change of the file system.
#pragma once

namespace phone {

/// This test program has its own `rename`, `link`, `symlink`, `mkdir`, `rmdir`, `unlink` and `write`; one of them
/// goes wrong, the others pass on to the C library.
struct SystemFaults {
    enum class Kind { None, Fail, Crash };

    inline static Kind kind = Kind::None;
    inline static int callsLeft = 0;
    /// The exit status after a crash.
    static constexpr int crashed = 77;

    static void after(Kind what, int calls) {
        kind = what;
        callsLeft = calls;
    }
};

} // namespace phone
