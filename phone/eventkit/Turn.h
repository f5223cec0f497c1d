/// One message to the calendar store or to one of its objects.
#pragma once

#include "phone/eventkit/StoreEntry.h"

#include <mutex>

namespace phone::eventkit {

/// The log tells of the message, and until it has been carried out no other thread's is. What it sends itself belongs
/// to it.
class Turn {
public:
    /// The log shows the receiver's own class.
    template <class... A>
    explicit Turn(const objc::Object& receiver, const char* message, const A&... arguments)
        : Turn(object_getClassName(receiver.raw()), message, arguments...) {}
    /// Of a message to a class.
    template <class... A>
    explicit Turn(const char* className, const char* message, const A&... arguments) : _lock(mutex()) {
        addEntry(className, message, nlohmann::json::array({shown(arguments)...}));
    }
    /// Of one that the log does not show.
    Turn() : _lock(mutex()) {}

private:
    static std::recursive_mutex& mutex();

    std::unique_lock<std::recursive_mutex> _lock;
};

} // namespace phone::eventkit
