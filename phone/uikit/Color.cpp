#include "phone/uikit/Color.h"

#include <algorithm>

namespace phone {

namespace {

double component(CGFloat value) { return std::clamp(static_cast<double>(value), 0.0, 1.0); }

UIColor gray(CGFloat white, CGFloat alpha) { return objc::make<UIColor, "initWithWhite:alpha:">(white, alpha); }
UIColor rgb(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
    return objc::make<UIColor, "initWithRed:green:blue:alpha:">(red, green, blue, alpha);
}

UIColor blackColor() { return gray(0, 1); }
UIColor darkGrayColor() { return gray(1.0 / 3, 1); }
UIColor mediumGrayColor() { return gray(0.5, 1); }
UIColor lightGrayColor() { return gray(2.0 / 3, 1); }
UIColor whiteColor() { return gray(1, 1); }
UIColor clearColor() { return gray(0, 0); }
UIColor redColor() { return rgb(1, 0, 0, 1); }
UIColor greenColor() { return rgb(0, 1, 0, 1); }
UIColor blueColor() { return rgb(0, 0, 1, 1); }
UIColor cyanColor() { return rgb(0, 1, 1, 1); }
UIColor yellowColor() { return rgb(1, 1, 0, 1); }
UIColor magentaColor() { return rgb(1, 0, 1, 1); }
UIColor orangeColor() { return rgb(1, 0.5, 0, 1); }
UIColor purpleColor() { return rgb(0.5, 0, 0.5, 1); }
UIColor brownColor() { return rgb(0.6, 0.4, 0.2, 1); }

} // namespace

void ColorObject::define(objc::ClassTable<ColorObject>& c) {
    c.init<"initWithWhite:alpha:", &ColorObject::initWithWhite>()
        .init<"initWithRed:green:blue:alpha:", &ColorObject::initWithRed>()
        .classMethod<"colorWithWhite:alpha:", &gray>()
        .classMethod<"colorWithRed:green:blue:alpha:", &rgb>()
        .classMethod<"blackColor", &blackColor>()
        .classMethod<"darkGrayColor", &darkGrayColor>()
        .classMethod<"grayColor", &mediumGrayColor>()
        .classMethod<"lightGrayColor", &lightGrayColor>()
        .classMethod<"whiteColor", &whiteColor>()
        .classMethod<"clearColor", &clearColor>()
        .classMethod<"redColor", &redColor>()
        .classMethod<"greenColor", &greenColor>()
        .classMethod<"blueColor", &blueColor>()
        .classMethod<"cyanColor", &cyanColor>()
        .classMethod<"yellowColor", &yellowColor>()
        .classMethod<"magentaColor", &magentaColor>()
        .classMethod<"orangeColor", &orangeColor>()
        .classMethod<"purpleColor", &purpleColor>()
        .classMethod<"brownColor", &brownColor>()
        .def<"colorWithAlphaComponent:", &ColorObject::withAlpha>()
        .def<"CGColor", &ColorObject::CGColor>()
        .overrides<"isEqual:", &ColorObject::isEqual>()
        .overrides<"hash", &ColorObject::hash>();
}

void ColorObject::initWithWhite(CGFloat whiteness, CGFloat alpha) {
    super<"init">();
    const double level = component(whiteness);
    _core.color = {level, level, level, component(alpha)};
    _space = Space::Gray;
}

void ColorObject::initWithRed(CGFloat r, CGFloat g, CGFloat b, CGFloat alpha) {
    super<"init">();
    _core.color = {component(r), component(g), component(b), component(alpha)};
    _space = Space::Rgb;
}

UIColor ColorObject::withAlpha(CGFloat alpha) {
    const Color& own = _core.color;
    return _space == Space::Gray ? gray(own.red, alpha) : rgb(own.red, own.green, own.blue, alpha);
}

bool ColorObject::isEqual(const objc::Object& other) {
    const ColorObject* peer = of(other);
    return peer != nullptr && peer->_space == _space && peer->color() == color();
}

objc::UInt ColorObject::hash() {
    constexpr double steps = 255;
    const Color& own = _core.color;
    return static_cast<objc::UInt>(own.red * steps) << 24 | static_cast<objc::UInt>(own.green * steps) << 16 |
           static_cast<objc::UInt>(own.blue * steps) << 8 | static_cast<objc::UInt>(own.alpha * steps);
}

Color colorOf(const UIColor& color) {
    const ColorObject* peer = ColorObject::of(color);
    return peer == nullptr ? Color{0, 0, 0, 0} : peer->color();
}

UIColor uiColor(const Color& color) { return UIColor::rgba(color.red, color.green, color.blue, color.alpha); }

} // namespace phone
