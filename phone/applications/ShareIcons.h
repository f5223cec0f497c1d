/// The icons of the system's activities, drawn.
#pragma once

#include "phone/coregraphics/Painter.h"

namespace phone {

void drawMessageIcon(Painter& painter, CGRect rect);
void drawMailIcon(Painter& painter, CGRect rect);
void drawCopyIcon(Painter& painter, CGRect rect);
void drawAirDropIcon(Painter& painter, CGRect rect);
/// A letter on a ground of one colour: for services whose pictures are their own.
void drawLetterIcon(Painter& painter, CGRect rect, const char* letter, const Color& ground);

} // namespace phone
