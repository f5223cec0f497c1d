#include "phone/server/Connections.h"

#include <system_error>
#include <thread>

namespace phone {

namespace {

constexpr std::chrono::milliseconds longestPause{100};

} // namespace

void Connections::enqueue(std::function<void()> work) {
    {
        const std::lock_guard lock(_mutex);
        ++_running;
    }
    const auto leave = [this] {
        const std::lock_guard lock(_mutex);
        --_running;
        _done.notify_all();
    };
    for (;;) {
        try {
            std::thread([work, leave] {
                work();
                leave();
            }).detach();
            return;
        } catch (const std::system_error&) { // none to be had: until another ends
            std::unique_lock lock(_mutex);
            _done.wait_for(lock, longestPause);
        }
    }
}

void Connections::shutdown() {
    std::unique_lock lock(_mutex);
    _done.wait(lock, [&] { return _running == 0; });
}

} // namespace phone
