#include "phone/uikit/StatusBar.h"

#include "phone/foundation/PersonsDates.h"
#include "phone/foundation/Text.h"

namespace phone {

namespace {

constexpr double textSize = 12;
constexpr double edge = 6;
constexpr double middle = statusBarHeight / 2;

std::unique_ptr<TextLayout> line(const std::string& text, Typeface::Weight weight) {
    TextLayout::Options options;
    options.face = {weight, textSize};
    return TextLayout::make(text, options);
}

void drawCentred(Painter& painter, const TextLayout& layout, double left, const Color& color) {
    painter.text(layout, {left, middle - layout.size().height / 2}, color);
}

/// Answers where the dots end.
double drawSignal(Painter& painter, const Color& color) {
    constexpr int dots = 5;
    constexpr int full = 4;
    constexpr double size = 5.5;
    constexpr double step = 7;
    for (int dot = 0; dot < dots; ++dot) {
        const CGRect place{edge + dot * step, middle - size / 2, size, size};
        if (dot < full) {
            painter.fillEllipse(place, color);
        } else {
            constexpr double ring = 0.5;
            painter.strokeEllipse({place.origin.x + ring / 2, place.origin.y + ring / 2, size - ring, size - ring},
                                  color, ring);
        }
    }
    return edge + dots * step;
}

void drawBattery(Painter& painter, double width, const Color& color) {
    constexpr double charge = 0.8;
    const CGRect shell{width - edge - 25, middle - 5, 22.5, 10};
    constexpr double ring = 0.5;
    painter.stroke(
        {shell.origin.x + ring / 2, shell.origin.y + ring / 2, shell.size.width - ring, shell.size.height - ring},
        color, ring, 1.5);
    painter.fill({shell.origin.x + 1.5, shell.origin.y + 1.5, (shell.size.width - 3) * charge, shell.size.height - 3},
                 color, 0.5);
    painter.fill({shell.maxX() + 1, middle - 1.75, 1.5, 3.5}, color, 0.75);
}

} // namespace

std::string statusBarTime() {
    static const auto* formatter = new NSDateFormatter(personsFormatter(personsPattern("jmm")));
    return text(formatter->string(NSDate::now()));
}

void drawStatusBar(Painter& painter, double width, const Color& color) {
    const double signalEnd = drawSignal(painter, color);
    drawCentred(painter, *line("Carrier", Typeface::Weight::Regular), signalEnd + 3, color);
    const auto time = line(statusBarTime(), Typeface::Weight::Medium);
    drawCentred(painter, *time, (width - time->size().width) / 2, color);
    drawBattery(painter, width, color);
}

} // namespace phone
