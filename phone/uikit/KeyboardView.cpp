#include "phone/uikit/KeyboardView.h"

#include "phone/device/Settings.h"
#include "phone/uikit/Color.h"
#include "phone/uikit/Keyboard.h"
#include "phone/uikit/Responder.h"

namespace phone {

namespace {

using Kind = KeyboardKey::Kind;

constexpr Color boardColor{209 / 255.0, 213 / 255.0, 219 / 255.0, 1};

bool isTablet() { return settings().device.isTablet(); }

} // namespace

UIView KeyboardWindow::hitTest(CGPoint point, const UIEvent& event) {
    const UIView hit = super<"hitTest:withEvent:", UIView>(point, event);
    return hit == *this ? UIView() : hit;
}

void KeyboardView::define(objc::ClassTable<KeyboardView>& c) {
    c.init<"initWithFrame:", &KeyboardView::initWithFrame>()
        .overrides<"layoutSubviews", &KeyboardView::layoutSubviews>()
        .action<"keyTouched:", &KeyboardView::keyTouched>();
}

void KeyboardView::initWithFrame(CGRect frame) {
    super<"initWithFrame:">(frame);
    setBackgroundColor(uiColor(boardColor));
    build();
}

void KeyboardView::start(UIReturnKeyType returnKey) {
    _returnKey = returnKey;
    _shifted = false;
    showPlane(KeyboardPlane::Letters);
}

void KeyboardView::setReturnKey(UIReturnKeyType returnKey) {
    if (returnKey != _returnKey) {
        _returnKey = returnKey;
        build();
    }
}

void KeyboardView::layoutSubviews() {
    super<"layoutSubviews">();
    build();
}

void KeyboardView::showPlane(KeyboardPlane plane) {
    _plane = plane;
    build();
}

void KeyboardView::setShifted(bool shifted) {
    _shifted = shifted;
    for (const auto& key : _keys) {
        key->setShifted(shifted);
    }
}

/// Makes the key views show the present plane; more are made, or superfluous ones go, as it takes.
void KeyboardView::build() {
    const auto keys = keyboardKeys(_plane, settings().language, _returnKey, bounds().size, isTablet());
    while (_keys.size() > keys.size()) {
        objc::as<UIView>(_keys.back()).removeFromSuperview();
        _keys.pop_back();
    }
    while (_keys.size() < keys.size()) {
        const auto view = objc::Ref<KeyboardKeyView>::make();
        objc::as<UIControl>(view).addTarget(*this, objc::selector<"keyTouched:">(), UIControlEventTouchUpInside);
        addSubview(objc::as<UIView>(view));
        _keys.push_back(view);
    }
    for (std::size_t i = 0; i < keys.size(); ++i) {
        _keys[i]->show(keys[i], keys[i].kind == Kind::Return && returnKeyIsProminent(_returnKey));
    }
    setShifted(_shifted);
}

void KeyboardView::keyTouched(const objc::Object& sender) {
    const KeyboardKey key = KeyboardKeyView::of(sender)->key(); // a copy: the view may show another one next
    const std::string character = KeyboardKeyView::of(sender)->character();
    switch (key.kind) {
    case Kind::Character:
        typeCharacter(character);
        setShifted(Keyboard::shared().capitalIsNext());
        break;
    case Kind::Space:
        typeCharacter(character);
        showPlane(KeyboardPlane::Letters);
        break;
    case Kind::Shift:
        setShifted(!_shifted);
        break;
    case Kind::Plane:
        setShifted(Keyboard::shared().capitalIsNext());
        showPlane(key.plane);
        break;
    case Kind::Backspace:
        pressKey("backspace");
        break;
    case Kind::Return:
        pressKey("enter");
        break;
    case Kind::Hide:
        Responder::first().resignFirstResponder();
        break;
    }
}

} // namespace phone
