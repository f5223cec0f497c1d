#include "phone/uikit/BarBackground.h"

#include "phone/coregraphics/Painter.h"
#include "phone/uikit/Color.h"

namespace phone {

namespace {

constexpr Color ground{0.973, 0.973, 0.973, 0.9};
constexpr Color lineColor{0, 0, 0, 0.3};
constexpr double hairline = 0.5;  // points
constexpr double blurRadius = 10; // points

} // namespace

void BarBackground::initWithFrame(CGRect frame) {
    super<"initWithFrame:">(frame);
    setUserInteractionEnabled(false);
    _line = UIImageView::withFrame({});
    _line.setBackgroundColor(uiColor(lineColor));
    addSubview(_line);
}

/// The line lies below the bounds, not in them.
void BarBackground::layoutSubviews() {
    super<"layoutSubviews">();
    const CGSize size = bounds().size;
    _line.setFrame({0, size.height, size.width, hairline});
}

void BarBackground::drawContent(CGRect) {
    Painter* painter = Painter::current();
    if (painter == nullptr) {
        return;
    }
    const CGRect all = bounds();
    painter->blurBelow(all, blurRadius);
    painter->fill(all, ground);
}

} // namespace phone
