#include "phone/applications/CallView.h"

#include "phone/applications/Words.h"
#include "phone/foundation/Text.h"
#include "phone/uikit/Color.h"
#include "platform/uikit/UIScreen.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace phone {

namespace {

constexpr Color red{1, 0.23, 0.19, 1};
constexpr Color green{0.3, 0.85, 0.39, 1};
constexpr Color skyTop{0.13, 0.22, 0.33, 1};
constexpr Color skyBottom{0.05, 0.06, 0.1, 1};
constexpr Color glowColor{0.33, 0.5, 0.6, 0.45};

constexpr double callerSize = 32;
constexpr double statusSize = 17;

constexpr double ring = 75;        // points across
constexpr double caption = 20;     // the caption's height below a ring
constexpr double ringSpacing = 95; // from centre to centre
constexpr double largestRowGap = 20;
constexpr double cellMargin = 20; // beside the frame of cells
constexpr double cellHeight = 96;
constexpr double barHeight = 50;
constexpr double barGap = 12;
constexpr double bottomMargin = 22;
constexpr double hideWidth = 84;
constexpr double widestControls = 480; // on a wider screen they stand in the middle

constexpr int columns = 3;

CallButton::Shape shapeOf(CallView::Look look) {
    return look == CallView::Look::Newer ? CallButton::Shape::Ring : CallButton::Shape::Cell;
}

} // namespace

void CallView::define(objc::ClassTable<CallView>& c) {
    c.action<"_toggle:", &CallView::toggle>()
        .action<"_showKeypad:", &CallView::showKeypad>()
        .action<"_hideKeypad:", &CallView::hideKeypad>()
        .action<"_keypadChanged:", &CallView::keypadChanged>()
        .action<"_hold:", &CallView::hold>()
        .action<"_accept:", &CallView::accept>()
        .action<"_end:", &CallView::end>()
        .overrides<"layoutSubviews", &CallView::layoutSubviews>()
        .overrides<"_drawContent:", &CallView::drawContent>();
}

objc::Ref<CallView> CallView::with(CGRect frame, Look look) {
    auto view = objc::make<objc::Ref<CallView>, "initWithFrame:">(frame);
    view->build(look);
    return view;
}

// Building

void CallView::build(Look look) {
    _look = look;
    setAutoresizingMask(UIViewAutoresizing(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight));
    auto label = [&](double size) {
        const auto made = objc::make<UILabel>();
        made.setFont(UIFont::system(size));
        made.setTextAlignment(NSTextAlignment::Center);
        made.setTextColor(UIColor::white());
        addSubview(made);
        return made;
    };
    _caller = label(callerSize);
    _status = label(statusSize);

    const SEL toggles = objc::selector<"_toggle:">();
    _keys[Mute] = add(CallGlyph::Mute, word(Word::Mute), toggles);
    _keys[KeypadKey] = add(CallGlyph::Keypad, word(Word::Keypad), objc::selector<"_showKeypad:">());
    _keys[Speaker] = add(CallGlyph::Speaker, word(Word::Speaker), toggles);
    _keys[AddCall] = add(CallGlyph::AddCall, word(Word::AddCall), nullptr);
    _keys[Hold] = add(CallGlyph::Hold, word(Word::Hold), objc::selector<"_hold:">());
    _keys[Contacts] = add(CallGlyph::Contacts, word(Word::Contacts), nullptr);

    _keypad = objc::make<objc::Ref<Keypad>>();
    const auto keypad = objc::as<UIControl>(_keypad);
    keypad.addTarget(*this, objc::selector<"_keypadChanged:">(), UIControlEventValueChanged);
    addSubview(keypad);
    const CallButton::Look text{
        .shape = CallButton::Shape::Bar, .glyph = {}, .fill = Color{0, 0, 0, 0}, .captionSize = 17};
    _hide = objc::as<UIControl>(CallButton::with(text, word(Word::Hide)));
    _hide.addTarget(*this, objc::selector<"_hideKeypad:">(), UIControlEventTouchUpInside);
    addSubview(_hide);

    _decline = addCallButton(CallGlyph::HangUp, word(Word::Decline), red, objc::selector<"_end:">());
    _accept = addCallButton(CallGlyph::Accept, word(Word::Accept), green, objc::selector<"_accept:">());
    _end = addCallButton(CallGlyph::HangUp, word(Word::EndCall), red, objc::selector<"_end:">());
    update();
}

/// A button without an action is there to be recognised: the phone has one line and no address book.
UIControl CallView::add(CallGlyph glyph, const NSString& name, SEL action) {
    const CallButton::Look look{.shape = shapeOf(_look), .glyph = glyph, .fill = {}, .captionSize = 14};
    const auto button = objc::as<UIControl>(CallButton::with(look, name));
    if (action != nullptr) {
        button.addTarget(*this, action, UIControlEventTouchUpInside);
    }
    addSubview(button);
    return button;
}

UIControl CallView::addCallButton(CallGlyph glyph, const NSString& name, const Color& fill, SEL action) {
    CallButton::Look look{.shape = CallButton::Shape::Ring, .glyph = glyph, .fill = fill, .captionSize = 14};
    if (_look == Look::Older) {
        look = {.shape = CallButton::Shape::Bar, .glyph = {}, .fill = fill, .captionSize = 20};
    }
    const auto button = objc::as<UIControl>(CallButton::with(look, name));
    button.addTarget(*this, action, UIControlEventTouchUpInside);
    addSubview(button);
    return button;
}

