/// UIButton, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/uikit/UIControl.h"
#include "platform/uikit/UIImage.h"
#include "platform/uikit/UIImageView.h"
#include "platform/uikit/UILabel.h"

/// `UIButtonType`
enum class UIButtonType : objc::Int { Custom = 0, System = 1 };

class UIButton : public UIControl {
public:
    static constexpr auto objc_name = "UIButton";
    using UIControl::UIControl;
    static UIButton withType(UIButtonType type) { return objc::sendClass<UIButton, "buttonWithType:", UIButton>(type); }

    /// A state without a value of its own shows that of the normal state.
    NSString titleForState(UIControlState state) const { return send<"titleForState:", NSString>(state); }
    void setTitle(const NSString& title, UIControlState state) const { send<"setTitle:forState:">(title, state); }
    UIColor titleColorForState(UIControlState state) const { return send<"titleColorForState:", UIColor>(state); }
    void setTitleColor(const UIColor& color, UIControlState state) const {
        send<"setTitleColor:forState:">(color, state);
    }
    UIImage imageForState(UIControlState state) const { return send<"imageForState:", UIImage>(state); }
    void setImage(const UIImage& image, UIControlState state) const { send<"setImage:forState:">(image, state); }
    UIImage backgroundImageForState(UIControlState state) const {
        return send<"backgroundImageForState:", UIImage>(state);
    }
    void setBackgroundImage(const UIImage& image, UIControlState state) const {
        send<"setBackgroundImage:forState:">(image, state);
    }
    NSString currentTitle() const { return send<"currentTitle", NSString>(); }
    UILabel titleLabel() const { return send<"titleLabel", UILabel>(); }
    UIImageView imageView() const { return send<"imageView", UIImageView>(); }
};
