/// UITextView, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/uikit/UILabel.h"
#include "platform/uikit/UIScrollView.h"
#include "platform/uikit/UITextInput.h"

class UITextView : public UIScrollView {
public:
    static constexpr auto objc_name = "UITextView";
    using UIScrollView::UIScrollView;
    static UITextView make() { return objc::make<UITextView>(); }
    static UITextView withFrame(CGRect frame) { return objc::make<UITextView, "initWithFrame:">(frame); }

    /// "" while there is none; nil only for a nil view.
    NSString text() const { return send<"text", NSString>(); }
    /// Calls no delegate.
    void setText(const NSString& text) const { send<"setText:">(text); }
    UIColor textColor() const { return send<"textColor", UIColor>(); }
    void setTextColor(const UIColor& color) const { send<"setTextColor:">(color); }
    UIFont font() const { return send<"font", UIFont>(); }
    void setFont(const UIFont& font) const { send<"setFont:">(font); }
    NSRange selectedRange() const { return send<"selectedRange", NSRange>(); }
    void setSelectedRange(NSRange range) const { send<"setSelectedRange:">(range); }
    bool isEditable() const { return send<"isEditable", bool>(); }
    void setEditable(bool editable) const { send<"setEditable:">(editable); }
    UIReturnKeyType returnKeyType() const { return send<"returnKeyType", UIReturnKeyType>(); }
    void setReturnKeyType(UIReturnKeyType type) const { send<"setReturnKeyType:">(type); }
    objc::Object delegate() const { return send<"delegate", objc::Object>(); }
    /// The delegate is not retained.
    void setDelegate(const objc::Object& delegate) const { send<"setDelegate:">(delegate); }
};
