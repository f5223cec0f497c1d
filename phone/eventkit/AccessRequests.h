/// Who has asked for calendars or reminders and waits for the answer.
#pragma once

#include "phone/eventkit/CalendarItems.h"
#include "platform/objc/Block.h"

#include <array>
#include <mutex>
#include <vector>

namespace phone::eventkit {

/// One per process. Every answer comes on a thread of its own with a pool of its own, never inline; the
/// thread that gives it rests meanwhile. The first request of a type asks the person; what the person
/// decides is remembered in the root folder.
class AccessRequests {
public:
    using Completion = objc::Block<void(bool, id)>; // granted, error

    /// When requests that need no person are answered.
    enum class Answers {
        Late, // once the main loop has come to rest: all that the same touch set off has been done
        Early // while the request is being made
    };

    static AccessRequests& shared();

    void setAnswers(Answers answers) { _answers = answers; }

    /// From any thread. A completion that is none gets no answer.
    void add(EntityType type, Completion completion);
    /// Answers what waits for the main loop to rest; whether there was any. An exception of a completion
    /// goes on from here. Main thread only.
    bool answerWaiting();

private:
    struct Request {
        EntityType type;
        Completion completion;
    };

    void ask(EntityType type);
    void decided(EntityType type, bool allowed);
    static void answer(Request request);

    std::mutex _mutex; // guards the requests
    std::vector<Request> _waiting;
    std::array<std::vector<Request>, 2> _asking; // per type, while the person is being asked
    Answers _answers = Answers::Late;
};

} // namespace phone::eventkit
