#include "phone/uikit/Switch.h"

#include "phone/coregraphics/Painter.h"
#include "phone/uikit/Animator.h"
#include "phone/uikit/Color.h"

#include <cmath>
#include <utility>

namespace phone {

namespace {

constexpr double slideSeconds = 0.25;
constexpr CGFloat farthestTap = 10; // points across; a finger that moves farther drags the thumb
constexpr CGFloat edge = 1.5;       // between the thumb and the switch's outline, in points
constexpr CGFloat thumbSide = Switch::size.height - 2 * edge;
constexpr CGFloat heldThumbWidth = thumbSide + 7;
constexpr CGFloat disabledAlpha = 0.5;

constexpr Color onColor{76 / 255.0, 217 / 255.0, 100 / 255.0, 1};
constexpr Color offColor{229 / 255.0, 229 / 255.0, 229 / 255.0, 1};
constexpr Color thumbOutline{0, 0, 0, 0.1};
constexpr Color shadowColor{0, 0, 0, 0.5};
constexpr CGFloat shadowReach = 4; // beyond the thumb, in points
constexpr CGFloat shadowDrop = 3;  // it falls downwards

/// A soft spot.
class ThumbShadow : public objc::Defines<ThumbShadow, UIView> {
public:
    static constexpr auto objc_name = "_UISwitchThumbShadow";
    static void define(objc::ClassTable<ThumbShadow>& c) { c.overrides<"drawRect:", &ThumbShadow::drawRect>(); }

private:
    void drawRect(CGRect) {
        if (Painter* painter = Painter::current()) {
            painter->glow(bounds(), shadowColor);
        }
    }
};

UIView addPill(const UIView& around, CGRect frame, const UIColor& color) {
    const auto pill = UIView::withFrame(frame);
    pill.setBackgroundColor(color);
    pill.layer().setCornerRadius(frame.size.height / 2);
    around.addSubview(pill);
    return pill;
}

} // namespace

void Switch::define(objc::ClassTable<Switch>& c) {
    c.init<"initWithFrame:", &Switch::initWithFrame>()
        .overrides<"setFrame:", &Switch::setFrame>()
        .overrides<"setBounds:", &Switch::setBounds>()
        .overrides<"sizeThatFits:", &Switch::sizeThatFits>()
        .get<"isOn", &Switch::_on>()
        .def<"setOn:", &Switch::setOn>()
        .def<"setOn:animated:", &Switch::setOnAnimated>()
        .overrides<"beginTrackingWithTouch:withEvent:", &Switch::beginTracking>()
        .overrides<"continueTrackingWithTouch:withEvent:", &Switch::continueTracking>()
        .overrides<"endTrackingWithTouch:withEvent:", &Switch::endTracking>()
        .overrides<"cancelTrackingWithEvent:", &Switch::cancelTracking>()
        .overrides<"_stateChanged", &Switch::stateChanged>();
}

void Switch::initWithFrame(CGRect frame) {
    super<"initWithFrame:">(CGRect(frame.origin, size));
    _inside = UIView::withFrame({{}, size});
    _inside.setUserInteractionEnabled(false);
    addSubview(_inside);
    _track = addPill(_inside, {{}, size}, uiColor(offColor));
    _well = addPill(_inside, {edge, edge, size.width - 2 * edge, size.height - 2 * edge}, UIColor::white());
    _shadow = objc::as<UIView>(objc::make<objc::Ref<ThumbShadow>, "initWithFrame:">(CGRect()));
    _inside.addSubview(_shadow);
    _thumb = addPill(_inside, {edge, edge, thumbSide, thumbSide}, UIColor::white());
    _thumb.layer().setBorderWidth(0.5);
    _thumb.layer().setBorderColor(uiColor(thumbOutline).CGColor());
    place();
}

void Switch::setFrame(CGRect frame) { super<"setFrame:">(CGRect(frame.origin, size)); }

void Switch::setBounds(CGRect bounds) { super<"setBounds:">(CGRect(bounds.origin, size)); }

void Switch::setOn(bool on) { UISwitch::setOn(on, false); }

void Switch::setOnAnimated(bool on, bool animated) {
    _on = on;
    _shownOn = on;
    show(animated);
}

void Switch::show(bool animated) {
    if (!animated) {
        place();
        return;
    }
    AnimationSettings settings;
    settings.duration = slideSeconds;
    Animator::shared().open(std::move(settings), nullptr);
    place();
    Animator::shared().close();
}

void Switch::place() {
    const CGFloat width = _held ? heldThumbWidth : thumbSide;
    _thumb.setFrame({_shownOn ? size.width - edge - width : edge, edge, width, thumbSide});
    const CGRect thumb = _thumb.frame();
    _shadow.setFrame({thumb.origin.x - shadowReach, thumb.origin.y - shadowReach + shadowDrop, width + 2 * shadowReach,
                      thumbSide + 2 * shadowReach});
    _track.setBackgroundColor(uiColor(_shownOn ? onColor : offColor));
    _well.setAlpha(_shownOn || _held ? 0 : 1);
}

void Switch::stateChanged() {
    super<"_stateChanged">();
    _inside.setAlpha(isEnabled() ? 1 : disabledAlpha);
}

// The finger

bool Switch::beginTracking(const UITouch& touch, const UIEvent&) {
    _fingerAtStart = touch.locationInView(*this).x;
    _dragged = false;
    _held = true;
    show(true);
    return true;
}

bool Switch::continueTracking(const UITouch& touch, const UIEvent&) {
    const CGFloat finger = touch.locationInView(*this).x;
    _dragged = _dragged || std::abs(finger - _fingerAtStart) > farthestTap;
    if (_dragged && _shownOn != (finger > size.width / 2)) {
        _shownOn = !_shownOn;
        show(true);
    }
    return true;
}

void Switch::endTracking(const UITouch&, const UIEvent&) {
    _held = false;
    const bool wanted = _dragged ? _shownOn : _on != send<"isTouchInside", bool>();
    const bool turned = wanted != _on;
    _on = wanted;
    _shownOn = wanted;
    show(true);
    if (turned) {
        sendActions(UIControlEventValueChanged);
    }
}

void Switch::cancelTracking(const UIEvent&) {
    _held = false;
    _shownOn = _on;
    show(true);
}

} // namespace phone
