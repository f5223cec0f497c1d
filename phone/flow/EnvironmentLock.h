/// One thread at a time at the process's environment.
#pragma once

#include <mutex>

namespace phone {

/// To be held by whoever sets a variable for a while, and by whoever reads one that may be set so.
class EnvironmentLock {
public:
    EnvironmentLock() : _lock(mutex()) {}

private:
    static std::mutex& mutex() {
        static std::mutex one;
        return one;
    }

    std::lock_guard<std::mutex> _lock;
};

} // namespace phone
