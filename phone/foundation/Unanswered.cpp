#include "phone/foundation/Unanswered.h"

#include "phone/device/Log.h"
#include "phone/foundation/Correct.h"
#include "phone/foundation/Raise.h"
#include "platform/foundation/NSObject.h"

#include <objc/message.h>

#include <cstdio>
#include <string>

namespace phone {

namespace {

using Forward = IMP (*)(id, SEL);

Forward previousForward = nullptr;
IMP plainForwardInvocation = nullptr;
IMP plainForwardingTarget = nullptr;

// The message being missed. The runtime looks an implementation up and calls it at once; what it calls
// cannot trust its arguments, for a large result shifts them.
thread_local id missedReceiver = nullptr;
thread_local SEL missedSelector = nullptr;

[[noreturn]] void doesNotRecognize(id self, SEL, SEL selector) {
    const bool isClass = class_isMetaClass(object_getClass(self));
    const std::string name = isClass ? class_getName(reinterpret_cast<Class>(self)) : object_getClassName(self);
    const std::string selectorName = sel_getName(selector);
    Log::shared().add("unanswered", {{"class", name}, {"selector", selectorName}});
    char address[2 + 2 * sizeof(void*) + 1];
    std::snprintf(address, sizeof address, "%p", static_cast<void*>(self));
    raise("NSInvalidArgumentException", (isClass ? "+[" : "-[") + name + " " + selectorName +
                                            "]: unrecognized selector sent to " + (isClass ? "class " : "instance ") +
                                            address);
}

void missed() {
    objc::detail::call<void>(missedReceiver, objc::selector<"doesNotRecognizeSelector:">(), missedSelector);
}

bool forwardsItself(id receiver) {
    Class cls = object_getClass(receiver);
    Method invocation = class_getInstanceMethod(cls, objc::selector<"forwardInvocation:">());
    Method target = class_getInstanceMethod(cls, objc::selector<"forwardingTargetForSelector:">());
    const bool plain = invocation != nullptr && method_getImplementation(invocation) == plainForwardInvocation &&
                       target != nullptr && method_getImplementation(target) == plainForwardingTarget;
    return !plain;
}

// The receiver is nil when an implementation is only asked for.
IMP forward(id receiver, SEL selector) {
    if (receiver == nullptr || forwardsItself(receiver)) {
        return previousForward == nullptr ? nullptr : previousForward(receiver, selector);
    }
    missedReceiver = receiver;
    missedSelector = selector;
    return reinterpret_cast<IMP>(&missed);
}

IMP plainImplementation(SEL selector) {
    return method_getImplementation(class_getInstanceMethod(objc::classOf<NSObject>(), selector));
}

} // namespace

void installUnanswered() {
    const Class object = objc::classOf<NSObject>();
    correct<"doesNotRecognizeSelector:">(object, &doesNotRecognize);
    correctClass<"doesNotRecognizeSelector:">(object, &doesNotRecognize);
    plainForwardInvocation = plainImplementation(objc::selector<"forwardInvocation:">());
    plainForwardingTarget = plainImplementation(objc::selector<"forwardingTargetForSelector:">());
    previousForward = __objc_msg_forward2;
    __objc_msg_forward2 = &forward;
}

} // namespace phone
