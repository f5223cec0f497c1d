#include "phone/applications/ShareIcons.h"

#include "phone/uikit/ActivityIcon.h"

#include <cmath>
#include <numbers>

namespace phone {

namespace {

constexpr Color white{1, 1, 1, 1};
constexpr Color stencil{0.33, 0.33, 0.35, 1};

CGRect inside(CGRect rect, double x, double y, double width, double height) {
    return {rect.origin.x + x, rect.origin.y + y, width, height};
}

CGPoint at(CGRect rect, double x, double y) { return {rect.origin.x + x, rect.origin.y + y}; }

void ground(Painter& painter, CGRect rect, const Color& top, const Color& bottom) {
    painter.save();
    painter.clip(rect, ActivityIcon::radius);
    painter.gradient(rect, top, bottom);
    painter.restore();
}

} // namespace

void drawMessageIcon(Painter& painter, CGRect rect) {
    ground(painter, rect, {0.53, 0.99, 0.44, 1}, {0.04, 0.83, 0.09, 1});
    painter.fillEllipse(inside(rect, 10, 12, 40, 32), white);
    painter.polygon({at(rect, 17, 38), at(rect, 13, 49), at(rect, 27, 42)}, white);
}

void drawMailIcon(Painter& painter, CGRect rect) {
    ground(painter, rect, {0.1, 0.84, 0.99, 1}, {0.11, 0.38, 0.94, 1});
    painter.fill(inside(rect, 9, 17, 42, 27), white, 3);
    painter.polyline({at(rect, 11, 19), at(rect, 30, 34), at(rect, 49, 19)}, {0.3, 0.6, 0.95, 1}, 1.5);
}

void drawCopyIcon(Painter& painter, CGRect rect) {
    painter.fill(rect, {1, 1, 1, 0.85}, ActivityIcon::radius);
    painter.stroke(inside(rect, 15, 13, 22, 28), stencil, 1.5, 2);
    painter.fill(inside(rect, 23, 20, 22, 28), white, 2);
    painter.stroke(inside(rect, 23, 20, 22, 28), stencil, 1.5, 2);
    for (double y : {28.0, 33.0, 38.0}) {
        painter.fill(inside(rect, 27, y, 14, 1.5), stencil);
    }
}

void drawAirDropIcon(Painter& painter, CGRect rect) {
    painter.fill(rect, white, ActivityIcon::radius);
    constexpr Color blue{0.1, 0.5, 0.98, 1};
    for (double radius : {8.0, 14.0, 20.0}) {
        std::vector<CGPoint> arc;
        constexpr int steps = 32;
        for (int step = 0; step <= steps; ++step) { // open below, where the triangle stands
            const double angle = std::numbers::pi * (0.7 + 1.6 * step / steps);
            arc.push_back(at(rect, 30 + radius * std::cos(angle), 30 + radius * std::sin(angle)));
        }
        painter.polyline(arc, blue, 2);
    }
    painter.polygon({at(rect, 30, 30), at(rect, 18, 52), at(rect, 42, 52)}, blue);
}

void drawLetterIcon(Painter& painter, CGRect rect, const char* letter, const Color& color) {
    painter.fill(rect, color, ActivityIcon::radius);
    TextLayout::Options options;
    options.face = {Typeface::Weight::Bold, 38};
    const auto layout = TextLayout::make(letter, options);
    const CGSize size = layout->size();
    painter.text(*layout, at(rect, (rect.size.width - size.width) / 2, (rect.size.height - size.height) / 2), white);
}

} // namespace phone
