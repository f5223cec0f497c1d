/// The pictures on the call screen's buttons, drawn in lines.
#pragma once

#include "phone/coregraphics/Painter.h"

namespace phone {

enum class CallGlyph { Mute, Keypad, Speaker, AddCall, Hold, Contacts, Accept, HangUp };

/// Draws the picture around a point, 30 points wide.
void drawCallGlyph(Painter& painter, CallGlyph glyph, CGPoint center, const Color& color);

} // namespace phone
