#include "phone/coregraphics/Cairo.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace phone {

namespace {

struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Close>;

cairo_status_t writeBytes(void* file, const unsigned char* bytes, unsigned count) {
    const bool written = std::fwrite(bytes, 1, count, static_cast<std::FILE*>(file)) == count;
    return written ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

class CairoCanvas final : public Canvas {
public:
    CairoCanvas(CairoSurface surface, double scale)
        : _surface(std::move(surface)), _scale(scale), _painter(makeCairoPainter(_surface.get(), scale)),
          _bitmap(CairoSurface(cairo_surface_reference(_surface.get()))) {}

    Painter& painter() override { return *_painter; }
    const Bitmap& bitmap() const override { return _bitmap; }

    bool writePng(const std::string& path) const override { return write(_surface.get(), path); }

    bool writePng(const std::string& path, CGRect part) const override {
        const int left = std::max(0, static_cast<int>(std::floor(part.origin.x * _scale)));
        const int top = std::max(0, static_cast<int>(std::floor(part.origin.y * _scale)));
        const int right = std::min(width(), static_cast<int>(std::ceil(part.maxX() * _scale)));
        const int bottom = std::min(height(), static_cast<int>(std::ceil(part.maxY() * _scale)));
        if (left >= right || top >= bottom) {
            return false;
        }
        cairo_surface_flush(_surface.get());
        const CairoSurface cut(cairo_image_surface_create_for_data(
            cairo_image_surface_get_data(_surface.get()) + static_cast<std::ptrdiff_t>(top) * stride() +
                static_cast<std::ptrdiff_t>(left) * static_cast<std::ptrdiff_t>(sizeof(std::uint32_t)),
            CAIRO_FORMAT_ARGB32, right - left, bottom - top, stride()));
        return write(cut.get(), path);
    }

    unsigned pixel(int x, int y) const override {
        return x < 0 || y < 0 || x >= width() || y >= height() ? 0 : line(y)[x];
    }

    int width() const override { return cairo_image_surface_get_width(_surface.get()); }
    int height() const override { return cairo_image_surface_get_height(_surface.get()); }

    const std::uint32_t* line(int y) const override {
        cairo_surface_flush(_surface.get());
        return reinterpret_cast<const std::uint32_t*>(cairo_image_surface_get_data(_surface.get()) +
                                                      static_cast<std::ptrdiff_t>(y) * stride());
    }

private:
    static bool write(cairo_surface_t* surface, const std::string& path) {
        const File file(std::fopen(path.c_str(), "wb"));
        return file != nullptr &&
               cairo_surface_write_to_png_stream(surface, &writeBytes, file.get()) == CAIRO_STATUS_SUCCESS &&
               std::fflush(file.get()) == 0;
    }

    int stride() const { return cairo_image_surface_get_stride(_surface.get()); }

    CairoSurface _surface;
    double _scale;
    std::unique_ptr<Painter> _painter;
    CairoBitmap _bitmap;
};

} // namespace

std::unique_ptr<Canvas> Canvas::make(double width, double height, double scale) {
    const double across = std::ceil(width * scale);
    const double down = std::ceil(height * scale);
    if (!(across > 0 && down > 0 && across <= Bitmap::maximumSide && down <= Bitmap::maximumSide)) {
        return nullptr;
    }
    CairoSurface surface(
        cairo_image_surface_create(CAIRO_FORMAT_ARGB32, static_cast<int>(across), static_cast<int>(down)));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) {
        return nullptr;
    }
    return std::make_unique<CairoCanvas>(std::move(surface), scale);
}

} // namespace phone
