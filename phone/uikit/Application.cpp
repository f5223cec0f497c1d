#include "phone/uikit/Application.h"

#include "phone/foundation/Arrays.h"
#include "phone/foundation/Text.h"
#include "phone/uikit/Interface.h"
#include "phone/uikit/StatusBar.h"
#include "phone/uikit/Touch.h"
#include "phone/uikit/TouchDelivery.h"
#include "phone/uikit/Window.h"
#include "platform/foundation/NSNotification.h"

#include <algorithm>
#include <string_view>

namespace phone {

namespace {

UIResponder responderFor(SEL action, UIResponder from) {
    while (from && !from.respondsTo(action)) {
        from = from.nextResponder();
    }
    return from;
}

void deliver(SEL action, const objc::Object& target, const objc::Object& sender, const UIEvent& event) {
    const std::string_view name = sel_getName(action);
    const objc::Keep kept(target.raw());
    switch (std::count(name.begin(), name.end(), ':')) {
    case 0:
        return objc::detail::call<void>(target.raw(), action);
    case 1:
        return objc::detail::call<void>(target.raw(), action, sender.raw());
    default:
        return objc::detail::call<void>(target.raw(), action, sender.raw(), event.raw());
    }
}

} // namespace

UIApplication Application::sharedApplication() {
    static constinit objc::Global<UIApplication> application;
    if (!application) {
        application = objc::make<UIApplication>();
    }
    return application;
}

NSArray Application::windows() const { return arrayOf(Window::all()); }

UIWindow Application::keyWindow() const { return Window::key(); }

UIInterfaceOrientation Application::statusBarOrientation() const { return Interface::shared().orientation(); }

CGRect Application::statusBarFrame() const {
    const Interface& interface = Interface::shared();
    return interface.told({0, 0, interface.size().width, statusBarHeight});
}

void Application::beginIgnoring() {
    ++_ignoring;
    TouchDelivery::shared().cancel();
}

void Application::endIgnoring() {
    _ignoring = std::max(0, _ignoring - 1);
    if (_ignoring == 0) {
        Interface::shared().transitionsEnded();
    }
}

void Application::sendEvent(const UIEvent& event) {
    if (const auto* touch = Touch::of(event.allTouches().any<UITouch>())) {
        touch->window().send<"sendEvent:">(event);
    }
}

bool Application::sendAction(SEL action, const objc::Object& target, const objc::Object& sender, const UIEvent& event) {
    if (action == nullptr) {
        return false;
    }
    objc::Object receiver = target;
    if (!receiver) {
        receiver = responderFor(action, Responder::first());
    }
    if (!receiver && objc::isKind<UIResponder>(sender)) {
        receiver = responderFor(action, objc::as<UIResponder>(sender));
    }
    if (!receiver) {
        return false;
    }
    deliver(action, receiver, sender, event);
    return true;
}

void Application::warnOfMemory() const {
    const UIApplication application = *this;
    const objc::Object told = delegate();
    if (objc::responds<"applicationDidReceiveMemoryWarning:">(told)) {
        told.send<"applicationDidReceiveMemoryWarning:">(application);
    }
    NSNotificationCenter::defaultCenter().post(string(memoryWarning), application, nullptr);
}

void Application::layoutWindows() {
    for (const UIWindow& window : Window::all()) {
        if (!window.isHidden()) {
            View::of(window)->layoutTree();
            View::of(window)->displayTree();
        }
    }
}

} // namespace phone
