#include "phone/uikit/TapGestureRecognizer.h"

#include "phone/device/RunLoop.h"
#include "phone/uikit/TouchDelivery.h"
#include "platform/uikit/UIControl.h"

#include <cmath>

namespace phone {

namespace {

constexpr double longestTap = 0.75; // seconds
constexpr double farthestMove = 45; // points

/// The controls whose own taps come before those of a recogniser on a view around them. Other controls,
/// such as an application's own, do not have this right.
constexpr const char* controlsThatComeFirst[] = {"UIButton", "UISwitch", "UIStepper", "UISegmentedControl",
                                                 "UIPageControl"};

bool comesFirst(const UIView& view) {
    if (!objc::isKind<UIControl>(view) || !objc::as<UIControl>(view).isEnabled()) {
        return false;
    }
    for (const char* name : controlsThatComeFirst) {
        Class cls = objc_getClass(name);
        for (Class at = object_getClass(view.raw()); cls != nullptr && at != nullptr; at = class_getSuperclass(at)) {
            if (at == cls) {
                return true;
            }
        }
    }
    return false;
}

} // namespace

void TapGestureRecognizer::touchesBegan(const NSSet& touches, const UIEvent&) {
    const auto touch = touches.any<UITouch>();
    const double now = RunLoop::main().now();
    if (now - _lastTap > TouchDelivery::longestPauseBetweenTaps) {
        _taps = 0;
    }
    _began = now;
    _start = touch.locationInView(nullptr);
    if (_tapsRequired == 1 && belongsToControl(touch)) {
        setState(UIGestureRecognizerState::Failed);
    }
}

void TapGestureRecognizer::touchesMoved(const NSSet& touches, const UIEvent&) {
    const CGPoint now = touches.any<UITouch>().locationInView(nullptr);
    if (std::hypot(now.x - _start.x, now.y - _start.y) > farthestMove) {
        _taps = 0;
        setState(UIGestureRecognizerState::Failed);
    }
}

void TapGestureRecognizer::touchesEnded(const NSSet&, const UIEvent&) {
    const double now = RunLoop::main().now();
    if (now - _began > longestTap) {
        _taps = 0;
        setState(UIGestureRecognizerState::Failed);
        return;
    }
    _lastTap = now;
    if (++_taps >= _tapsRequired) {
        _taps = 0;
        setState(UIGestureRecognizerState::Ended);
    }
}

/// Whether the touch began in one of those controls, inside the recogniser's view but not being it.
bool TapGestureRecognizer::belongsToControl(const UITouch& touch) const {
    for (UIView at = touch.view(); at && at != view(); at = at.superview()) {
        if (comesFirst(at)) {
            return true;
        }
    }
    return false;
}

} // namespace phone
