/// Draws the pictures that are installed: each at one and at two pixels per point, the icon of the settings at three
/// too.
///
///     draw-resources LIBRARY-FOLDER
#include "phone/coregraphics/Painter.h"

#include <cmath>
#include <cstdio>
#include <numbers>
#include <string>

namespace {

using phone::Color;
using phone::Painter;

constexpr Color ink{0, 0, 0}; // of a stencil only the alpha counts
constexpr double inkWidth = 2;

constexpr Color disclosure{199.0 / 255, 199.0 / 255, 204.0 / 255};
constexpr Color tint{0, 121.0 / 255, 1};

/// Adds an arc around a centre; angles in degrees, clockwise from the right.
void addArc(std::vector<CGPoint>& points, CGPoint center, double radius, double from, double to) {
    constexpr int steps = 12;
    for (int i = 0; i <= steps; ++i) {
        const double angle = (from + (to - from) * i / steps) * std::numbers::pi / 180;
        points.push_back({center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)});
    }
}

/// Two strokes that meet in a point, `reach` away from it across and `rise` up and down, with square ends.
void chevron(Painter& painter, CGPoint point, double reach, double rise, double width, const Color& color) {
    const double length = std::hypot(reach, rise);
    const CGPoint across{rise / length * width / 2, reach / length * width / 2};
    const double miter = width / 2 * length / rise;
    painter.polygon({{point.x - miter, point.y},
                     {point.x + reach - across.x, point.y - rise - across.y},
                     {point.x + reach + across.x, point.y - rise + across.y},
                     {point.x + miter, point.y},
                     {point.x + reach + across.x, point.y + rise - across.y},
                     {point.x + reach - across.x, point.y + rise + across.y}},
                    color);
}

/// A sheet with lines, and a pencil at its lower right corner.
void drawNote(Painter& painter) {
    constexpr double left = 15;
    constexpr double top = 12;
    constexpr double right = 41;
    constexpr double bottom = 47;
    constexpr double corner = 4;
    std::vector<CGPoint> sheet{{31, bottom}};
    addArc(sheet, {left + corner, bottom - corner}, corner, 90, 180);
    addArc(sheet, {left + corner, top + corner}, corner, 180, 270);
    addArc(sheet, {right - corner, top + corner}, corner, 270, 360);
    sheet.push_back({right, 22});
    painter.polyline(sheet, ink, inkWidth);

    painter.polyline({{21, 20}, {35, 20}}, ink, inkWidth);
    painter.polyline({{21, 27}, {33, 27}}, ink, inkWidth);
    painter.polyline({{21, 34}, {27, 34}}, ink, inkWidth);

    // The pencil: its point below, its end above to the right.
    painter.polygon({{29.5, 42.5}, {31.2, 36.2}, {35.8, 40.8}}, ink);
    painter.polygon({{32.6, 34.8}, {43.2, 24.2}, {47.8, 28.8}, {37.2, 39.4}}, ink);
    painter.polygon({{44.6, 22.8}, {46.2, 21.2}, {50.8, 25.8}, {49.2, 27.4}}, ink);
}

/// A list of three, the first of which is done.
void drawReminder(Painter& painter) {
    constexpr double mark = 8;
    constexpr double markLeft = 13;
    constexpr double lineLeft = 28;
    constexpr double lineRight = 47;
    constexpr double rows[] = {16.5, 30, 43.5};
    for (double y : rows) {
        painter.polyline({{lineLeft, y}, {lineRight, y}}, ink, inkWidth);
    }
    painter.polyline({{markLeft - 0.5, rows[0]}, {markLeft + 3, rows[0] + 3.5}, {markLeft + mark + 1, rows[0] - 4.5}},
                     ink, inkWidth + 0.5);
    for (double y : {rows[1], rows[2]}) {
        painter.strokeEllipse(CGRect(markLeft, y - mark / 2, mark, mark), ink, inkWidth);
    }
}

