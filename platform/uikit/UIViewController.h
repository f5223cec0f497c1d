/// UIViewController, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/uikit/UIView.h"

class UINavigationController;
class UINavigationItem;
class UIPopoverPresentationController;

/// `UIModalTransitionStyle`
enum class UIModalTransitionStyle : objc::Int { CoverVertical = 0, FlipHorizontal = 1, CrossDissolve = 2 };

/// `UIModalPresentationStyle`
enum class UIModalPresentationStyle : objc::Int {
    FullScreen = 0,
    PageSheet = 1,
    FormSheet = 2,
    CurrentContext = 3,
    Custom = 4,
    Popover = 7, // from 8 on
};

class UIViewController : public UIResponder {
public:
    static constexpr auto objc_name = "UIViewController";
    using UIResponder::UIResponder;

    /// Loads the view when it is not loaded yet.
    UIView view() const { return send<"view", UIView>(); }
    void setView(const UIView& view) const { send<"setView:">(view); }
    bool isViewLoaded() const { return send<"isViewLoaded", bool>(); }
    NSString title() const { return send<"title", NSString>(); }
    void setTitle(const NSString& title) const { send<"setTitle:">(title); }
    UINavigationItem navigationItem() const;
    /// nil outside a navigation controller.
    UINavigationController navigationController() const;
    UIViewController parentViewController() const { return send<"parentViewController", UIViewController>(); }
    UIViewController presentedViewController() const { return send<"presentedViewController", UIViewController>(); }
    UIViewController presentingViewController() const { return send<"presentingViewController", UIViewController>(); }
    UIModalTransitionStyle modalTransitionStyle() const {
        return send<"modalTransitionStyle", UIModalTransitionStyle>();
    }
    void setModalTransitionStyle(UIModalTransitionStyle style) const { send<"setModalTransitionStyle:">(style); }

    UIModalPresentationStyle modalPresentationStyle() const {
        return send<"modalPresentationStyle", UIModalPresentationStyle>();
    }
    void setModalPresentationStyle(UIModalPresentationStyle style) const { send<"setModalPresentationStyle:">(style); }
    /// nil unless it is presented as a popover. Systems before 8 do not answer it.
    UIPopoverPresentationController popoverPresentationController() const;

    /// The completion runs after the presented controller has appeared; a nil one is allowed.
    void present(const UIViewController& controller, bool animated, void (^completion)()) const {
        send<"presentViewController:animated:completion:">(controller, animated, completion);
    }
    void dismiss(bool animated, void (^completion)()) const {
        send<"dismissViewControllerAnimated:completion:">(animated, completion);
    }
    void addChildViewController(const UIViewController& child) const { send<"addChildViewController:">(child); }
};
