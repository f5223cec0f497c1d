#include "phone/uikit/View.h"

#include "phone/foundation/Arrays.h"
#include "phone/uikit/Animator.h"
#include "phone/uikit/GestureRecognizer.h"
#include "phone/uikit/Layer.h"
#include "phone/uikit/ViewAnimations.h"

#include <algorithm>

namespace phone {

namespace {

/// Below this a view takes no touch and counts as invisible.
constexpr double leastVisibleAlpha = 0.01;

/// The platform's blue, which a view without a tint of its own shows.
UIColor defaultTint() { return UIColor::rgba(0, 122 / 255.0, 1, 1); }

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

} // namespace

void View::define(objc::ClassTable<View>& c) {
    c.init<"initWithFrame:", &View::initWithFrame>()
        .init<"init", &View::init>()
        .def<"frame", &View::frame>()
        .def<"setFrame:", &View::setFrame>()
        .def<"bounds", &View::bounds>()
        .def<"setBounds:", &View::setBounds>()
        .def<"center", &View::center>()
        .def<"setCenter:", &View::setCenter>()
        .def<"convertPoint:toView:", &View::convertPointToView>()
        .def<"convertPoint:fromView:", &View::convertPointFromView>()
        .def<"convertRect:toView:", &View::convertRectToView>()
        .def<"convertRect:fromView:", &View::convertRectFromView>()
        .def<"sizeThatFits:", &View::sizeThatFits>()
        .def<"sizeToFit", &View::sizeToFit>()
        .get<"autoresizingMask", &View::_autoresizingMask>()
        .set<"setAutoresizingMask:", &View::_autoresizingMask>()
        .get<"autoresizesSubviews", &View::_autoresizesSubviews>()
        .set<"setAutoresizesSubviews:", &View::_autoresizesSubviews>();
    c.get<"superview", &View::_superview>()
        .def<"subviews", &View::subviews>()
        .def<"window", &View::window>()
        .def<"isDescendantOfView:", &View::isDescendantOfView>()
        .def<"viewWithTag:", &View::viewWithTag>()
        .def<"addSubview:", &View::addSubview>()
        .def<"insertSubview:atIndex:", &View::insertSubview>()
        .def<"insertSubview:belowSubview:", &View::insertSubviewBelow>()
        .def<"insertSubview:aboveSubview:", &View::insertSubviewAbove>()
        .def<"bringSubviewToFront:", &View::bringSubviewToFront>()
        .def<"sendSubviewToBack:", &View::sendSubviewToBack>()
        .def<"removeFromSuperview", &View::removeFromSuperview>()
        .def<"willMoveToSuperview:", &View::ignoreView>()
        .def<"didMoveToSuperview", &View::ignore>()
        .def<"willMoveToWindow:", &View::willMoveToWindow>()
        .def<"didMoveToWindow", &View::didMoveToWindow>()
        .def<"didAddSubview:", &View::ignoreView>()
        .def<"willRemoveSubview:", &View::ignoreView>();
    c.def<"layer", &View::layer>()
        .def<"backgroundColor", &View::backgroundColor>()
        .def<"setBackgroundColor:", &View::setBackgroundColor>()
        .def<"tintColor", &View::tintColor>()
        .def<"setTintColor:", &View::setTintColor>()
        .def<"tintColorDidChange", &View::ignore>()
        .def<"alpha", &View::alpha>()
        .def<"setAlpha:", &View::setAlpha>()
        .get<"isHidden", &View::_hidden>()
        .set<"setHidden:", &View::_hidden>()
        .get<"isOpaque", &View::_opaque>()
        .set<"setOpaque:", &View::_opaque>()
        .def<"clipsToBounds", &View::clipsToBounds>()
        .def<"setClipsToBounds:", &View::setClipsToBounds>()
        .get<"contentMode", &View::_contentMode>()
        .set<"setContentMode:", &View::_contentMode>()
        .def<"drawRect:", &View::ignoreRect>()
        .def<"setNeedsDisplay", &View::ignore>();
    c.get<"isUserInteractionEnabled", &View::_interactive>()
        .set<"setUserInteractionEnabled:", &View::_interactive>()
        .get<"tag", &View::_tag>()
        .set<"setTag:", &View::_tag>()
        .get<"accessibilityIdentifier", &View::_accessibilityIdentifier>()
        .set<"setAccessibilityIdentifier:", &View::_accessibilityIdentifier>()
        .get<"accessibilityLabel", &View::_accessibilityLabel>()
        .set<"setAccessibilityLabel:", &View::_accessibilityLabel>()
        .def<"hitTest:withEvent:", &View::hitTest>()
        .def<"pointInside:withEvent:", &View::pointInside>()
        .def<"addGestureRecognizer:", &View::addGestureRecognizer>()
        .def<"removeGestureRecognizer:", &View::removeGestureRecognizer>()
        .def<"gestureRecognizers", &View::gestureRecognizers>()
        .def<"endEditing:", &View::endEditing>()
        .overrides<"nextResponder", &View::nextResponder>()
        .def<"setNeedsLayout", &View::setNeedsLayout>()
        .def<"layoutIfNeeded", &View::layoutIfNeeded>()
        .def<"layoutSubviews", &View::ignore>();
    defineViewAnimations(c);
}

void View::init() {
    // Sent to the object itself: overriding initWithFrame: is enough for a subclass.
    redirect<"initWithFrame:">(CGRect());
}

void View::initWithFrame(CGRect frame) {
    super<"init">();
    _layer = objc::make<CALayer>();
    _bounds = {{}, frame.size};
    _center = frame.center();
}

// Geometry

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
    if (bounds == _bounds) {
        return;
    }
    Animator::shared().willChange(*this, AnimatedProperty::Bounds, Animator::values(_bounds));
    const CGSize before = _bounds.size;
    _bounds = bounds;
    send<"setNeedsLayout">();
    if (before != bounds.size) {
        noticeResize(before);
    }
}

