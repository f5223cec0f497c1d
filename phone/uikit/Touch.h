/// The finger on the screen, from when it goes down until it has gone up.
#pragma once

#include "platform/uikit/UIEvent.h"
#include "platform/uikit/UIGestureRecognizer.h"
#include "platform/uikit/UIWindow.h"

namespace phone {

/// UITouch. Kept alive with the view it began in until the finger is up.
class Touch : public objc::Implements<Touch, UITouch, NSObject> {
public:
    static void define(objc::ClassTable<Touch>& c) {
        c.get<"phase", &Touch::_phase>()
            .get<"tapCount", &Touch::_tapCount>()
            .get<"timestamp", &Touch::_timestamp>()
            .get<"view", &Touch::_view>()
            .get<"window", &Touch::_window>()
            .def<"locationInView:", &Touch::locationInView>()
            .def<"previousLocationInView:", &Touch::previousLocationInView>();
    }

    /// The finger goes down at a point of the window, in this view; `taps` counts this one.
    void begin(const UIWindow& window, const UIView& view, CGPoint point, objc::UInt taps, double now);
    void move(CGPoint point, double now);
    void setPhase(UITouchPhase phase) { _phase = phase; }
    /// No longer one of a row of taps, because the finger moved.
    void forgetTaps() { _tapCount = 0; }

    UITouchPhase phase() const { return _phase; }
    objc::UInt tapCount() const { return _tapCount; }
    UIView view() const { return _view; }
    UIWindow window() const { return _window; }
    /// In the window's points.
    CGPoint location() const { return _location; }
    CGPoint locationInView(const UIView& view) const;
    CGPoint previousLocationInView(const UIView& view) const;

private:
    UITouchPhase _phase = UITouchPhase::Began;
    objc::UInt _tapCount = 0;
    double _timestamp = 0; // of the animation clock
    UIWindow _window;
    UIView _view;
    CGPoint _location;
    CGPoint _previous;
};

} // namespace phone