// The call as it is

NSString CallView::statusText() const {
    const CallService& call = CallService::shared();
    switch (call.phase()) {
    case CallService::Phase::Ringing:
        return word(Word::IncomingCall);
    case CallService::Phase::Held:
        return word(Word::OnHold);
    case CallService::Phase::Ended:
        return word(Word::CallEnded);
    case CallService::Phase::Active:
    case CallService::Phase::Idle:
        break;
    }
    std::array<char, 24> text{};
    std::snprintf(text.data(), text.size(), "%02ld:%02ld", call.seconds() / 60, call.seconds() % 60);
    return NSString::utf8(text.data());
}

void CallView::update() {
    const CallService& call = CallService::shared();
    const bool ringing = call.phase() == CallService::Phase::Ringing;
    const bool talking = call.phase() == CallService::Phase::Active || call.phase() == CallService::Phase::Held;
    if (!talking) {
        _showsKeypad = false;
    }
    const bool typed = _showsKeypad && _keypad->digits().length() > 0;
    _caller.setText(typed ? _keypad->digits() : string(call.number()));
    _status.setText(statusText());

    for (int key = 0; key < keyCount; ++key) {
        _keys[key].setHidden(ringing || _showsKeypad);
        _keys[key].setEnabled(talking && key != AddCall && key != Contacts);
    }
    _keys[Hold].setSelected(call.phase() == CallService::Phase::Held);
    objc::as<UIControl>(_keypad).setHidden(!_showsKeypad);
    _hide.setHidden(!_showsKeypad);
    _accept.setHidden(!ringing);
    _decline.setHidden(!ringing);
    _end.setHidden(ringing);
    _end.setEnabled(talking);
    setNeedsLayout(); // the keypad shares its line with the end of the call
}

// The buttons

void CallView::toggle(const objc::Object& button) {
    const auto control = objc::as<UIControl>(button);
    control.setSelected(!control.isSelected());
}

void CallView::showKeypad(const objc::Object&) {
    _showsKeypad = true;
    update();
}

void CallView::hideKeypad(const objc::Object&) {
    _showsKeypad = false;
    update();
}

void CallView::keypadChanged(const objc::Object&) { update(); }

void CallView::hold(const objc::Object&) { CallService::shared().hold(); }

void CallView::accept(const objc::Object&) { CallService::shared().accept(); }

void CallView::end(const objc::Object&) { CallService::shared().end(); }

// Layout

void CallView::layoutSubviews() {
    super<"layoutSubviews">();
    const double width = bounds().size.width;
    _caller.setFrame({0, 24, width, 38});
    _status.setFrame({0, 62, width, 22});
    layOutCallButtons();
    const double controls = std::min(width, widestControls);
    const CGRect area{(width - controls) / 2, controlsTop, controls, callButtonsTop() - controlsTop};
    layOutKeys(area);
    constexpr double air = 12;
    objc::as<UIControl>(_keypad).setFrame({0, area.origin.y + air, width, area.size.height - 2 * air});
}

double CallView::callButtonsTop() const {
    return bounds().size.height - bottomMargin - (_look == Look::Newer ? ring + caption : barHeight);
}

void CallView::layOutKeys(CGRect area) {
    const bool rings = _look == Look::Newer;
    const double rowHeight = rings ? ring + caption : cellHeight;
    const double gap = rings ? std::clamp((area.size.height - 2 * rowHeight) / 3, 0.0, largestRowGap) : 0;
    const double top = area.origin.y + (area.size.height - 2 * rowHeight - gap) / 2;
    const double cellWidth = (area.size.width - 2 * cellMargin) / columns;
    const double width = rings ? ringSpacing : cellWidth;
    const double left = area.origin.x + (area.size.width - columns * width) / 2;
    for (int key = 0; key < keyCount; ++key) {
        _keys[key].setFrame({left + key % columns * width, top + key / columns * (rowHeight + gap), width, rowHeight});
    }
}

void CallView::layOutCallButtons() {
    const CGSize size = bounds().size;
    const double controls = std::min(size.width, widestControls);
    const double top = callButtonsTop();
    if (_look == Look::Newer) {
        const double height = ring + caption;
        _end.setFrame({(size.width - ringSpacing) / 2, top, ringSpacing, height});
        _decline.setFrame({size.width / 2 - controls / 4 - ringSpacing / 2, top, ringSpacing, height});
        _accept.setFrame({size.width / 2 + controls / 4 - ringSpacing / 2, top, ringSpacing, height});
        _hide.setFrame({(size.width + controls) / 2 - hideWidth - cellMargin / 2, top + (ring - barHeight) / 2,
                        hideWidth, barHeight});
        return;
    }
    const double whole = controls - 2 * cellMargin;
    const double left = (size.width - whole) / 2;
    const double half = (whole - barGap) / 2;
    _decline.setFrame({left, top, half, barHeight});
    _accept.setFrame({left + half + barGap, top, half, barHeight});
    _end.setFrame({left, top, _showsKeypad ? half : whole, barHeight});
    _hide.setFrame(_accept.frame());
}

void CallView::drawContent(CGRect) {
    Painter* painter = Painter::current();
    if (painter == nullptr) {
        return;
    }
    const CGRect all = bounds();
    painter->gradient(all, skyTop, skyBottom);
    painter->glow({-all.size.width * 0.4, -all.size.height * 0.15, all.size.width * 1.3, all.size.height * 0.8},
                  glowColor);
}

} // namespace phone
