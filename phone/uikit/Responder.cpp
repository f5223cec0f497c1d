#include "phone/uikit/Responder.h"

#include "platform/uikit/UIWindow.h"

#include <utility>

namespace phone {

namespace {

constinit id current = nullptr; // not retained: a responder that goes away takes itself out
constinit id successor = nullptr;

/// Sets a variable for a scope, also when an exception leaves it.
template <class T>
class Scoped {
public:
    Scoped(T& variable, T value) : _variable(variable), _previous(std::exchange(variable, value)) {}
    ~Scoped() { _variable = _previous; }
    Scoped(const Scoped&) = delete;
    Scoped& operator=(const Scoped&) = delete;

private:
    T& _variable;
    T _previous;
};

UIResponder next(const UIResponder& responder) { return responder.nextResponder(); }

} // namespace

Responder::~Responder() {
    if (current == raw()) {
        current = nullptr;
    }
}

UIResponder Responder::first() { return objc::borrow<UIResponder>(current); }

UIResponder Responder::coming() { return objc::borrow<UIResponder>(successor); }

bool Responder::isFirstResponder() const { return current == raw(); }

bool Responder::becomeFirstResponder() {
    if (isFirstResponder() || _becoming) {
        return true;
    }
    if (!send<"canBecomeFirstResponder", bool>()) {
        return false;
    }
    if (objc::isKind<UIView>(*this) && !objc::as<UIView>(*this).window()) {
        return false;
    }
    Scoped becoming(_becoming, true);
    if (!send<"_shouldBecomeFirstResponder", bool>()) {
        return false;
    }
    if (UIResponder previous = first()) {
        Scoped coming(successor, raw());
        if (!previous.resignFirstResponder()) {
            return false;
        }
    }
    current = raw();
    send<"_didBecomeFirstResponder">();
    return true;
}

bool Responder::resignFirstResponder() {
    if (!isFirstResponder() || _resigning) {
        return true;
    }
    if (!send<"canResignFirstResponder", bool>()) {
        return false;
    }
    Scoped resigning(_resigning, true);
    if (!send<"_shouldResignFirstResponder", bool>()) {
        return false;
    }
    resign();
    return true;
}

void Responder::forceResign() {
    if (!isFirstResponder()) {
        return;
    }
    Scoped resigning(_resigning, true);
    resign();
}

void Responder::resign() {
    if (!isFirstResponder()) {
        return; // the delegate's answer to the question was to resign already
    }
    current = nullptr;
    send<"_didResignFirstResponder">();
}

void Responder::touchesBegan(const NSSet& touches, const UIEvent& event) {
    next(*this).send<"touchesBegan:withEvent:">(touches, event);
}

void Responder::touchesMoved(const NSSet& touches, const UIEvent& event) {
    next(*this).send<"touchesMoved:withEvent:">(touches, event);
}

void Responder::touchesEnded(const NSSet& touches, const UIEvent& event) {
    next(*this).send<"touchesEnded:withEvent:">(touches, event);
}

void Responder::touchesCancelled(const NSSet& touches, const UIEvent& event) {
    next(*this).send<"touchesCancelled:withEvent:">(touches, event);
}

} // namespace phone
