#include "phone/uikit/Keyboard.h"

#include "phone/coregraphics/Graphemes.h"
#include "phone/device/Settings.h"
#include "phone/foundation/Text.h"
#include "phone/uikit/Animator.h"
#include "phone/uikit/Autocapitalization.h"
#include "phone/uikit/Interface.h"
#include "phone/uikit/KeyboardView.h"
#include "phone/uikit/Responder.h"
#include "phone/uikit/TextInput.h"
#include "phone/uikit/View.h"
#include "platform/foundation/NSNotification.h"
#include "platform/foundation/NSNumber.h"
#include "platform/uikit/UIKeyboard.h"
#include "platform/uikit/UIPasteboard.h"

#include <stdexcept>
#include <utility>

namespace phone {

namespace {

/// Keeps the first responder alive while its text changes.
struct Edited {
    UIResponder responder = Responder::first();
    TextInput* input = textInput(responder);

    Edited() {
        if (input == nullptr) {
            throw std::runtime_error("no text input is being edited");
        }
    }
    TextInput* operator->() const { return input; }
};

bool isTablet() { return settings().device.isTablet(); }

} // namespace

void typeCharacter(const std::string& utf8) {
    const Edited edited;
    if (utf8 == "\n" || utf8 == "\r" || utf8 == "\r\n") {
        edited->pressReturn();
    } else {
        edited->enter(string(utf8));
    }
}

void typeText(const std::string& utf8) {
    for (const std::string& character : graphemes(utf8)) {
        typeCharacter(character);
    }
}

void pressKey(const std::string& name) {
    if (name == "enter") {
        Edited()->pressReturn();
    } else if (name == "backspace") {
        Edited()->eraseBackward();
    } else if (name == "delete") {
        Edited()->eraseForward();
    } else if (name == "left") {
        Edited()->moveCaret(CaretMove::Back);
    } else if (name == "right") {
        Edited()->moveCaret(CaretMove::Forth);
    } else if (name == "home") {
        Edited()->moveCaret(CaretMove::Start);
    } else if (name == "end") {
        Edited()->moveCaret(CaretMove::End);
    } else {
        throw std::runtime_error("there is no key \"" + name +
                                 "\": enter, backspace, delete, left, right, home or end");
    }
}

void hideKeyboard() {
    const Edited edited;
    if (isTablet()) {
        edited.responder.resignFirstResponder();
    } else if (edited->returnKey() == UIReturnKeyType::Done) {
        edited->pressReturn();
    } else {
        throw std::runtime_error("the keyboard has no key that hides it: the return key is no Done key");
    }
}

void pasteText() {
    const Edited edited;
    if (const NSString text = UIPasteboard::general().string()) {
        edited->enter(text);
    }
}

Keyboard& Keyboard::shared() {
    static auto* keyboard = new Keyboard; // holds objects: never destroyed
    return *keyboard;
}

CGFloat Keyboard::height(bool tablet, bool lying) {
    if (tablet) {
        return lying ? 352 : 264;
    }
    return lying ? 162 : 216;
}

/// As the interface stands.
CGRect Keyboard::place(bool shown) const {
    const CGSize screen = Interface::shared().size();
    const CGFloat high = height(isTablet(), screen.width > screen.height);
    return {0, shown ? screen.height - high : screen.height, screen.width, high};
}

CGRect Keyboard::frame() const { return Interface::shared().upright(place(_shown)); }

CGRect Keyboard::toldFrame(bool shown) const { return Interface::shared().told(place(shown)); }

void Keyboard::build() {
    if (_window) {
        return;
    }
    _window = objc::as<UIWindow>(objc::make<objc::Ref<KeyboardWindow>, "initWithFrame:">(Interface::screen()));
    _window.setWindowLevel(windowLevel);
    _keys = objc::as<UIView>(objc::make<objc::Ref<KeyboardView>, "initWithFrame:">(frame()));
    _window.addSubview(_keys);
}

void Keyboard::show() {
    const TextInput* input = textInput(Responder::first());
    if (input == nullptr) {
        return;
    }
    build();
    if (_shown) {
        refresh();
        return;
    }
    if (_window.isHidden()) {
        putInPlace();
    }
    const CGRect begin = toldFrame(_shown);
    _shown = true;
    const CGRect end = toldFrame(_shown);
    KeyboardView::of(_keys)->start(input->returnKey());
    refresh();
    _window.setHidden(false);
    post(UIKeyboardWillShowNotification, begin, end);
    if (!_shown) {
        return; // an observer has ended the editing
    }
    slide(frame());
    arriveAfter(slideSeconds, [this, begin, end] { post(UIKeyboardDidShowNotification, begin, end); });
}

void Keyboard::hide(const UIResponder& coming) {
    if (!_shown || textInput(coming) != nullptr) {
        return;
    }
    const CGRect begin = toldFrame(_shown);
    _shown = false;
    const CGRect end = toldFrame(_shown);
    post(UIKeyboardWillHideNotification, begin, end);
    if (_shown) {
        return; // an observer has begun to edit
    }
    slide(frame());
    arriveAfter(slideSeconds, [this, begin, end] {
        _window.setHidden(true);
        post(UIKeyboardDidHideNotification, begin, end);
    });
}

void Keyboard::interfaceWillTurn() {
    if (_shown) {
        const CGRect begin = toldFrame(true);
        const CGRect end = toldFrame(false);
        post(UIKeyboardWillHideNotification, begin, end);
        post(UIKeyboardDidHideNotification, begin, end);
    }
}

void Keyboard::interfaceTurned(double seconds) {
    if (!_window) {
        return;
    }
    if (!_shown) {
        cancelArrival();
        _window.setHidden(true); // the next time it comes from the new edge
        return;
    }
    const CGRect begin = toldFrame(false);
    const CGRect end = toldFrame(true);
    post(UIKeyboardWillShowNotification, begin, end);
    if (!_shown) {
        return; // an observer has ended the editing
    }
    putInPlace();
    arriveAfter(seconds, [this, begin, end] { post(UIKeyboardDidShowNotification, begin, end); });
}

void Keyboard::refresh() {
    const TextInput* input = textInput(Responder::first());
    if (_shown && input != nullptr) {
        KeyboardView::of(_keys)->setReturnKey(input->returnKey());
        KeyboardView::of(_keys)->setShifted(capitalIsNext());
        _before = text(input->textBeforeCaret());
    }
}

void Keyboard::textMoved() {
    const TextInput* input = textInput(Responder::first());
    if (_shown && input != nullptr && text(input->textBeforeCaret()) != _before) {
        refresh();
    }
}

bool Keyboard::capitalIsNext() const {
    const TextInput* input = textInput(Responder::first());
    return input != nullptr && phone::capitalIsNext(input->autocapitalization(), text(input->textBeforeCaret()));
}

void Keyboard::putInPlace() {
    View::of(_keys)->setQuarters(Interface::shared().quarters());
    _keys.setFrame(frame());
}

/// A slide under way is given up; what should have followed it does not come.
void Keyboard::cancelArrival() {
    if (const auto pending = std::exchange(_arrival, 0)) {
        RunLoop::main().cancel(pending);
    }
}

void Keyboard::arriveAfter(double seconds, std::function<void()> arrival) {
    cancelArrival();
    _arrival = RunLoop::main().after(seconds, [this, arrival = std::move(arrival)] {
        _arrival = 0;
        arrival();
    });
}

void Keyboard::slide(CGRect to) {
    AnimationSettings settings;
    settings.duration = slideSeconds;
    Animator::shared().open(std::move(settings), nullptr);
    _keys.setFrame(to);
    Animator::shared().close();
}

void Keyboard::post(id name, CGRect begin, CGRect end) const {
    auto information = objc::make<NSMutableDictionary>();
    auto add = [&](id key, const NSValue& value) { information.set(value, objc::borrow<NSString>(key)); };
    add(UIKeyboardFrameBeginUserInfoKey, NSValue::withCGRect(begin));
    add(UIKeyboardFrameEndUserInfoKey, NSValue::withCGRect(end));
    add(UIKeyboardAnimationDurationUserInfoKey, NSNumber::withDouble(slideSeconds));
    add(UIKeyboardAnimationCurveUserInfoKey, NSNumber::withInteger(slideCurve));
    NSNotificationCenter::defaultCenter().post(objc::borrow<NSString>(name), nullptr, information);
}

} // namespace phone
