/// The strip at the top of the screen: signal, carrier, time, battery.
#pragma once

#include "phone/coregraphics/Painter.h"

#include <string>

namespace phone {

/// In points.
inline constexpr double statusBarHeight = 20;

/// The wall clock in the phone's time zone, as the person reads clocks: "2:37 PM".
std::string statusBarTime();

/// Draws the bar over what is there, across a screen of this width.
void drawStatusBar(Painter& painter, double width, const Color& color);

} // namespace phone
