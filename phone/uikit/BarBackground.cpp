#include "phone/uikit/BarBackground.h"

#include "phone/coregraphics/Painter.h"

namespace phone {

namespace {

constexpr Color ground{0.973, 0.973, 0.973, 0.9};
constexpr Color line{0, 0, 0, 0.3};
constexpr double hairline = 0.5;  // points
constexpr double blurRadius = 10; // points

} // namespace

void BarBackground::initWithFrame(CGRect frame) {
    super<"initWithFrame:">(frame);
    setUserInteractionEnabled(false);
}

void BarBackground::drawContent(CGRect) {
    Painter* painter = Painter::current();
    if (painter == nullptr) {
        return;
    }
    const CGRect all = bounds();
    painter->blurBelow(all, blurRadius);
    painter->fill(all, ground);
    painter->fill({all.origin.x, all.maxY() - hairline, all.size.width, hairline}, line);
}

} // namespace phone
