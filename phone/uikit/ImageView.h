/// UIImageView: shows one picture.
#pragma once

#include "platform/uikit/UIImageView.h"

namespace phone {

/// Takes no touches unless told to, as on the platform.
class ImageView : public objc::Implements<ImageView, UIImageView, UIView> {
public:
    static void define(objc::ClassTable<ImageView>& c);

private:
    void initWithFrame(CGRect frame);
    /// As large as the picture.
    void initWithImage(const UIImage& image);
    UIImage image() { return _image; }
    void setImage(const UIImage& image);
    CGSize sizeThatFits(CGSize size);
    void drawContent(CGRect rect);

    UIImage _image; // nil shows nothing
};

} // namespace phone
