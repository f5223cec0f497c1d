/// UILabel, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/uikit/UIFont.h"
#include "platform/uikit/UIView.h"

/// `NSTextAlignment`
enum class NSTextAlignment : objc::Int { Left = 0, Center = 1, Right = 2 };

class UILabel : public UIView {
public:
    static constexpr auto objc_name = "UILabel";
    using UIView::UIView;
    static UILabel withFrame(CGRect frame) { return objc::make<UILabel, "initWithFrame:">(frame); }

    NSString text() const { return send<"text", NSString>(); }
    void setText(const NSString& text) const { send<"setText:">(text); }
    UIColor textColor() const { return send<"textColor", UIColor>(); }
    void setTextColor(const UIColor& color) const { send<"setTextColor:">(color); }
    UIFont font() const { return send<"font", UIFont>(); }
    void setFont(const UIFont& font) const { send<"setFont:">(font); }
    NSTextAlignment textAlignment() const { return send<"textAlignment", NSTextAlignment>(); }
    void setTextAlignment(NSTextAlignment alignment) const { send<"setTextAlignment:">(alignment); }
    /// 0 means as many as fit.
    objc::Int numberOfLines() const { return send<"numberOfLines", objc::Int>(); }
    void setNumberOfLines(objc::Int lines) const { send<"setNumberOfLines:">(lines); }
};
