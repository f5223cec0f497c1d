#include "phone/applications/Keypad.h"

#include "phone/applications/CallButton.h"

#include <algorithm>

namespace phone {

namespace {

constexpr const char* faces[] = {"1", "2", "3", "4", "5", "6", "7", "8", "9", "*", "0", "#"};
constexpr int columns = 3;
constexpr int rows = 4;
constexpr double largestKey = 75; // points
constexpr double smallestGap = 8;
constexpr double columnGap = 20;
constexpr double faceSize = 34;

} // namespace

void Keypad::define(objc::ClassTable<Keypad>& c) {
    c.init<"initWithFrame:", &Keypad::initWithFrame>()
        .action<"_press:", &Keypad::press>()
        .overrides<"layoutSubviews", &Keypad::layoutSubviews>();
}

void Keypad::initWithFrame(CGRect frame) {
    super<"initWithFrame:">(frame);
    _digits = ""_ns;
    for (const char* face : faces) {
        const CallButton::Look look{.shape = CallButton::Shape::Ring, .glyph = {}, .fill = {}, .captionSize = faceSize};
        const auto key = objc::as<UIControl>(CallButton::with(look, NSString::utf8(face)));
        key.addTarget(*this, objc::selector<"_press:">(), UIControlEventTouchUpInside);
        addSubview(key);
        _keys.push_back(key);
    }
}

void Keypad::press(const objc::Object& key) {
    if (CallButton* pressed = CallButton::of(key)) {
        _digits = _digits.stringByAppendingString(pressed->caption());
        sendActions(UIControlEventValueChanged);
    }
}

void Keypad::layoutSubviews() {
    super<"layoutSubviews">();
    const CGSize size = bounds().size;
    const double side = std::min(largestKey, (size.height - (rows - 1) * smallestGap) / rows);
    const double rowGap = (size.height - rows * side) / (rows - 1);
    const double gap = std::min(rowGap, columnGap);
    const double top = (size.height - rows * side - (rows - 1) * gap) / 2;
    const double left = (size.width - columns * side - (columns - 1) * columnGap) / 2;
    for (std::size_t at = 0; at < _keys.size(); ++at) {
        const auto column = static_cast<double>(at % columns);
        const auto row = static_cast<double>(at / columns);
        _keys[at].setFrame({left + column * (side + columnGap), top + row * (side + gap), side, side});
    }
}

} // namespace phone
