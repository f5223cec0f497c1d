#include "phone/uikit/TouchDelivery.h"

#include "phone/device/RunLoop.h"
#include "phone/uikit/Event.h"
#include "phone/uikit/GestureRecognizer.h"
#include "phone/uikit/Touch.h"
#include "phone/uikit/View.h"
#include "phone/uikit/Window.h"
#include "platform/uikit/UIApplication.h"

#include <cmath>
#include <utility>

namespace phone {

namespace {

double distance(CGPoint a, CGPoint b) { return std::hypot(a.x - b.x, a.y - b.y); }

CGPoint inWindow(CGPoint screen, const UIWindow& window) {
    const CGRect frame = window.frame();
    return {screen.x - frame.origin.x, screen.y - frame.origin.y};
}

} // namespace

TouchDelivery& TouchDelivery::shared() {
    static auto* delivery = new TouchDelivery; // holds objects: never destroyed
    return *delivery;
}

UIWindow TouchDelivery::windowAt(CGPoint point) {
    const auto windows = Window::all();
    for (auto window = windows.rbegin(); window != windows.rend(); ++window) {
        if (window->hitTest(inWindow(point, *window), nullptr)) {
            return *window;
        }
    }
    return nullptr;
}

UIView TouchDelivery::viewAt(CGPoint point) {
    const UIWindow window = windowAt(point);
    return window ? window.hitTest(inWindow(point, window), nullptr) : UIView();
}

void TouchDelivery::began(CGPoint point) {
    cancel();
    if (UIApplication::shared().isIgnoringInteractionEvents()) {
        return;
    }
    const UIWindow window = windowAt(point);
    if (!window) {
        return;
    }
    const double now = RunLoop::main().now();
    const bool continues =
        _taps > 0 && now - _lastTap <= longestPauseBetweenTaps && distance(point, _lastTapAt) <= farthestTap;
    _taps = continues ? _taps + 1 : 1;
    _lastTapAt = point;

    const CGPoint at = inWindow(point, window);
    auto event = objc::Ref<Event>::make();
    const UIView view = window.hitTest(at, objc::as<UIEvent>(event));
    auto touch = objc::Ref<Touch>::make();
    touch->begin(window, view, at, _taps, now);
    event->setTouch(objc::as<UITouch>(touch));
    _touch = objc::as<UITouch>(touch);
    _event = objc::as<UIEvent>(event);
    _viewFollows = true;
    gatherRecognizers(view);
    send();
}

void TouchDelivery::moved(CGPoint point) {
    Touch* touch = Touch::of(_touch);
    if (touch == nullptr) {
        return;
    }
    const CGPoint at = inWindow(point, touch->window());
    if (at == touch->location()) {
        return; // a finger that is lifted, or rests, where it was has not moved
    }
    touch->move(at, RunLoop::main().now());
    if (distance(point, _lastTapAt) > farthestTap) {
        touch->forgetTaps();
        _taps = 0;
    }
    touch->setPhase(UITouchPhase::Moved);
    send();
}

void TouchDelivery::ended() {
    Touch* touch = Touch::of(_touch);
    if (touch == nullptr) {
        return;
    }
    _lastTap = RunLoop::main().now();
    touch->setPhase(UITouchPhase::Ended);
    _ending = true;
    struct Done {
        TouchDelivery& delivery;
        ~Done() { delivery._ending = false; }
    } done{*this};
    send();
    finish();
}

void TouchDelivery::cancel() {
    Touch* touch = Touch::of(_touch);
    if (touch == nullptr || _ending) {
        return;
    }
    touch->setPhase(UITouchPhase::Cancelled);
    _taps = 0;
    send();
    finish();
}

void TouchDelivery::send() {
    Event::of(_event)->setTimestamp(RunLoop::main().now());
    UIApplication::shared().sendEvent(_event);
}

void TouchDelivery::gatherRecognizers(UIView from) {
    for (UIView at = std::move(from); at; at = at.superview()) {
        for (const auto& object : at.gestureRecognizers()) {
            const auto recognizer = objc::as<UIGestureRecognizer>(object);
            if (recognizer.isEnabled()) {
                GestureRecognizer::of(recognizer)->follow(_touch);
                _recognizers.push_back(recognizer);
            }
        }
    }
}

template <objc::FixedString Message>
void TouchDelivery::sendToRecognizers(const NSSet& touches, const UIEvent& event) {
    const auto recognizers = _recognizers;
    for (const UIGestureRecognizer& recognizer : recognizers) {
        GestureRecognizer* peer = GestureRecognizer::of(recognizer);
        const bool takesPart = peer->state() == UIGestureRecognizerState::Possible || peer->isActive();
        if (takesPart && peer->isEnabled()) {
            recognizer.send<Message>(touches, event);
        }
    }
}

void TouchDelivery::deliver(const UIEvent& event) {
    const UITouch touch = _touch;
    if (!touch || event != _event) {
        return;
    }
    const UIView view = touch.view();
    const NSSet touches = event.allTouches();
    switch (touch.phase()) {
    case UITouchPhase::Began:
        sendToRecognizers<"touchesBegan:withEvent:">(touches, event);
        if (_viewFollows) {
            view.send<"touchesBegan:withEvent:">(touches, event);
        }
        break;
    case UITouchPhase::Moved:
    case UITouchPhase::Stationary:
        sendToRecognizers<"touchesMoved:withEvent:">(touches, event);
        if (_viewFollows) {
            view.send<"touchesMoved:withEvent:">(touches, event);
        }
        break;
    case UITouchPhase::Ended:
        sendToRecognizers<"touchesEnded:withEvent:">(touches, event);
        if (std::exchange(_viewFollows, false)) {
            view.send<"touchesEnded:withEvent:">(touches, event);
        }
        break;
    case UITouchPhase::Cancelled:
        sendToRecognizers<"touchesCancelled:withEvent:">(touches, event);
        cancelInView();
        break;
    }
}

bool TouchDelivery::claim(GestureRecognizer& recognizer) {
    const auto self = objc::borrow<UIGestureRecognizer>(recognizer.raw());
    if (!_touch) {
        return true; // recognised by the clock, after the finger was up
    }
    if (_winner && _winner != self) {
        return false;
    }
    _winner = self;
    const auto recognizers = _recognizers;
    for (const UIGestureRecognizer& other : recognizers) {
        if (other != self) {
            GestureRecognizer::of(other)->fail();
        }
    }
    if (recognizer.cancelsTouchesInView()) {
        cancelInView();
    }
    return true;
}

void TouchDelivery::cancelInView() {
    if (std::exchange(_viewFollows, false)) {
        _touch.view().send<"touchesCancelled:withEvent:">(_event.allTouches(), _event);
    }
}

void TouchDelivery::finish() {
    const auto recognizers = std::exchange(_recognizers, {});
    _winner = nullptr;
    _touch = nullptr;
    _event = nullptr;
    for (const UIGestureRecognizer& recognizer : recognizers) {
        GestureRecognizer::of(recognizer)->finish();
    }
}

} // namespace phone
