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
        .def<"_drawContent:", &View::drawContent>()
        .def<"setNeedsDisplay", &View::setNeedsDisplay>();
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
    initGeometry(frame);
    if (KeptDrawing::isMadeBy(*this)) {
        _drawing = std::make_unique<KeptDrawing>();
    }
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

// Drawing

void View::setNeedsDisplay() {
    if (_drawing) {
        _drawing->setNeedsDisplay();
    }
}

void View::drawContent(CGRect bounds) {
    if (Painter* painter = Painter::current(); painter != nullptr && _drawing) {
        _drawing->displayIfNeeded(*this);
        _drawing->paint(*painter, bounds, _contentMode);
    }
}

void View::displayTree() {
    if (_hidden) {
        return;
    }
    if (_drawing) {
        _drawing->displayIfNeeded(*this);
    }
    const auto children = _subviews;
    for (const UIView& child : children) {
        if (View* peer = of(child)) {
            peer->displayTree();
        }
    }
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
