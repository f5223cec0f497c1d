/// A thread for each connection.
#pragma once

#include <httplib.h>

#include <condition_variable>
#include <mutex>

namespace phone {

class Connections : public httplib::TaskQueue {
public:
    /// Runs the work on a thread of its own, as soon as one can be had.
    void enqueue(std::function<void()> work) override;
    /// Waits until all work is done.
    void shutdown() override;

private:
    std::mutex _mutex;
    std::condition_variable _done;
    int _running = 0;
};

} // namespace phone
