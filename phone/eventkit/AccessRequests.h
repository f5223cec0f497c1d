/// Who has asked for calendars or reminders and waits for the answer.
#pragma once

#include "phone/eventkit/CalendarItems.h"
#include "platform/objc/Block.h"

#include <array>
#include <atomic>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace phone::eventkit {

/// One per process. Every answer comes on a thread of its own with a pool of its own, never inline. The first request
/// of a type asks the person; what the person decides is remembered in the root folder.
class AccessRequests {
public:
    using Completion = objc::Block<void(bool, id)>; // granted, error

    /// When requests that need no person are answered.
    enum class Answers {
        Late,      // once the main loop has come to rest: all that the same touch set off has been done
        Early,     // while the request is being made
        Concurrent // at once, and the main thread goes on meanwhile; with the others it rests
    };

    static AccessRequests& shared();

    void setAnswers(Answers answers) { _answers = answers; }

    /// From any thread. A completion that is none gets no answer.
    void add(EntityType type, Completion completion);
    /// Answers what waits for the main loop to rest; whether there was any. An exception of a completion
    /// goes on from here. Main thread only.
    bool answerWaiting();
    /// Waits for all concurrent answers under way to return; whether there were any. Main thread only. An exception
    /// of such a completion comes in the main thread's next cycle.
    bool waitForConcurrent();
    /// Whether concurrent answers are under way.
    bool isAnswering();

private:
    struct Request {
        EntityType type;
        Completion completion;
    };

    /// An answer on a thread that nobody waits for yet.
    struct UnderWay {
        std::thread thread;
        std::shared_ptr<std::atomic<bool>> hasReturned;
    };

    void ask(EntityType type);
    void decided(EntityType type, bool allowed);
    static void answer(Request request);
    void answerConcurrently(Request request);
    void joinReturned();

    std::mutex _mutex; // guards what follows
    std::vector<Request> _waiting;
    std::vector<UnderWay> _underWay;
    std::array<std::vector<Request>, 2> _asking; // per type, while the person is being asked
    std::atomic<Answers> _answers = Answers::Late;
};

} // namespace phone::eventkit
