// Where a view stands: frame, bounds and centre, and what becomes of them when the superview changes size.

#include "phone/foundation/Raise.h"
#include "phone/uikit/Animator.h"
#include "phone/uikit/View.h"

#include <cmath>
#include <cstdio>

namespace phone {

namespace {

/// One axis of a view whose superview changes size: the flexible parts share the difference in
/// proportion to their size, evenly when they have none.
void autoresizeAxis(CGFloat& origin, CGFloat& length, CGFloat before, CGFloat now, bool leading, bool flexible,
                    bool trailing) {
    const CGFloat difference = now - before;
    const CGFloat after = before - origin - length;
    const CGFloat total = (leading ? origin : 0) + (flexible ? length : 0) + (trailing ? after : 0);
    const int parts = leading + flexible + trailing;
    if (parts == 0) {
        return;
    }
    auto share = [&](CGFloat size) { return total != 0 ? difference * size / total : difference / parts; };
    const CGFloat growth = flexible ? share(length) : 0;
    origin += leading ? share(origin) : 0;
    length += growth;
}

/// Of a view's points in those of the window, or of the topmost view of its tree.
Placement placementInTop(UIView view) {
    Placement all;
    while (const View* peer = View::of(view)) {
        all = peer->placement().after(all);
        view = peer->superview();
    }
    return all;
}

std::string numberText(CGFloat number) {
    char text[32];
    std::snprintf(text, sizeof(text), "%g", std::isnan(number) ? std::abs(number) : number);
    return text;
}

void requireNumbers(CGPoint position) {
    if (std::isnan(position.x) || std::isnan(position.y)) {
        raise("CALayerInvalidGeometry",
              "CALayer position contains NaN: [" + numberText(position.x) + " " + numberText(position.y) + "]");
    }
}

void requireNumbers(CGRect bounds) {
    const CGSize size = bounds.size;
    if (std::isnan(bounds.origin.x) || std::isnan(bounds.origin.y) || std::isnan(size.width) ||
        std::isnan(size.height)) {
        raise("CALayerInvalidGeometry", "CALayer bounds contains NaN: [" + numberText(bounds.origin.x) + " " +
                                            numberText(bounds.origin.y) + "; " + numberText(size.width) + " " +
                                            numberText(size.height) + "]");
    }
}

} // namespace

void View::initGeometry(CGRect frame) {
    requireNumbers(CGRect({}, frame.size));
    requireNumbers(frame.center());
    _bounds = {{}, frame.size};
    _center = frame.center();
}

/// The size as the superview has it, or the other way round.
CGSize View::across(CGSize size) const { return _quarters % 2 == 0 ? size : CGSize{size.height, size.width}; }

CGRect View::frame() const {
    const CGSize size = across(_bounds.size);
    return {_center.x - size.width / 2, _center.y - size.height / 2, size.width, size.height};
}

void View::setFrame(CGRect frame) {
    // By way of the messages: subclasses watch the bounds, whoever changes them.
    send<"setBounds:">(CGRect(_bounds.origin, across(frame.size)));
    send<"setCenter:">(frame.center());
}

void View::setBounds(CGRect bounds) {
    requireNumbers(bounds);
    if (bounds == _bounds) {
        return;
    }
    Animator::shared().willChange(*this, AnimatedProperty::Bounds, Animator::values(_bounds));
    const CGSize before = _bounds.size;
    _bounds = bounds;
    send<"setNeedsLayout">();
    if (before != bounds.size) {
        if (_contentMode == UIViewContentMode::Redraw) {
            send<"setNeedsDisplay">();
        }
        noticeResize(before);
    }
}

void View::setCenter(CGPoint center) {
    requireNumbers(center);
    if (center == _center) {
        return;
    }
    Animator::shared().willChange(*this, AnimatedProperty::Center, Animator::values(_center));
    _center = center;
}

void View::setQuarters(int quarters) {
    const int forward = ((quarters - _quarters) % 4 + 4) % 4;
    if (forward == 0) {
        return;
    }
    Animator::shared().willChange(*this, AnimatedProperty::Quarters, Animator::values(static_cast<double>(_quarters)));
    _quarters += forward == 3 ? -1 : forward;
}

Placement View::placement() const {
    if (_quarters % 4 == 0) {
        const CGPoint origin = frame().origin;
        return {0, {origin.x - _bounds.origin.x, origin.y - _bounds.origin.y}};
    }
    const CGPoint middle = turned(_bounds.center(), _quarters);
    return {_quarters, {_center.x - middle.x, _center.y - middle.y}};
}

void View::noticeResize(CGSize before) {
    if (!_autoresizesSubviews) {
        return;
    }
    const auto children = _subviews;
    for (const UIView& child : children) {
        if (View* peer = of(child)) {
            peer->autoresize(before, _bounds.size);
        }
    }
}

void View::autoresize(CGSize before, CGSize now) {
    const auto mask = _autoresizingMask;
    if (mask == UIViewAutoresizingNone) {
        return;
    }
    CGRect next = frame();
    autoresizeAxis(next.origin.x, next.size.width, before.width, now.width, mask & UIViewAutoresizingFlexibleLeftMargin,
                   mask & UIViewAutoresizingFlexibleWidth, mask & UIViewAutoresizingFlexibleRightMargin);
    autoresizeAxis(next.origin.y, next.size.height, before.height, now.height,
                   mask & UIViewAutoresizingFlexibleTopMargin, mask & UIViewAutoresizingFlexibleHeight,
                   mask & UIViewAutoresizingFlexibleBottomMargin);
    send<"setFrame:">(next);
}

CGPoint View::convertPointToView(CGPoint point, const UIView& view) const {
    const UIView target = view ? view : UIView(window());
    return placementInTop(target).inward(placementInTop(*this).outward(point));
}

CGPoint View::convertPointFromView(CGPoint point, const UIView& view) const {
    const UIView source = view ? view : UIView(window());
    return placementInTop(*this).inward(placementInTop(source).outward(point));
}

CGRect View::convertRectToView(CGRect rect, const UIView& view) const {
    const UIView target = view ? view : UIView(window());
    return placementInTop(target).inward(placementInTop(*this).outward(rect));
}

CGRect View::convertRectFromView(CGRect rect, const UIView& view) const {
    const UIView source = view ? view : UIView(window());
    return placementInTop(*this).inward(placementInTop(source).outward(rect));
}

void View::sizeToFit() {
    const CGSize size = send<"sizeThatFits:", CGSize>(_bounds.size);
    send<"setFrame:">(CGRect(frame().origin, size));
}

} // namespace phone
