#include "phone/uikit/ScrollDrag.h"

#include "phone/uikit/ScrollView.h"

#include <cmath>

namespace phone {

using State = UIGestureRecognizerState;

bool ScrollDrag::isDragging() const { return state() == State::Began || state() == State::Changed; }

void ScrollDrag::touchesBegan(const NSSet& touches, const UIEvent&) {
    _start = touches.any<UITouch>().locationInView(nullptr);
}

void ScrollDrag::touchesMoved(const NSSet& touches, const UIEvent&) {
    ScrollView* scroll = ScrollView::of(view());
    const CGPoint finger = touches.any<UITouch>().locationInView(nullptr);
    if (isDragging()) {
        scroll->drag(finger);
        setState(State::Changed);
        return;
    }
    const CGFloat x = std::abs(finger.x - _start.x);
    const CGFloat y = std::abs(finger.y - _start.y);
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
        scroll->drag(finger);
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
