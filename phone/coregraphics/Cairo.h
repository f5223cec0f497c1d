/// What the files of the cairo implementation share. Included by them alone.
#pragma once

#include "phone/coregraphics/Painter.h"

#include <cairo.h>

#include <memory>

namespace phone {

struct CairoDeleter {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_pattern_t* pattern) const { cairo_pattern_destroy(pattern); }
    void operator()(cairo_t* cairo) const { cairo_destroy(cairo); }
};
using CairoSurface = std::unique_ptr<cairo_surface_t, CairoDeleter>;
using CairoPattern = std::unique_ptr<cairo_pattern_t, CairoDeleter>;
using Cairo = std::unique_ptr<cairo_t, CairoDeleter>;

/// A picture in cairo's own pixels.
class CairoBitmap final : public Bitmap {
public:
    explicit CairoBitmap(CairoSurface surface) : _surface(std::move(surface)) {}

    int width() const override { return cairo_image_surface_get_width(surface()); }
    int height() const override { return cairo_image_surface_get_height(surface()); }
    cairo_surface_t* surface() const { return _surface.get(); }

private:
    CairoSurface _surface;
};

/// Draws on a surface, which it keeps alive.
std::unique_ptr<Painter> makeCairoPainter(cairo_surface_t* surface, double scale);

/// Draws letters in the colour, and emoji in their own with its alpha.
void paintText(cairo_t* cairo, const TextLayout& layout, CGPoint origin, const Color& color);

/// Blurs the surface's pixels under the current clip that lie in the rectangle (points of the current
/// transform) by a radius in pixels.
void blurSurface(cairo_t* cairo, CGRect rect, double radius);

} // namespace phone
