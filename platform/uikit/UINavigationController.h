/// UINavigationController, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/uikit/UINavigationBar.h"
#include "platform/uikit/UIViewController.h"

class UINavigationController : public UIViewController {
public:
    static constexpr auto objc_name = "UINavigationController";
    using UIViewController::UIViewController;
    static UINavigationController withRoot(const UIViewController& root) {
        return objc::make<UINavigationController, "initWithRootViewController:">(root);
    }

    /// Root first.
    NSArray viewControllers() const { return send<"viewControllers", NSArray>(); }
    UIViewController topViewController() const { return send<"topViewController", UIViewController>(); }
    UINavigationBar navigationBar() const { return send<"navigationBar", UINavigationBar>(); }
    bool isNavigationBarHidden() const { return send<"isNavigationBarHidden", bool>(); }
    void setNavigationBarHidden(bool hidden, bool animated) const {
        send<"setNavigationBarHidden:animated:">(hidden, animated);
    }
    void push(const UIViewController& controller, bool animated) const {
        send<"pushViewController:animated:">(controller, animated);
    }
    /// What was popped; nil at the root.
    UIViewController pop(bool animated) const { return send<"popViewControllerAnimated:", UIViewController>(animated); }
    NSArray popToRoot(bool animated) const { return send<"popToRootViewControllerAnimated:", NSArray>(animated); }
    /// Raises NSInternalInconsistencyException for a controller that is not in the stack.
    NSArray popTo(const UIViewController& controller, bool animated) const {
        return send<"popToViewController:animated:", NSArray>(controller, animated);
    }
};

inline UINavigationController UIViewController::navigationController() const {
    return send<"navigationController", UINavigationController>();
}
inline UINavigationItem UIViewController::navigationItem() const { return send<"navigationItem", UINavigationItem>(); }
