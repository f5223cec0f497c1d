/// UITouch and UIEvent, as the platform documents them. Every call is safe on nil.
#pragma once

#include "platform/foundation/NSSet.h"
#include "platform/uikit/UIView.h"

/// `UITouchPhase`
enum class UITouchPhase : objc::Int { Began = 0, Moved = 1, Stationary = 2, Ended = 3, Cancelled = 4 };

class UITouch : public NSObject {
public:
    static constexpr auto objc_name = "UITouch";
    using NSObject::NSObject;

    UITouchPhase phase() const { return send<"phase", UITouchPhase>(); }
    objc::UInt tapCount() const { return send<"tapCount", objc::UInt>(); }
    /// The view that the touch began in.
    UIView view() const { return send<"view", UIView>(); }
    /// In the view's points; nil means the window's.
    CGPoint locationInView(const UIView& view) const { return send<"locationInView:", CGPoint>(view); }
    CGPoint previousLocationInView(const UIView& view) const { return send<"previousLocationInView:", CGPoint>(view); }
};

class UIEvent : public NSObject {
public:
    static constexpr auto objc_name = "UIEvent";
    using NSObject::NSObject;

    NSSet allTouches() const { return send<"allTouches", NSSet>(); }
};

inline UIView UIView::hitTest(CGPoint point, const UIEvent& event) const {
    return send<"hitTest:withEvent:", UIView>(point, event);
}
