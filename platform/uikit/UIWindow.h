/// UIWindow, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/uikit/UIViewController.h"

/// Back to front: 0 for the application, 1000 for the status bar, 2000 for alerts; the keyboard lies between.
using UIWindowLevel = CGFloat;

class UIWindow : public UIView {
public:
    static constexpr auto objc_name = "UIWindow";
    using UIView::UIView;
    static UIWindow withFrame(CGRect frame) { return objc::make<UIWindow, "initWithFrame:">(frame); }

    UIViewController rootViewController() const { return send<"rootViewController", UIViewController>(); }
    void setRootViewController(const UIViewController& controller) const { send<"setRootViewController:">(controller); }
    UIWindowLevel windowLevel() const { return send<"windowLevel", UIWindowLevel>(); }
    void setWindowLevel(UIWindowLevel level) const { send<"setWindowLevel:">(level); }
    bool isKeyWindow() const { return send<"isKeyWindow", bool>(); }
    void makeKeyAndVisible() const { send<"makeKeyAndVisible">(); }
};

inline UIWindow UIView::window() const { return send<"window", UIWindow>(); }
