/// The finger that drags a scroll view's content.
#pragma once

#include "platform/uikit/UIEvent.h"
#include "platform/uikit/UIGestureRecognizer.h"

namespace phone {

/// Recognises once the finger has left the place where it went down, in a direction in which there is
/// something to scroll; the views below then lose the touch.
class ScrollDrag : public objc::Defines<ScrollDrag, UIGestureRecognizer> {
public:
    static constexpr auto objc_name = "UIScrollViewPanGestureRecognizer";
    /// How far a finger moves before it drags, in points.
    static constexpr CGFloat hysteresis = 10;

    static void define(objc::ClassTable<ScrollDrag>& c) {
        c.overrides<"touchesBegan:withEvent:", &ScrollDrag::touchesBegan>()
            .overrides<"touchesMoved:withEvent:", &ScrollDrag::touchesMoved>()
            .overrides<"touchesEnded:withEvent:", &ScrollDrag::touchesEnded>()
            .overrides<"touchesCancelled:withEvent:", &ScrollDrag::touchesCancelled>();
    }

private:
    void touchesBegan(const NSSet& touches, const UIEvent& event);
    void touchesMoved(const NSSet& touches, const UIEvent& event);
    void touchesEnded(const NSSet& touches, const UIEvent& event);
    void touchesCancelled(const NSSet& touches, const UIEvent& event);
    void setState(UIGestureRecognizerState state) { send<"setState:">(state); }
    bool isDragging() const;
    CGPoint finger(const NSSet& touches) const;

    CGPoint _start; // where the finger went down
};

} // namespace phone
