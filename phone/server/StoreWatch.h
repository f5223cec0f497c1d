/// Notices when files below a folder change, whoever changes them.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace phone {

/// Sleeps until the system tells of a change. What cannot be watched is passed over.
class StoreWatch {
public:
    /// Watches these folders with all that are in them, those that come later too. `changed` is called on a thread of
    /// its own, once for what comes in one go.
    StoreWatch(std::vector<std::string> folders, std::function<void()> changed);
    ~StoreWatch();
    StoreWatch(const StoreWatch&) = delete;
    StoreWatch& operator=(const StoreWatch&) = delete;

    /// Counts up with each change.
    std::uint64_t version() const { return _version; }

private:
    void watchAll();
    void run();

    std::vector<std::string> _folders;
    std::function<void()> _changed;
    std::atomic<std::uint64_t> _version = 1;
    int _watcher = -1;
    int _end = -1; // rung to end the thread
    std::thread _thread;
};

} // namespace phone
