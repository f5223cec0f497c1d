#include "phone/uikit/MainThreadRelease.h"

#include "phone/device/RunLoop.h"
#include "phone/foundation/Correct.h"
#include "platform/uikit/UIResponder.h"

#include <thread>

namespace phone {

namespace {

constinit void (*releaseHere)(id, SEL) = nullptr;
std::thread::id mainThread;

void release(id self, SEL selector) {
    if (std::this_thread::get_id() == mainThread) {
        releaseHere(self, selector);
    } else {
        RunLoop::main().perform([self, selector] { releaseHere(self, selector); });
    }
}

} // namespace

void releaseRespondersOnMainThread() {
    mainThread = std::this_thread::get_id();
    releaseHere = correct<"release">(objc::classOf<UIResponder>(), &release);
}

} // namespace phone