void View::setCenter(CGPoint center) {
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

namespace {

/// Of a view's points in those of the window, or of the topmost view of its tree.
Placement placementInTop(UIView view) {
    Placement all;
    while (const View* peer = View::of(view)) {
        all = peer->placement().after(all);
        view = peer->superview();
    }
    return all;
}

} // namespace

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

// Look

void View::setBackgroundColor(const UIColor& color) {
    if (color == _background || color.isEqual(_background)) {
        return;
    }
    Animator::shared().willChange(*this, AnimatedProperty::Background, Animator::values(_background));
    _background = color;
}

UIColor View::tintColor() const {
    if (_tint) {
        return _tint;
    }
    const UIView above = superview();
    return above ? above.tintColor() : defaultTint();
}

void View::setTintColor(const UIColor& color) {
    _tint = color;
    tintChanged();
}

void View::tintChanged() {
    send<"tintColorDidChange">();
    const auto children = _subviews;
    for (const UIView& child : children) {
        if (View* peer = of(child); peer != nullptr && !peer->_tint) {
            peer->tintChanged();
        }
    }
}

void View::setAlpha(CGFloat alpha) {
    const auto next = static_cast<float>(std::clamp<CGFloat>(alpha, 0, 1));
    if (next == _alpha) {
        return;
    }
    Animator::shared().willChange(*this, AnimatedProperty::Alpha, Animator::values(_alpha));
    _alpha = next;
}

bool View::clipsToBounds() const { return _layer.masksToBounds(); }

void View::setClipsToBounds(bool clips) { _layer.setMasksToBounds(clips); }

Presentation View::presentation() const {
    Animator& animator = Animator::shared();
    Presentation now{_center, _bounds, _alpha, _background, static_cast<double>(_quarters)};
    if (animator.isAnimating(*this)) {
        now.center = animator.current(*this, _center);
        now.bounds = animator.current(*this, _bounds);
        now.alpha = animator.current(*this, _alpha);
        now.background = animator.current(*this, _background);
        now.quarters = animator.currentQuarters(*this, _quarters);
    }
    return now;
}

// Touches

UIView View::hitTest(CGPoint point, const UIEvent& event) {
    if (_hidden || !send<"isUserInteractionEnabled", bool>() || _alpha < leastVisibleAlpha ||
        Animator::shared().blocksTouches(*this) || !send<"pointInside:withEvent:", bool>(point, event)) {
        return nullptr;
    }
    const auto children = _subviews;
    for (auto child = children.rbegin(); child != children.rend(); ++child) {
        const UIView hit = child->hitTest(convertPointToView(point, *child), event);
        if (hit) {
            return hit;
        }
    }
    return *this;
}

bool View::pointInside(CGPoint point, const UIEvent&) const { return _bounds.contains(point); }

void View::addGestureRecognizer(const UIGestureRecognizer& recognizer) {
    GestureRecognizer* peer = GestureRecognizer::of(recognizer);
    if (peer == nullptr) {
        return;
    }
    const objc::Keep kept(recognizer.raw());
    if (View* before = of(peer->view())) {
        before->removeGestureRecognizer(recognizer);
    }
    _recognizers.push_back(recognizer);
    peer->setView(*this);
}

void View::removeGestureRecognizer(const UIGestureRecognizer& recognizer) {
    const auto found = std::find(_recognizers.begin(), _recognizers.end(), recognizer);
    if (found == _recognizers.end()) {
        return;
    }
    GestureRecognizer::of(*found)->setView(nullptr);
    _recognizers.erase(found);
}

NSArray View::gestureRecognizers() const { return arrayOf(_recognizers); }

bool View::endEditing(bool force) {
    const UIResponder first = Responder::first();
    if (!objc::isKind<UIView>(first) || !objc::as<UIView>(first).isDescendantOfView(*this)) {
        return true;
    }
    if (force) {
        Responder::of(first)->forceResign();
        return true;
    }
    return first.resignFirstResponder();
}

UIResponder View::nextResponder() const {
    if (const UIViewController owner = controller()) {
        return owner;
    }
    return superview();
}

// Layout

void View::layoutIfNeeded() {
    View* top = this;
    for (View* above = of(superview()); above != nullptr && above->_needsLayout; above = of(above->superview())) {
        top = above;
    }
    top->layoutTree();
}

void View::layoutTree() {
    const objc::Keep kept(raw());
    if (_needsLayout) {
        _needsLayout = false;
        const UIViewController owner = controller();
        if (objc::responds<"viewWillLayoutSubviews">(owner)) {
            owner.send<"viewWillLayoutSubviews">();
        }
        send<"layoutSubviews">();
        if (objc::responds<"viewDidLayoutSubviews">(owner)) {
            owner.send<"viewDidLayoutSubviews">();
        }
    }
    const auto children = _subviews;
    for (const UIView& child : children) {
        if (View* peer = of(child)) {
            peer->layoutTree();
        }
    }
}

} // namespace phone
