#include "phone/uikit/Window.h"

#include "phone/uikit/Interface.h"
#include "phone/uikit/TouchDelivery.h"
#include "platform/uikit/UIApplication.h"

#include <algorithm>

namespace phone {

namespace {

std::vector<id>& order() {
    static auto* windows = new std::vector<id>; // not retained: a window that goes away takes itself out
    return *windows;
}

constinit id keyWindow = nullptr;

/// Brings a window to the front of its level.
void enter(id window) {
    auto& windows = order();
    std::erase(windows, window);
    const UIWindowLevel level = objc::borrow<UIWindow>(window).windowLevel();
    const auto above = std::find_if(windows.begin(), windows.end(),
                                    [&](id other) { return objc::borrow<UIWindow>(other).windowLevel() > level; });
    windows.insert(above, window);
}

} // namespace

void Window::initWithFrame(CGRect frame) {
    super<"initWithFrame:">(frame);
    super<"setHidden:">(true);
    enter(raw());
}

Window::~Window() {
    std::erase(order(), raw());
    if (keyWindow == raw()) {
        keyWindow = nullptr;
    }
}

std::vector<UIWindow> Window::all() {
    std::vector<UIWindow> windows;
    for (id window : order()) {
        windows.push_back(objc::borrow<UIWindow>(window));
    }
    return windows;
}

UIWindow Window::front() {
    const auto windows = all();
    const auto found = std::find_if(windows.rbegin(), windows.rend(), [](const UIWindow& window) {
        return window.windowLevel() == 0 && !window.isHidden() && window.rootViewController();
    });
    return found == windows.rend() ? UIWindow() : *found;
}

UIWindow Window::key() { return objc::borrow<UIWindow>(keyWindow); }

void Window::setRootViewController(const UIViewController& controller) {
    if (controller == _root) {
        return;
    }
    if (_root && _root.isViewLoaded()) {
        _root.view().removeFromSuperview();
    }
    _root = controller;
    if (!isHidden()) {
        showRoot();
    }
}

void Window::showRoot() {
    if (!_root || _root.view().superview() == *this) {
        return;
    }
    const UIView view = _root.view();
    if (front() == *this) {
        Interface::shared().adopt(_root);
    }
    Interface::shared().fill(view, objc::borrow<UIWindow>(raw()));
    view.setAutoresizingMask(
        static_cast<UIViewAutoresizing>(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight));
    insertSubview(view, 0);
}

void Window::setWindowLevel(UIWindowLevel level) {
    _level = level;
    enter(raw());
}

bool Window::isKeyWindow() const { return keyWindow == raw(); }

void Window::makeKeyWindow() { keyWindow = raw(); }

void Window::makeKeyAndVisible() {
    makeKeyWindow();
    send<"setHidden:">(false);
}

void Window::setHidden(bool hidden) {
    const bool shows = isHidden() && !hidden;
    super<"setHidden:">(hidden);
    if (shows) {
        enter(raw());
        showRoot();
    }
}

void Window::sendEvent(const UIEvent& event) { TouchDelivery::shared().deliver(event); }

UIResponder Window::nextResponder() const { return UIApplication::shared(); }

} // namespace phone
