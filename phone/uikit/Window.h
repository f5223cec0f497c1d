/// A layer of the screen with a tree of views of its own.
#pragma once

#include "phone/uikit/View.h"

#include <vector>

namespace phone {

/// UIWindow. Hidden until `makeKeyAndVisible`; nothing but its owner keeps it alive.
class Window : public objc::Implements<Window, UIWindow, UIView> {
public:
    static void define(objc::ClassTable<Window>& c) {
        c.init<"initWithFrame:", &Window::initWithFrame>()
            .def<"rootViewController", &Window::rootViewController>()
            .def<"setRootViewController:", &Window::setRootViewController>()
            .get<"windowLevel", &Window::_level>()
            .def<"setWindowLevel:", &Window::setWindowLevel>()
            .def<"isKeyWindow", &Window::isKeyWindow>()
            .def<"makeKeyWindow", &Window::makeKeyWindow>()
            .def<"makeKeyAndVisible", &Window::makeKeyAndVisible>()
            .overrides<"setHidden:", &Window::setHidden>()
            .overrides<"nextResponder", &Window::nextResponder>()
            .def<"sendEvent:", &Window::sendEvent>();
    }
    ~Window();

    /// All windows, back to front: by level, and within a level in the order in which they were shown.
    static std::vector<UIWindow> all();
    /// The one that keys go to; nil while there is none.
    static UIWindow key();
    /// The frontmost that is shown, stands at the application's own level and has a root; nil when there is none.
    static UIWindow front();

    UIViewController rootViewController() const { return _root; }
    /// The controller's view fills the window, in place of the earlier controller's.
    void setRootViewController(const UIViewController& controller);
    void setWindowLevel(UIWindowLevel level);
    bool isKeyWindow() const;
    void makeKeyWindow();
    void makeKeyAndVisible();
    void setHidden(bool hidden);
    void sendEvent(const UIEvent& event);
    UIResponder nextResponder() const;

private:
    void initWithFrame(CGRect frame);
    void showRoot();

    UIViewController _root; // nil until set
    UIWindowLevel _level = 0;
};

} // namespace phone
