#include "phone/server/StoreWatch.h"

#include <array>
#include <filesystem>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace phone {

namespace fs = std::filesystem;

namespace {

// Closing is none of these: who has only read a store has opened it for writing too.
constexpr std::uint32_t watched = IN_MODIFY | IN_MOVED_FROM | IN_MOVED_TO | IN_CREATE | IN_DELETE;
constexpr int together = 20; // milliseconds in which changes count as one

} // namespace

StoreWatch::StoreWatch(std::vector<std::string> folders, std::function<void()> changed)
    : _folders(std::move(folders)), _changed(std::move(changed)), _watcher(inotify_init1(IN_CLOEXEC | IN_NONBLOCK)),
      _end(eventfd(0, EFD_CLOEXEC)) {
    watchAll();
    _thread = std::thread([this] { run(); });
}

StoreWatch::~StoreWatch() {
    eventfd_write(_end, 1);
    _thread.join();
    close(_watcher);
    close(_end);
}

void StoreWatch::watchAll() {
    for (const std::string& folder : _folders) {
        std::error_code ignored;
        inotify_add_watch(_watcher, folder.c_str(), watched);
        for (fs::recursive_directory_iterator at(folder, ignored), end; !ignored && at != end; at.increment(ignored)) {
            if (at->is_directory(ignored)) {
                inotify_add_watch(_watcher, at->path().c_str(), watched);
            }
        }
    }
}

void StoreWatch::run() {
    std::array<pollfd, 2> waiting = {{{_watcher, POLLIN, 0}, {_end, POLLIN, 0}}};
    for (;;) {
        poll(waiting.data(), waiting.size(), -1);
        // What is written in several steps is told of once.
        pollfd ending = waiting[1];
        if (poll(&ending, 1, together) > 0) {
            return;
        }
        alignas(inotify_event) std::array<char, 16384> events{};
        bool newFolder = false;
        for (ssize_t size = 0; (size = read(_watcher, events.data(), events.size())) > 0;) {
            for (ssize_t at = 0; at < size;) {
                const auto* event = reinterpret_cast<const inotify_event*>(events.data() + at);
                newFolder = newFolder || (event->mask & (IN_ISDIR | IN_Q_OVERFLOW)) != 0;
                at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
            }
        }
        if (newFolder) {
            watchAll();
        }
        ++_version;
        _changed();
    }
}

} // namespace phone
