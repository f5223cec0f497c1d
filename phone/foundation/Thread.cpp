#include "phone/foundation/Thread.h"

#include <objc/thr.h>

#include <utility>

// Of Foundation: a thread that it did not make has to tell of itself.
extern "C" {
unsigned char GSRegisterCurrentThread(void);
void GSUnregisterCurrentThread(void);
}

namespace phone {

void prepareForThreads() {
    startThread([] {}).join();
}

std::thread startThread(std::function<void()> work) {
    // Before the thread exists: as long as the runtime knows of one thread only, a table of methods that it
    // replaces is freed at once, whoever may be reading it.
    objc_thread_add();
    return std::thread([work = std::move(work)]() mutable {
        GSRegisterCurrentThread();
        work();
        work = nullptr; // what it holds goes on this thread too
        GSUnregisterCurrentThread();
        objc_thread_remove();
    });
}

} // namespace phone
