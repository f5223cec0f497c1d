#include "phone/uikit/ImageView.h"

#include "phone/uikit/ContentMode.h"
#include "phone/uikit/Image.h"

namespace phone {

void ImageView::define(objc::ClassTable<ImageView>& c) {
    c.init<"initWithFrame:", &ImageView::initWithFrame>()
        .init<"initWithImage:", &ImageView::initWithImage>()
        .def<"image", &ImageView::image>()
        .def<"setImage:", &ImageView::setImage>()
        .overrides<"sizeThatFits:", &ImageView::sizeThatFits>()
        .overrides<"_drawContent:", &ImageView::drawContent>();
}

void ImageView::initWithFrame(CGRect frame) {
    super<"initWithFrame:">(frame);
    setUserInteractionEnabled(false);
}

void ImageView::initWithImage(const UIImage& image) {
    initWithFrame(CGRect({}, image.size()));
    setImage(image);
}

void ImageView::setImage(const UIImage& image) {
    _image = image;
    setNeedsDisplay();
}

CGSize ImageView::sizeThatFits(CGSize size) { return _image ? _image.size() : size; }

void ImageView::drawContent(CGRect) {
    if (Painter* painter = Painter::current()) {
        drawImage(*painter, _image, placed(_image.size(), bounds(), contentMode()));
    }
}

} // namespace phone
