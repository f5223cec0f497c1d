#include "phone/uikit/ContentMode.h"

#include <algorithm>

namespace phone {

namespace {

using Mode = UIViewContentMode;

/// How many times larger than it is the content is shown.
double scaleOf(CGSize content, CGSize bounds, Mode mode) {
    const double across = bounds.width / content.width;
    const double down = bounds.height / content.height;
    switch (mode) {
    case Mode::ScaleAspectFit:
        return std::min(across, down);
    case Mode::ScaleAspectFill:
        return std::max(across, down);
    default:
        return 1;
    }
}

/// Which share of the spare width lies at the left, and of the spare height above.
CGPoint anchorOf(Mode mode) {
    const bool left = mode == Mode::Left || mode == Mode::TopLeft || mode == Mode::BottomLeft;
    const bool right = mode == Mode::Right || mode == Mode::TopRight || mode == Mode::BottomRight;
    const bool top = mode == Mode::Top || mode == Mode::TopLeft || mode == Mode::TopRight;
    const bool bottom = mode == Mode::Bottom || mode == Mode::BottomLeft || mode == Mode::BottomRight;
    return {left ? 0 : right ? 1 : 0.5, top ? 0 : bottom ? 1 : 0.5};
}

} // namespace

CGRect placed(CGSize content, CGRect bounds, Mode mode) {
    if (mode == Mode::ScaleToFill || mode == Mode::Redraw || content.width <= 0 || content.height <= 0) {
        return bounds;
    }
    const double scale = scaleOf(content, bounds.size, mode);
    const CGPoint anchor = anchorOf(mode);
    const CGSize size{content.width * scale, content.height * scale};
    return CGRect({bounds.origin.x + (bounds.size.width - size.width) * anchor.x,
                   bounds.origin.y + (bounds.size.height - size.height) * anchor.y},
                  size);
}

} // namespace phone
