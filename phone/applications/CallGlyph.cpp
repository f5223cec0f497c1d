#include "phone/applications/CallGlyph.h"

#include <cmath>
#include <numbers>

namespace phone {

namespace {

constexpr double line = 2; // points

/// Part of a circle, as a line; angles in radians, clockwise from the right.
std::vector<CGPoint> arc(CGPoint center, double radius, double from, double to) {
    constexpr int steps = 24;
    std::vector<CGPoint> points;
    for (int step = 0; step <= steps; ++step) {
        const double angle = from + (to - from) * step / steps;
        points.push_back({center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)});
    }
    return points;
}

void microphone(Painter& painter, const Color& color) {
    painter.fill({-4, -14, 8, 17}, color, 4);
    painter.polyline(arc({0, -2}, 8, 0, std::numbers::pi), color, line);
    painter.polyline({{0, 6}, {0, 12}}, color, line);
    painter.polyline({{-5, 12}, {5, 12}}, color, line);
    painter.polyline({{-11, -13}, {11, 13}}, color, line);
}

void keys(Painter& painter, const Color& color) {
    constexpr double dot = 6;
    constexpr double step = 10;
    for (int row = -1; row <= 1; ++row) {
        for (int column = -1; column <= 1; ++column) {
            painter.fillEllipse({column * step - dot / 2, row * step - dot / 2, dot, dot}, color);
        }
    }
}

void loudspeaker(Painter& painter, const Color& color) {
    painter.polygon({{-14, -5}, {-8, -5}, {-1, -12}, {-1, 12}, {-8, 5}, {-14, 5}}, color);
    for (double radius : {6.0, 11.0, 16.0}) {
        painter.polyline(arc({-1, 0}, radius, -std::numbers::pi / 4, std::numbers::pi / 4), color, line);
    }
}

void plus(Painter& painter, const Color& color) {
    painter.polyline({{-12, 0}, {12, 0}}, color, line);
    painter.polyline({{0, -12}, {0, 12}}, color, line);
}

void pause(Painter& painter, const Color& color) {
    painter.fill({-8, -12, 5, 24}, color, 1);
    painter.fill({3, -12, 5, 24}, color, 1);
}

void person(Painter& painter, const Color& color) {
    painter.strokeEllipse({-6, -14, 12, 12}, color, line);
    painter.polyline(arc({0, 14}, 12, -std::numbers::pi, 0), color, line);
    painter.polyline({{-12, 14}, {12, 14}}, color, line);
}

/// A receiver: a bow with a thick piece at each end.
void receiver(Painter& painter, const Color& color) {
    constexpr double bow = 4;
    painter.polyline(arc({0, 12}, 15, -std::numbers::pi * 0.8, -std::numbers::pi * 0.2), color, bow);
    painter.fill({-16, 0, 9, 8}, color, 2);
    painter.fill({7, 0, 9, 8}, color, 2);
}

} // namespace

void drawCallGlyph(Painter& painter, CallGlyph glyph, CGPoint center, const Color& color) {
    painter.save();
    painter.translate(center.x, center.y);
    switch (glyph) {
    case CallGlyph::Mute:
        microphone(painter, color);
        break;
    case CallGlyph::Keypad:
        keys(painter, color);
        break;
    case CallGlyph::Speaker:
        loudspeaker(painter, color);
        break;
    case CallGlyph::AddCall:
        plus(painter, color);
        break;
    case CallGlyph::Hold:
        pause(painter, color);
        break;
    case CallGlyph::Contacts:
        person(painter, color);
        break;
    case CallGlyph::Accept:
        painter.rotate(-std::numbers::pi * 0.75);
        receiver(painter, color);
        break;
    case CallGlyph::HangUp:
        receiver(painter, color);
        break;
    }
    painter.restore();
}

} // namespace phone
