#include "phone/uikit/GestureRecognizer.h"

#include "phone/uikit/TouchDelivery.h"

#include <algorithm>

namespace phone {

using State = UIGestureRecognizerState;

void GestureRecognizer::initWithTarget(const objc::Object& target, SEL action) {
    super<"init">();
    addTarget(target, action);
}

void GestureRecognizer::addTarget(const objc::Object& target, SEL action) {
    const bool known = std::any_of(_targets.begin(), _targets.end(), [&](const Target& one) {
        return one.object.raw() == target.raw() && objc::same(one.action, action);
    });
    if (target && action != nullptr && !known) {
        _targets.push_back({target, action});
    }
}

void GestureRecognizer::removeTarget(const objc::Object& target, SEL action) {
    std::erase_if(_targets, [&](const Target& one) {
        return (!target || one.object.raw() == target.raw()) && (action == nullptr || objc::same(one.action, action));
    });
}

void GestureRecognizer::setEnabled(bool enabled) {
    _enabled = enabled;
    if (!enabled && isActive()) {
        send<"setState:">(State::Cancelled);
    }
}

void GestureRecognizer::setState(State state) {
    const bool recognises = state == State::Began || state == State::Ended;
    if (_state == State::Possible && recognises && !TouchDelivery::shared().claim(*this)) {
        _state = State::Failed;
        return;
    }
    const bool wasActive = isActive();
    _state = state;
    if (recognises || state == State::Changed || (state == State::Cancelled && wasActive)) {
        sendActions();
    }
}

void GestureRecognizer::sendActions() {
    const objc::Keep kept(raw());
    const auto targets = _targets; // an action may change them
    for (const Target& target : targets) {
        const objc::Keep receiver(target.object.raw());
        // The receiver decides whether it takes its sender: an action without a colon ignores it.
        objc::detail::call<void>(target.object.raw(), target.action, raw());
    }
}

CGPoint GestureRecognizer::locationInView(const UIView& view) const { return _touch.locationInView(view); }

objc::UInt GestureRecognizer::numberOfTouches() const { return _touch ? 1 : 0; }

void GestureRecognizer::fail() {
    if (_state == State::Possible) {
        _state = State::Failed;
    } else if (isActive()) {
        send<"setState:">(State::Cancelled);
    }
}

void GestureRecognizer::finish() {
    _touch = nullptr; // which keeps the view it began in, and that its recognisers
    _state = State::Possible;
    send<"reset">();
}

} // namespace phone
