/// Where a popover hangs, and on which side of its anchor there is room for it.
#pragma once

#include "platform/uikit/UIPopoverPresentationController.h"

namespace phone {

/// Of a popover's corners, in points: no arrow is there.
inline constexpr CGFloat popoverRoundness = 13;

/// Places in the view that a popover covers, arrow and all.
struct PopoverPlace {
    CGRect bubble;
    CGRect arrow; // between the bubble and the anchor
    objc::UInt direction = UIPopoverArrowDirectionUp;
};

/// UIPopoverPresentationController, as far as an anchor goes.
class PopoverPresentationController
    : public objc::Implements<PopoverPresentationController, UIPopoverPresentationController, NSObject> {
public:
    static void define(objc::ClassTable<PopoverPresentationController>& c);

    /// Raises where there is no anchor.
    void checkAnchor() const;
    /// Below the anchor where a content of this size has room there, else on the first side that has, or on that which
    /// has most; along the anchor as far inside the container as can be.
    PopoverPlace place(CGSize content, const UIView& container);

private:
    /// nil for want of an anchor.
    UIView anchorView() const;
    CGRect anchorIn(const UIView& container) const;

    UIView _sourceView; // nil until set
    CGRect _sourceRect;
    UIBarButtonItem _barButtonItem; // nil until set; goes before the view
    objc::UInt _permitted = UIPopoverArrowDirectionAny;
    objc::UInt _direction = 0; // unknown until it was placed
};

} // namespace phone
