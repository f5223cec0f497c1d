#include "phone/eventkit/AccessRequests.h"

#include "phone/device/RootFolder.h"
#include "phone/eventkit/AccessPrompt.h"
#include "phone/eventkit/CalendarFolder.h"
#include "phone/foundation/Text.h"
#include "platform/foundation/NSNotification.h"
#include "platform/objc/Exception.h"
#include "platform/objc/Pool.h"

#include <exception>
#include <iterator>
#include <thread>
#include <utility>

// Of Foundation: a thread that it did not make has to tell of itself.
extern "C" {
unsigned char GSRegisterCurrentThread(void);
void GSUnregisterCurrentThread(void);
}

namespace phone::eventkit {

namespace {

constexpr const char* changedNotification = "EKEventStoreChangedNotification";

CalendarFolder folder(EntityType type) { return {RootFolder::path(), type}; }

/// What got out of a completion: an object of the platform's, or a C++ exception.
struct Escaped {
    objc::Object object;
    std::exception_ptr other;
};

} // namespace

AccessRequests& AccessRequests::shared() {
    static auto* requests = new AccessRequests; // never destroyed: the person may answer until the very end
    return *requests;
}

void AccessRequests::add(EntityType type, Completion completion) {
    if (!completion) {
        return;
    }
    Request request{type, std::move(completion)};
    if (folder(type).access() == Access::Ask) {
        auto& asking = _asking[static_cast<std::size_t>(type)];
        bool isFirst = false;
        {
            const std::lock_guard lock(_mutex);
            isFirst = asking.empty();
            asking.push_back(std::move(request));
        }
        if (isFirst) {
            ask(type);
        }
    } else if (_answers == Answers::Early) {
        answer(std::move(request));
    } else {
        const std::lock_guard lock(_mutex);
        _waiting.push_back(std::move(request));
    }
}

bool AccessRequests::answerWaiting() {
    std::vector<Request> all;
    {
        const std::lock_guard lock(_mutex);
        all.swap(_waiting);
    }
    for (Request& request : all) {
        answer(std::move(request));
    }
    return !all.empty();
}

void AccessRequests::ask(EntityType type) {
    askPerson(accessQuestion(type, [this, type](bool allowed) { decided(type, allowed); }));
}

void AccessRequests::decided(EntityType type, bool allowed) {
    try {
        folder(type).setAccess(allowed ? Access::Allow : Access::Deny);
    } catch (const CalendarFolderError&) {
        // Not remembered: the person will be asked again. Nobody is told, as on a device.
    }
    {
        const std::lock_guard lock(_mutex);
        auto& asking = _asking[static_cast<std::size_t>(type)];
        std::move(asking.begin(), asking.end(), std::back_inserter(_waiting));
        asking.clear();
    }
    if (allowed) {
        NSNotificationCenter::defaultCenter().post(string(changedNotification), nullptr, nullptr);
    }
}

void AccessRequests::answer(Request request) {
    const bool granted = folder(request.type).access() == Access::Allow;
    Escaped escaped;
    std::thread thread([&escaped, granted, completion = std::move(request.completion)]() mutable {
        GSRegisterCurrentThread();
        {
            const objc::Pool pool; // outside, so that what is thrown outlives the frames it leaves
            try {
                completion(granted, nullptr);
                completion = nullptr; // what it holds goes on this thread too
            } catch (...) {
                escaped.object = objc::caughtObject();
                escaped.other = std::current_exception();
            }
        }
        GSUnregisterCurrentThread();
    });
    thread.join();
    if (escaped.object) {
        // Raising keeps nothing alive: the pool does, until the exception has been caught.
        objc::detail::call<id>(objc::Object(escaped.object).relinquish(), objc::selector<"autorelease">());
        escaped.object.send<"raise">();
    } else if (escaped.other) {
        std::rethrow_exception(escaped.other);
    }
}

} // namespace phone::eventkit
