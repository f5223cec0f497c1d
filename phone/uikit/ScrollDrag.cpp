#include "phone/uikit/ScrollDrag.h"

#include "phone/uikit/ScrollView.h"
#include "phone/uikit/View.h"

#include <cmath>

namespace phone {

using State = UIGestureRecognizerState;

/// Turned as the scroll view lies in the window; only distances between such points mean anything.
CGPoint ScrollDrag::finger(const NSSet& touches) const {
    int quarters = 0;
    for (UIView at = view(); at; at = at.superview()) {
        quarters += View::of(at)->placement().quarters;
    }
    return turned(touches.any<UITouch>().locationInView(nullptr), -quarters);
}

bool ScrollDrag::isDragging() const { return state() == State::Began || state() == State::Changed; }

void ScrollDrag::touchesBegan(const NSSet& touches, const UIEvent&) { _start = finger(touches); }

void ScrollDrag::touchesMoved(const NSSet& touches, const UIEvent&) {
    ScrollView* scroll = ScrollView::of(view());
    const CGPoint now = finger(touches);
    if (isDragging()) {
        scroll->drag(now);
        setState(State::Changed);
        return;
    }
    const CGFloat x = std::abs(now.x - _start.x);
    const CGFloat y = std::abs(now.y - _start.y);
    if (std::max(x, y) < hysteresis) {
        return;
    }
    if (!scroll->canDrag(y >= x)) {
        setState(State::Failed);
        return;
    }
    setState(State::Began);
    if (isDragging()) { // another recogniser may have been first
        scroll->beginDragging(_start);
        scroll->drag(now);
    }
}

void ScrollDrag::touchesEnded(const NSSet&, const UIEvent&) {
    const bool dragged = isDragging();
    setState(dragged ? State::Ended : State::Failed);
    if (dragged) {
        ScrollView::of(view())->endDragging();
    }
}

void ScrollDrag::touchesCancelled(const NSSet&, const UIEvent&) {
    const bool dragged = isDragging();
    setState(dragged ? State::Cancelled : State::Failed);
    if (dragged) {
        ScrollView::of(view())->endDragging();
    }
}

} // namespace phone
