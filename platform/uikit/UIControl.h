/// UIControl, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/uikit/UIEvent.h"
#include "platform/uikit/UIView.h"

/// `UIControlEvents`, a set of bits.
enum UIControlEvents : objc::UInt {
    UIControlEventTouchDown = 1,
    UIControlEventTouchDownRepeat = 2,
    UIControlEventTouchDragInside = 4,
    UIControlEventTouchDragOutside = 8,
    UIControlEventTouchDragEnter = 16,
    UIControlEventTouchDragExit = 32,
    UIControlEventTouchUpInside = 64,
    UIControlEventTouchUpOutside = 128,
    UIControlEventTouchCancel = 256,
    UIControlEventValueChanged = 4096,
    UIControlEventEditingDidBegin = 65536,
    UIControlEventEditingChanged = 131072,
    UIControlEventEditingDidEnd = 262144,
    UIControlEventEditingDidEndOnExit = 524288,
};

/// `UIControlState`, a set of bits.
enum UIControlState : objc::UInt {
    UIControlStateNormal = 0,
    UIControlStateHighlighted = 1,
    UIControlStateDisabled = 2,
    UIControlStateSelected = 4,
};

/// `UIControlContentHorizontalAlignment`
enum class UIControlContentHorizontalAlignment : objc::Int { Center = 0, Left = 1, Right = 2, Fill = 3 };

class UIControl : public UIView {
public:
    static constexpr auto objc_name = "UIControl";
    using UIView::UIView;

    UIControlState state() const { return send<"state", UIControlState>(); }
    bool isEnabled() const { return send<"isEnabled", bool>(); }
    void setEnabled(bool enabled) const { send<"setEnabled:">(enabled); }
    bool isSelected() const { return send<"isSelected", bool>(); }
    void setSelected(bool selected) const { send<"setSelected:">(selected); }
    bool isHighlighted() const { return send<"isHighlighted", bool>(); }
    void setHighlighted(bool highlighted) const { send<"setHighlighted:">(highlighted); }
    UIControlContentHorizontalAlignment contentHorizontalAlignment() const {
        return send<"contentHorizontalAlignment", UIControlContentHorizontalAlignment>();
    }
    void setContentHorizontalAlignment(UIControlContentHorizontalAlignment alignment) const {
        send<"setContentHorizontalAlignment:">(alignment);
    }
    /// The target is not retained; nil walks the responder chain. The same triple twice fires once.
    void addTarget(const objc::Object& target, SEL action, UIControlEvents events) const {
        send<"addTarget:action:forControlEvents:">(target, action, events);
    }
    /// Where it is nobody's target, nothing happens.
    void removeTarget(const objc::Object& target, SEL action, UIControlEvents events) const {
        send<"removeTarget:action:forControlEvents:">(target, action, events);
    }
    void sendActions(UIControlEvents events) const { send<"sendActionsForControlEvents:">(events); }
};
