#include "phone/uikit/KeyboardKeyView.h"

#include "phone/coregraphics/Painter.h"
#include "phone/foundation/Text.h"
#include "phone/uikit/Color.h"

#include <utility>

namespace phone {

namespace {

using Kind = KeyboardKey::Kind;

constexpr CGFloat capRadius = 4;
constexpr CGFloat letterSize = 22.5;
constexpr CGFloat wordSize = 16;
constexpr double lineWidth = 1.5;

constexpr Color white{1, 1, 1, 1};
constexpr Color black{0, 0, 0, 1};
constexpr Color grey{171 / 255.0, 179 / 255.0, 190 / 255.0, 1};
constexpr Color blue{0, 122 / 255.0, 1, 1};
constexpr Color shadow{136 / 255.0, 138 / 255.0, 142 / 255.0, 1};

using Points = std::vector<CGPoint>;

/// Moves an outline drawn around the origin to the middle of the cap.
Points around(CGPoint middle, Points outline) {
    for (CGPoint& point : outline) {
        point = {point.x + middle.x, point.y + middle.y};
    }
    return outline;
}

void drawShift(Painter& painter, CGPoint middle, bool on) {
    const Points arrow = around(middle, {{0, -8}, {9, 1}, {4, 1}, {4, 8}, {-4, 8}, {-4, 1}, {-9, 1}, {0, -8}});
    if (on) {
        painter.polygon(arrow, black);
    } else {
        painter.polyline(arrow, black, lineWidth);
    }
}

void drawBackspace(Painter& painter, CGPoint middle) {
    painter.polyline(around(middle, {{-11, 0}, {-4, -7.5}, {11, -7.5}, {11, 7.5}, {-4, 7.5}, {-11, 0}}), black,
                     lineWidth);
    painter.polyline(around(middle, {{0, -3.5}, {7, 3.5}}), black, lineWidth);
    painter.polyline(around(middle, {{7, -3.5}, {0, 3.5}}), black, lineWidth);
}

void drawHide(Painter& painter, CGPoint middle) {
    painter.stroke({middle.x - 11, middle.y - 9, 22, 11}, black, lineWidth, 2);
    painter.polyline(around(middle, {{-4, 6}, {0, 10}, {4, 6}}), black, lineWidth);
}

} // namespace

void KeyboardKeyView::define(objc::ClassTable<KeyboardKeyView>& c) {
    c.init<"initWithFrame:", &KeyboardKeyView::initWithFrame>()
        .overrides<"beginTrackingWithTouch:withEvent:", &KeyboardKeyView::beginTracking>()
        .overrides<"cancelTrackingWithEvent:", &KeyboardKeyView::cancelTracking>()
        .overrides<"_stateChanged", &KeyboardKeyView::stateChanged>()
        .overrides<"_drawContent:", &KeyboardKeyView::drawContent>();
}

KeyboardKeyView::~KeyboardKeyView() { stopHolding(); }

void KeyboardKeyView::initWithFrame(CGRect frame) {
    super<"initWithFrame:">(frame);
    _label = objc::make<UILabel>();
    _label.setTextAlignment(NSTextAlignment::Center);
    addSubview(_label);
}

void KeyboardKeyView::show(const KeyboardKey& key, bool prominent) {
    stopHolding();
    _key = key;
    _prominent = prominent;
    _held = false;
    _shifted = false;
    setFrame(key.touch);
    _label.setFrame(key.cap);
    _label.setFont(UIFont::system(key.kind == Kind::Character ? letterSize : wordSize));
    refreshTitle();
}

void KeyboardKeyView::setShifted(bool shifted) {
    _shifted = shifted;
    refreshTitle();
}

std::string KeyboardKeyView::character() const {
    if (_held && !_key.alternate.empty()) {
        return _key.alternate;
    }
    return _shifted ? _key.upper : _key.lower;
}

void KeyboardKeyView::refreshTitle() {
    _label.setHidden(_key.title.empty());
    _label.setText(string(_held ? character() : _key.title));
    _label.setTextColor(uiColor(_prominent && !isHighlighted() ? white : black));
    const std::string typed = character();
    setAccessibilityLabel(string(typed.empty() || typed == " " ? _key.title : typed));
}

// The finger

bool KeyboardKeyView::beginTracking(const UITouch& touch, const UIEvent& event) {
    stopHolding();
    _held = false;
    if (!_key.alternate.empty()) {
        _holding = RunLoop::main().after(holdSeconds, [this] {
            _holding = 0;
            _held = true;
            refreshTitle();
        });
    }
    return super<"beginTrackingWithTouch:withEvent:", bool>(touch, event);
}

void KeyboardKeyView::cancelTracking(const UIEvent& event) {
    stopHolding();
    _held = false;
    super<"cancelTrackingWithEvent:">(event);
}

void KeyboardKeyView::stopHolding() {
    if (const auto timer = std::exchange(_holding, 0)) {
        RunLoop::main().cancel(timer);
    }
}

void KeyboardKeyView::stateChanged() {
    super<"_stateChanged">();
    if (!isHighlighted()) {
        stopHolding();
    }
    refreshTitle();
}

// Look

/// White caps type; grey ones do something else. Under the finger they change places.
bool KeyboardKeyView::isLight() const {
    const bool types = _key.kind == Kind::Character || _key.kind == Kind::Space;
    const bool shiftOn = _key.kind == Kind::Shift && _shifted;
    return (types || shiftOn) != isHighlighted();
}

void KeyboardKeyView::drawContent(CGRect) {
    Painter* painter = Painter::current();
    if (painter == nullptr) {
        return;
    }
    CGRect below = _key.cap;
    below.origin.y += 1;
    painter->fill(below, shadow, capRadius);
    painter->fill(_key.cap, _prominent && !isHighlighted() ? blue : isLight() ? white : grey, capRadius);
    switch (_key.kind) {
    case Kind::Shift:
        return drawShift(*painter, _key.cap.center(), _shifted);
    case Kind::Backspace:
        return drawBackspace(*painter, _key.cap.center());
    case Kind::Hide:
        return drawHide(*painter, _key.cap.center());
    default:
        return;
    }
}

} // namespace phone
