/// What is on the screen, as light and dark.
#pragma once

#include "phone/uikit/Compositor.h"

#include <algorithm>
#include <cstdlib>

/// The screen as it is now. Places are points, brightness goes from 0 to 255.
class Picture {
public:
    int brightness(double x, double y) const { return at(static_cast<int>(x * scale), static_cast<int>(y * scale)); }

    int darkest(CGRect area) const {
        int found = 255;
        each(area, [&](int x, int y) { found = std::min(found, at(x, y)); });
        return found;
    }

    /// The greatest difference between neighbours in a line.
    int sharpest(CGRect area) const {
        int found = 0;
        each(area, [&](int x, int y) { found = std::max(found, std::abs(at(x, y) - at(x + 1, y))); });
        return found;
    }

    /// From the first to the last column with anything dark in it; empty where there is none.
    CGRect ink(CGRect area, int dark = 230) const {
        double left = area.maxX();
        double right = area.origin.x;
        each(area, [&](int x, int y) {
            if (at(x, y) <= dark) {
                left = std::min(left, x / scale);
                right = std::max(right, (x + 1) / scale);
            }
        });
        return {left, area.origin.y, std::max(0.0, right - left), area.size.height};
    }

private:
    static constexpr double scale = 2;

    int at(int x, int y) const {
        const unsigned pixel = _canvas->pixel(x, y);
        return static_cast<int>(((pixel >> 16 & 0xff) + (pixel >> 8 & 0xff) + (pixel & 0xff)) / 3);
    }
    template <class Look>
    static void each(CGRect area, const Look& look) {
        for (int y = static_cast<int>(area.origin.y * scale); y < area.maxY() * scale; ++y) {
            for (int x = static_cast<int>(area.origin.x * scale); x < area.maxX() * scale; ++x) {
                look(x, y);
            }
        }
    }

    std::unique_ptr<phone::Canvas> _canvas = phone::pictureOfScreen();
};

/// Black and white stripes, four points wide, over the whole view.
inline void addStripes(const UIView& view) {
    view.setBackgroundColor(UIColor::white());
    for (CGFloat x = 0; x < view.bounds().size.width; x += 8) {
        const auto stripe = UIView::withFrame({x, 0, 4, view.bounds().size.height});
        stripe.setBackgroundColor(UIColor::black());
        view.addSubview(stripe);
    }
}
