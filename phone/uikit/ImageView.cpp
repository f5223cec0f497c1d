#include "phone/uikit/ImageView.h"

#include "phone/uikit/Image.h"

#include <algorithm>

namespace phone {

void ImageView::define(objc::ClassTable<ImageView>& c) {
    c.init<"initWithFrame:", &ImageView::initWithFrame>()
        .init<"initWithImage:", &ImageView::initWithImage>()
        .def<"image", &ImageView::image>()
        .def<"setImage:", &ImageView::setImage>()
        .overrides<"sizeThatFits:", &ImageView::sizeThatFits>()
        .overrides<"drawRect:", &ImageView::drawRect>();
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

void ImageView::drawRect(CGRect) {
    if (Painter* painter = Painter::current()) {
        drawImage(*painter, _image, placed(_image.size(), bounds(), contentMode()));
    }
}

CGRect placed(CGSize content, CGRect bounds, UIViewContentMode mode) {
    if (mode == UIViewContentMode::ScaleToFill || content.width <= 0 || content.height <= 0) {
        return bounds;
    }
    const double across = bounds.size.width / content.width;
    const double down = bounds.size.height / content.height;
    double scale = 1;
    if (mode == UIViewContentMode::ScaleAspectFit) {
        scale = std::min(across, down);
    } else if (mode == UIViewContentMode::ScaleAspectFill) {
        scale = std::max(across, down);
    }
    const CGSize size{content.width * scale, content.height * scale};
    return CGRect({bounds.center().x - size.width / 2, bounds.center().y - size.height / 2}, size);
}

} // namespace phone