/// A page of a calendar with its two rings and one day marked.
void drawEvent(Painter& painter) {
    constexpr CGRect page(13, 16, 34, 31);
    constexpr double headHeight = 8;
    constexpr double day = 4;
    painter.stroke(page, ink, inkWidth, 4);
    painter.polyline({{page.origin.x, page.origin.y + headHeight}, {page.maxX(), page.origin.y + headHeight}}, ink,
                     inkWidth);
    for (double x : {21.5, 38.5}) {
        painter.polyline({{x, 12}, {x, 19}}, ink, inkWidth + 0.5);
    }
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 4; ++column) {
            const bool marked = row == 1 && column == 2;
            const double side = marked ? day + 2 : day - 1;
            const double x = 19 + column * 7.33;
            const double y = 29.5 + row * 6;
            painter.fill(CGRect(x - side / 2, y - side / 2, side, side), ink, 1);
        }
    }
}

/// Dusk, far out of focus: nothing in it asks for attention.
void drawBackdrop(Painter& painter) {
    constexpr double width = 320;
    constexpr double height = 568;
    painter.gradient(CGRect(0, 0, width, height), {0.05, 0.14, 0.24}, {0.17, 0.11, 0.22});
    painter.glow(CGRect(-320, -300, 760, 760), {0.09, 0.36, 0.50, 0.70});
    painter.glow(CGRect(0, -60, 640, 640), {0.27, 0.24, 0.50, 0.55});
    painter.glow(CGRect(-360, 160, 800, 720), {0.11, 0.19, 0.42, 0.65});
    painter.glow(CGRect(-60, 300, 720, 640), {0.46, 0.21, 0.38, 0.55});
}

/// At the right end of a row that opens another screen.
void drawArrow(Painter& painter) { chevron(painter, {5.45, 5.25}, -3.95, 3.95, 1.5, disclosure); }

/// Shown at half its size. It lies behind the columns that stretch, so that it never changes its shape.
void drawBack(Painter& painter) { chevron(painter, {21, 42}, 18, 18, 6, tint); }

/// The settings' row: the share sheet's note, on a tile of the backdrop's dusk.
void drawIcon(Painter& painter) {
    constexpr double side = 29;
    painter.clip(CGRect(0, 0, side, side), 6.5);
    painter.gradient(CGRect(0, 0, side, side), {0.16, 0.47, 0.62}, {0.42, 0.27, 0.50});
    constexpr Color paper{1, 1, 1};
    painter.fill(CGRect(8, 6, 13, 17), paper, 2);
    for (double y : {10.0, 13.5, 17.0}) {
        painter.polyline({{10.5, y}, {y < 17 ? 18.5 : 15, y}}, {0.42, 0.32, 0.55}, 1);
    }
    painter.polygon({{16.5, 21.6}, {17.3, 18.6}, {19.5, 20.8}}, {0.20, 0.16, 0.30});
    painter.polygon({{17.9, 18}, {23, 12.9}, {25.2, 15.1}, {20.1, 20.2}}, {0.20, 0.16, 0.30});
}

struct Picture {
    const char* name;
    double width; // points
    double height;
    void (*draw)(Painter&);
    int scales = 2; // pixels a point, from 1 up
};

constexpr Picture pictures[] = {
    {"Quorvan/notes", 60, 60, &drawNote},
    {"Quorvan/Reminders", 60, 60, &drawReminder},
    {"Quorvan/Events", 60, 60, &drawEvent},
    {"Quorvan/bg", 320, 568, &drawBackdrop},
    {"Quorvan/arrow", 7, 10.5, &drawArrow},
    {"Quorvan/back", 46, 84, &drawBack},
    {"PreferenceLoader/Preferences/Quorvan/icon", 29, 29, &drawIcon, 3},
};

bool write(const Picture& picture, double scale, const std::string& file) {
    auto canvas = phone::Canvas::make(picture.width, picture.height, scale);
    picture.draw(canvas->painter());
    if (!canvas->writePng(file)) {
        std::fprintf(stderr, "draw-resources: %s cannot be written\n", file.c_str());
        return false;
    }
    return true;
}

} // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "usage: draw-resources LIBRARY-FOLDER\n");
        return 2;
    }
    for (const Picture& picture : pictures) {
        const std::string stem = std::string(arguments[1]) + "/" + picture.name;
        for (int scale = 1; scale <= picture.scales; ++scale) {
            const std::string suffix = scale == 1 ? "" : "@" + std::to_string(scale) + "x";
            if (!write(picture, scale, stem + suffix + ".png")) {
                return 1;
            }
        }
    }
    return 0;
}
