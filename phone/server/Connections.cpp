#include "phone/server/Connections.h"

#include <system_error>
#include <thread>

namespace phone {

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
    try {
        std::thread([work, leave] {
            work();
            leave();
        }).detach();
    } catch (const std::system_error&) {
        work(); // no thread to be had: the others wait this once
        leave();
    }
}

void Connections::shutdown() {
    std::unique_lock lock(_mutex);
    _done.wait(lock, [&] { return _running == 0; });
}

} // namespace phone
