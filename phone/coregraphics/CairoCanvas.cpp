#include "phone/coregraphics/Cairo.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace phone {

namespace {

struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Close>;

cairo_status_t write(void* file, const unsigned char* bytes, unsigned count) {
    const bool written = std::fwrite(bytes, 1, count, static_cast<std::FILE*>(file)) == count;
    return written ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

class CairoCanvas final : public Canvas {
public:
    CairoCanvas(CairoSurface surface, double scale)
        : _surface(std::move(surface)), _painter(makeCairoPainter(_surface.get(), scale)) {}

    Painter& painter() override { return *_painter; }

    bool writePng(const std::string& path) const override {
        File file(std::fopen(path.c_str(), "wb"));
        return file != nullptr &&
               cairo_surface_write_to_png_stream(_surface.get(), &write, file.get()) == CAIRO_STATUS_SUCCESS &&
               std::fflush(file.get()) == 0;
    }

    unsigned pixel(int x, int y) const override {
        cairo_surface_t* surface = _surface.get();
        if (x < 0 || y < 0 || x >= cairo_image_surface_get_width(surface) ||
            y >= cairo_image_surface_get_height(surface)) {
            return 0;
        }
        cairo_surface_flush(surface);
        std::uint32_t found = 0;
        std::memcpy(&found,
                    cairo_image_surface_get_data(surface) +
                        static_cast<std::ptrdiff_t>(y) * cairo_image_surface_get_stride(surface) +
                        static_cast<std::ptrdiff_t>(x) * 4,
                    sizeof found);
        return found;
    }

private:
    CairoSurface _surface;
    std::unique_ptr<Painter> _painter;
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
