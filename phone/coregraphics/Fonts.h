/// The fonts of the phone, for the text layout alone.
#pragma once

#include "phone/coregraphics/TextLayout.h"

#include <pango/pangocairo.h>

#include <memory>

namespace phone {

/// Unrefs what GObject counts.
struct GObjectDeleter {
    void operator()(void* object) const { g_object_unref(object); }
};
template <class T>
using GObject = std::unique_ptr<T, GObjectDeleter>;

/// The context for laying text out, measured without hints and in fractions of pixels: the same on every
/// machine. Made at the first call with the phone's own fonts; main thread only.
PangoContext* textContext();

/// The face as pango describes it.
struct FontDescriptionDeleter {
    void operator()(PangoFontDescription* description) const { pango_font_description_free(description); }
};
using FontDescription = std::unique_ptr<PangoFontDescription, FontDescriptionDeleter>;
FontDescription fontDescriptionOf(const Typeface& face);

} // namespace phone
