/// UITextField, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/uikit/UIControl.h"
#include "platform/uikit/UILabel.h"
#include "platform/uikit/UITextInput.h"

class UITextField : public UIControl {
public:
    static constexpr auto objc_name = "UITextField";
    using UIControl::UIControl;
    static UITextField withFrame(CGRect frame) { return objc::make<UITextField, "initWithFrame:">(frame); }

    /// "" while there is none; nil only for a nil field (and on older systems for an untouched one).
    NSString text() const { return send<"text", NSString>(); }
    /// Calls no delegate.
    void setText(const NSString& text) const { send<"setText:">(text); }
    NSString placeholder() const { return send<"placeholder", NSString>(); }
    void setPlaceholder(const NSString& placeholder) const { send<"setPlaceholder:">(placeholder); }
    UIColor textColor() const { return send<"textColor", UIColor>(); }
    void setTextColor(const UIColor& color) const { send<"setTextColor:">(color); }
    UIFont font() const { return send<"font", UIFont>(); }
    void setFont(const UIFont& font) const { send<"setFont:">(font); }
    NSTextAlignment textAlignment() const { return send<"textAlignment", NSTextAlignment>(); }
    void setTextAlignment(NSTextAlignment alignment) const { send<"setTextAlignment:">(alignment); }
    UIReturnKeyType returnKeyType() const { return send<"returnKeyType", UIReturnKeyType>(); }
    void setReturnKeyType(UIReturnKeyType type) const { send<"setReturnKeyType:">(type); }
    objc::Object delegate() const { return send<"delegate", objc::Object>(); }
    /// The delegate is not retained.
    void setDelegate(const objc::Object& delegate) const { send<"setDelegate:">(delegate); }
};
