/// UIPopoverPresentationController, as the platform documents it; from 8 on. Every call is safe on nil.
#pragma once

#include "platform/uikit/UIBarButtonItem.h"
#include "platform/uikit/UIViewController.h"

/// `UIPopoverArrowDirection`: on which side of the popover the arrow may be; added together.
enum UIPopoverArrowDirection : objc::UInt {
    UIPopoverArrowDirectionUp = 1,
    UIPopoverArrowDirectionDown = 2,
    UIPopoverArrowDirectionLeft = 4,
    UIPopoverArrowDirectionRight = 8,
    UIPopoverArrowDirectionAny = 15
};

/// Where a popover hangs.
class UIPopoverPresentationController : public NSObject {
public:
    static constexpr auto objc_name = "UIPopoverPresentationController";
    using NSObject::NSObject;

    UIView sourceView() const { return send<"sourceView", UIView>(); }
    void setSourceView(const UIView& view) const { send<"setSourceView:">(view); }
    /// In the source view.
    CGRect sourceRect() const { return send<"sourceRect", CGRect>(); }
    void setSourceRect(CGRect rect) const { send<"setSourceRect:">(rect); }
    void setBarButtonItem(const UIBarButtonItem& item) const { send<"setBarButtonItem:">(item); }
    void setPermittedArrowDirections(objc::UInt directions) const { send<"setPermittedArrowDirections:">(directions); }
    objc::UInt arrowDirection() const { return send<"arrowDirection", objc::UInt>(); }
};

inline UIPopoverPresentationController UIViewController::popoverPresentationController() const {
    return send<"popoverPresentationController", UIPopoverPresentationController>();
}
