#include "phone/uikit/Control.h"

#include "platform/uikit/UIApplication.h"

#include <algorithm>

namespace phone {

namespace {

/// How far outside its bounds a control still feels the finger that went down inside, in points.
constexpr CGFloat reach = 70;

UIControlEvents without(objc::UInt events, objc::UInt removed) {
    return static_cast<UIControlEvents>(events & ~removed);
}

} // namespace

void Control::define(objc::ClassTable<Control>& c) {
    c.def<"state", &Control::state>()
        .def<"isEnabled", &Control::isEnabled>()
        .def<"setEnabled:", &Control::setEnabled>()
        .def<"isSelected", &Control::isSelected>()
        .def<"setSelected:", &Control::setSelected>()
        .def<"isHighlighted", &Control::isHighlighted>()
        .def<"setHighlighted:", &Control::setHighlighted>()
        .get<"contentHorizontalAlignment", &Control::_horizontal>()
        .def<"setContentHorizontalAlignment:", &Control::setContentHorizontalAlignment>()
        .get<"isTracking", &Control::_tracking>()
        .get<"isTouchInside", &Control::_touchInside>()
        .def<"addTarget:action:forControlEvents:", &Control::addTarget>()
        .def<"removeTarget:action:forControlEvents:", &Control::removeTarget>()
        .def<"sendActionsForControlEvents:", &Control::sendActionsForControlEvents>()
        .def<"sendAction:to:forEvent:", &Control::sendAction>()
        .def<"allControlEvents", &Control::allControlEvents>()
        .def<"beginTrackingWithTouch:withEvent:", &Control::beginTracking>()
        .def<"continueTrackingWithTouch:withEvent:", &Control::continueTracking>()
        .def<"endTrackingWithTouch:withEvent:", &Control::endTracking>()
        .def<"cancelTrackingWithEvent:", &Control::cancelTracking>()
        .def<"_stateChanged", &Control::stateChanged>()
        .overrides<"touchesBegan:withEvent:", &Control::touchesBegan>()
        .overrides<"touchesMoved:withEvent:", &Control::touchesMoved>()
        .overrides<"touchesEnded:withEvent:", &Control::touchesEnded>()
        .overrides<"touchesCancelled:withEvent:", &Control::touchesCancelled>();
}

// State

UIControlState Control::state() const {
    return static_cast<UIControlState>((_highlighted ? UIControlStateHighlighted : 0) |
                                       (_enabled ? 0 : UIControlStateDisabled) |
                                       (_selected ? UIControlStateSelected : 0));
}

void Control::change(bool& field, bool value) {
    if (field != value) {
        field = value;
        send<"_stateChanged">();
    }
}

void Control::setEnabled(bool enabled) { change(_enabled, enabled); }

void Control::setSelected(bool selected) { change(_selected, selected); }

void Control::setHighlighted(bool highlighted) { change(_highlighted, highlighted); }

void Control::setContentHorizontalAlignment(UIControlContentHorizontalAlignment alignment) {
    _horizontal = alignment;
    setNeedsLayout();
}

void Control::stateChanged() { setNeedsLayout(); }

// Targets

void Control::addTarget(const objc::Object& target, SEL action, UIControlEvents events) {
    if (action == nullptr) {
        return;
    }
    for (Action& known : _actions) {
        if (known.target.raw() == target.raw() && objc::same(known.selector, action)) {
            known.events |= events;
            return;
        }
    }
    _actions.push_back({target, action, events});
}

void Control::removeTarget(const objc::Object& target, SEL action, UIControlEvents events) {
    for (Action& known : _actions) {
        const bool meant = (!target || known.target.raw() == target.raw()) &&
                           (action == nullptr || objc::same(known.selector, action));
        known.events = meant ? without(known.events, events) : known.events;
    }
    std::erase_if(_actions, [](const Action& known) { return known.events == 0; });
}

UIControlEvents Control::allControlEvents() const {
    objc::UInt all = 0;
    for (const Action& action : _actions) {
        all |= action.events;
    }
    return static_cast<UIControlEvents>(all);
}

bool Control::hasActions(UIControlEvents events) const { return (allControlEvents() & events) != 0; }

void Control::sendActions(UIControlEvents events, const UIEvent& event) {
    const objc::Keep kept(raw());
    const auto actions = _actions; // an action may change them
    for (const Action& action : actions) {
        if ((action.events & events) != 0) {
            send<"sendAction:to:forEvent:">(action.selector, action.target.get(), event);
        }
    }
}

void Control::sendAction(SEL action, const objc::Object& target, const UIEvent& event) {
    UIApplication::shared().sendAction(action, target, *this, event);
}

// Touches

bool Control::isInside(const UITouch& touch) const {
    const CGPoint at = touch.locationInView(*this);
    CGRect area = bounds();
    if (touch.phase() != UITouchPhase::Began) {
        area = {area.origin.x - reach, area.origin.y - reach, area.size.width + 2 * reach,
                area.size.height + 2 * reach};
    }
    return area.contains(at);
}

void Control::touchesBegan(const NSSet& touches, const UIEvent& event) {
    const auto touch = touches.any<UITouch>();
    if (!_enabled || _tracking) {
        return;
    }
    _tracking = true;
    _touchInside = true;
    send<"setHighlighted:">(true);
    if (!send<"beginTrackingWithTouch:withEvent:", bool>(touch, event)) {
        endTouch();
        return;
    }
    sendActions(UIControlEventTouchDown, event);
    if (touch.tapCount() > 1) {
        sendActions(UIControlEventTouchDownRepeat, event);
    }
}

void Control::touchesMoved(const NSSet& touches, const UIEvent& event) {
    if (!_tracking) {
        return;
    }
    const auto touch = touches.any<UITouch>();
    const bool was = _touchInside;
    _touchInside = isInside(touch);
    send<"setHighlighted:">(_touchInside);
    if (!send<"continueTrackingWithTouch:withEvent:", bool>(touch, event)) {
        endTouch();
        return;
    }
    if (was != _touchInside) {
        sendActions(_touchInside ? UIControlEventTouchDragEnter : UIControlEventTouchDragExit, event);
    }
    sendActions(_touchInside ? UIControlEventTouchDragInside : UIControlEventTouchDragOutside, event);
}

void Control::touchesEnded(const NSSet& touches, const UIEvent& event) {
    if (!_tracking) {
        return;
    }
    const auto touch = touches.any<UITouch>();
    const bool inside = isInside(touch);
    send<"endTrackingWithTouch:withEvent:">(touch, event);
    endTouch();
    sendActions(inside ? UIControlEventTouchUpInside : UIControlEventTouchUpOutside, event);
}

void Control::touchesCancelled(const NSSet&, const UIEvent& event) {
    if (!_tracking) {
        return;
    }
    send<"cancelTrackingWithEvent:">(event);
    endTouch();
    sendActions(UIControlEventTouchCancel, event);
}

void Control::endTouch() {
    _tracking = false;
    _touchInside = false;
    send<"setHighlighted:">(false);
}

} // namespace phone
