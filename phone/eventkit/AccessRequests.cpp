#include "phone/eventkit/AccessRequests.h"

#include "phone/device/RootFolder.h"
#include "phone/device/RunLoop.h"
#include "phone/eventkit/AccessPrompt.h"
#include "phone/eventkit/CalendarFolder.h"
#include "phone/eventkit/LiveStores.h"
#include "phone/foundation/Thread.h"
#include "platform/objc/Exception.h"
#include "platform/objc/Pool.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <utility>

namespace phone::eventkit {

namespace {

CalendarFolder folder(EntityType type) { return {RootFolder::path(), type}; }

/// What got out of a completion: an object of the platform's, or a C++ exception; mostly nothing.
struct Escaped {
    objc::Object object;
    std::exception_ptr other;

    explicit operator bool() const { return object || other; }
    /// Goes on with it, on the calling thread.
    void raise() const {
        if (object) {
            // Raising keeps nothing alive: the pool does, until the exception has been caught.
            objc::detail::call<id>(objc::Object(object).relinquish(), objc::selector<"autorelease">());
            object.send<"raise">();
        } else if (other) {
            std::rethrow_exception(other);
        }
    }
};

/// Calls the completion on this thread; what it holds goes here too.
Escaped complete(AccessRequests::Completion completion, EntityType type) {
    Escaped escaped;
    const objc::Pool pool; // outside, so that what is thrown outlives the frames it leaves
    try {
        completion(folder(type).access() == Access::Allow, nullptr);
        completion = nullptr;
    } catch (...) {
        escaped.object = objc::caughtObject();
        escaped.other = std::current_exception();
    }
    return escaped;
}

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
    } else if (_answers == Answers::Concurrent) {
        answerConcurrently(std::move(request));
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
        LiveStores::announceChange();
    }
}

void AccessRequests::answer(Request request) {
    Escaped escaped;
    startThread([&] { escaped = complete(std::move(request.completion), request.type); }).join();
    escaped.raise();
}

void AccessRequests::answerConcurrently(Request request) {
    joinReturned();
    auto hasReturned = std::make_shared<std::atomic<bool>>(false);
    std::thread thread = startThread([request = std::move(request), hasReturned]() mutable {
        if (Escaped escaped = complete(std::move(request.completion), request.type)) {
            RunLoop::main().perform([escaped] { escaped.raise(); });
        }
        *hasReturned = true;
    });
    const std::lock_guard lock(_mutex);
    _underWay.push_back({std::move(thread), std::move(hasReturned)});
}

/// So that threads that have ended are not gathered for ever.
void AccessRequests::joinReturned() {
    std::vector<UnderWay> returned;
    {
        const std::lock_guard lock(_mutex);
        const auto first =
            std::partition(_underWay.begin(), _underWay.end(), [](const UnderWay& one) { return !*one.hasReturned; });
        std::move(first, _underWay.end(), std::back_inserter(returned));
        _underWay.erase(first, _underWay.end());
    }
    for (UnderWay& one : returned) {
        one.thread.join();
    }
}

bool AccessRequests::isAnswering() {
    const std::lock_guard lock(_mutex);
    return std::any_of(_underWay.begin(), _underWay.end(), [](const UnderWay& one) { return !*one.hasReturned; });
}

bool AccessRequests::waitForConcurrent() {
    std::vector<UnderWay> all;
    {
        const std::lock_guard lock(_mutex);
        all.swap(_underWay);
    }
    for (UnderWay& one : all) {
        one.thread.join();
    }
    return !all.empty();
}

} // namespace phone::eventkit
