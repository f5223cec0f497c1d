#include "phone/uikit/MainThreadRelease.h"

#include "phone/device/MainThread.h"
#include "phone/device/RunLoop.h"
#include "phone/foundation/Correct.h"
#include "platform/uikit/UIResponder.h"

namespace phone {

namespace {

constinit void (*releaseHere)(id, SEL) = nullptr;

void release(id self, SEL selector) {
    if (isMainThread()) {
        releaseHere(self, selector);
    } else {
        RunLoop::main().perform([self, selector] { releaseHere(self, selector); });
    }
}

} // namespace

void releaseRespondersOnMainThread() { releaseHere = correct<"release">(objc::classOf<UIResponder>(), &release); }

} // namespace phone
