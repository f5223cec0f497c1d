/// The strip at the top of the screen: signal, carrier, time, battery.
#pragma once

#include "phone/coregraphics/Painter.h"

namespace phone {

/// In points.
inline constexpr double statusBarHeight = 20;

/// Draws the bar over what is there, across a screen of this width.
void drawStatusBar(Painter& painter, double width, const Color& color);

} // namespace phone
