/// Gesture recognisers, as the platform documents them. Every call is safe on nil.
#pragma once

#include "platform/uikit/UIView.h"

/// `UIGestureRecognizerState`
enum class UIGestureRecognizerState : objc::Int {
    Possible = 0,
    Began = 1,
    Changed = 2,
    Ended = 3,
    Cancelled = 4,
    Failed = 5,
    Recognized = 3,
};

class UIGestureRecognizer : public NSObject {
public:
    static constexpr auto objc_name = "UIGestureRecognizer";
    using NSObject::NSObject;

    UIView view() const { return send<"view", UIView>(); }
    UIGestureRecognizerState state() const { return send<"state", UIGestureRecognizerState>(); }
    /// For subclasses: what the touches so far amount to.
    void setState(UIGestureRecognizerState state) const { send<"setState:">(state); }
    bool isEnabled() const { return send<"isEnabled", bool>(); }
    void setEnabled(bool enabled) const { send<"setEnabled:">(enabled); }
    bool cancelsTouchesInView() const { return send<"cancelsTouchesInView", bool>(); }
    void setCancelsTouchesInView(bool cancels) const { send<"setCancelsTouchesInView:">(cancels); }
    CGPoint locationInView(const UIView& view) const { return send<"locationInView:", CGPoint>(view); }
    /// The target is not retained.
    void addTarget(const objc::Object& target, SEL action) const { send<"addTarget:action:">(target, action); }
};

class UITapGestureRecognizer : public UIGestureRecognizer {
public:
    static constexpr auto objc_name = "UITapGestureRecognizer";
    using UIGestureRecognizer::UIGestureRecognizer;
    /// The target is not retained.
    static UITapGestureRecognizer with(const objc::Object& target, SEL action) {
        return objc::make<UITapGestureRecognizer, "initWithTarget:action:">(target, action);
    }

    objc::UInt numberOfTapsRequired() const { return send<"numberOfTapsRequired", objc::UInt>(); }
    void setNumberOfTapsRequired(objc::UInt taps) const { send<"setNumberOfTapsRequired:">(taps); }
};

inline void UIView::addGestureRecognizer(const UIGestureRecognizer& recognizer) const {
    send<"addGestureRecognizer:">(recognizer);
}
