#include "phone/uikit/ScrollView.h"

#include "phone/uikit/Animator.h"
#include "phone/uikit/ScrollDrag.h"

#include <algorithm>
#include <utility>

namespace phone {

namespace {
/// How long a scroll by code takes when it is animated, in seconds.
constexpr double scrollSeconds = 0.3;
} // namespace

void ScrollView::define(objc::ClassTable<ScrollView>& c) {
    c.init<"initWithFrame:", &ScrollView::initWithFrame>()
        .def<"contentOffset", &ScrollView::contentOffset>()
        .def<"setContentOffset:", &ScrollView::setContentOffset>()
        .def<"setContentOffset:animated:", &ScrollView::setContentOffsetAnimated>()
        .def<"contentSize", &ScrollView::contentSize>()
        .def<"setContentSize:", &ScrollView::setContentSize>()
        .def<"contentInset", &ScrollView::contentInset>()
        .def<"setContentInset:", &ScrollView::setContentInset>()
        .get<"isScrollEnabled", &ScrollView::_scrollEnabled>()
        .def<"setScrollEnabled:", &ScrollView::setScrollEnabled>()
        .get<"isDragging", &ScrollView::_dragging>()
        .get<"delegate", &ScrollView::_delegate>()
        .def<"setDelegate:", &ScrollView::setDelegate>()
        .overrides<"setBounds:", &ScrollView::setBounds>();
}

void ScrollView::initWithFrame(CGRect frame) {
    super<"initWithFrame:">(frame);
    setClipsToBounds(true);
    _drag = objc::as<UIGestureRecognizer>(objc::Ref<ScrollDrag>::make());
    addGestureRecognizer(_drag);
}

CGPoint ScrollView::contentOffset() { return bounds().origin; }

void ScrollView::setContentOffset(CGPoint offset) { UIView::setBounds({offset, bounds().size}); }

void ScrollView::setContentOffsetAnimated(CGPoint offset, bool animated) {
    if (!animated) {
        UIScrollView::setContentOffset(offset);
        return;
    }
    AnimationSettings settings;
    settings.duration = scrollSeconds;
    Animator::shared().open(std::move(settings), nullptr);
    UIScrollView::setContentOffset(offset);
    Animator::shared().close();
}

void ScrollView::setContentSize(CGSize size) {
    if (size == _contentSize) {
        return;
    }
    _contentSize = size;
    keepInside();
}

void ScrollView::setContentInset(const UIEdgeInsets& inset) {
    const CGPoint before = bounds().origin;
    const bool atTop = before.y == -_inset.top;
    _inset = inset;
    if (atTop) {
        UIScrollView::setContentOffset({before.x, -inset.top});
    }
    keepInside();
}

void ScrollView::setScrollEnabled(bool enabled) {
    _scrollEnabled = enabled;
    _drag.setEnabled(enabled);
}

void ScrollView::setBounds(CGRect next) {
    const CGRect before = bounds();
    super<"setBounds:">(next);
    if (before.origin != next.origin && objc::responds<"scrollViewDidScroll:">(_delegate.get())) {
        _delegate.get().send<"scrollViewDidScroll:">(static_cast<const UIView&>(*this));
    }
    if (before.size != next.size) {
        keepInside();
    }
}

CGPoint ScrollView::clamped(CGPoint offset) const {
    const CGSize size = bounds().size;
    const CGFloat farthestX = std::max(-_inset.left, _contentSize.width + _inset.right - size.width);
    const CGFloat farthestY = std::max(-_inset.top, _contentSize.height + _inset.bottom - size.height);
    return {std::clamp(offset.x, -_inset.left, farthestX), std::clamp(offset.y, -_inset.top, farthestY)};
}

void ScrollView::keepInside() {
    const CGPoint now = bounds().origin;
    const CGPoint inside = clamped(now);
    if (!_dragging && inside != now) {
        UIScrollView::setContentOffset(inside);
    }
}

// The finger

bool ScrollView::canDrag(bool vertically) const {
    const CGSize size = bounds().size;
    return vertically ? _contentSize.height + _inset.top + _inset.bottom > size.height
                      : _contentSize.width + _inset.left + _inset.right > size.width;
}

void ScrollView::beginDragging(CGPoint finger) {
    _dragging = true;
    _fingerAtStart = finger;
    _offsetAtStart = bounds().origin;
    if (objc::responds<"scrollViewWillBeginDragging:">(_delegate.get())) {
        _delegate.get().send<"scrollViewWillBeginDragging:">(static_cast<const UIView&>(*this));
    }
}

void ScrollView::drag(CGPoint finger) {
    UIScrollView::setContentOffset(
        clamped({_offsetAtStart.x + _fingerAtStart.x - finger.x, _offsetAtStart.y + _fingerAtStart.y - finger.y}));
}

void ScrollView::endDragging() {
    _dragging = false;
    if (objc::responds<"scrollViewDidEndDragging:willDecelerate:">(_delegate.get())) {
        _delegate.get().send<"scrollViewDidEndDragging:willDecelerate:">(static_cast<const UIView&>(*this), false);
    }
    keepInside();
}

} // namespace phone
