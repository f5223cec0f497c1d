/// UIImageView, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/uikit/UIImage.h"
#include "platform/uikit/UIView.h"

class UIImageView : public UIView {
public:
    static constexpr auto objc_name = "UIImageView";
    using UIView::UIView;
    static UIImageView withFrame(CGRect frame) { return objc::make<UIImageView, "initWithFrame:">(frame); }
    static UIImageView withImage(const UIImage& image) { return objc::make<UIImageView, "initWithImage:">(image); }

    UIImage image() const { return send<"image", UIImage>(); }
    void setImage(const UIImage& image) const { send<"setImage:">(image); }
};
