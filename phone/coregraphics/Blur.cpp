#include "phone/coregraphics/Cairo.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace phone {

namespace {

constexpr int passes = 3; // that many running averages come close to a bell curve

struct Area {
    int left;
    int top;
    int right;
    int bottom;

    int width() const { return right - left; }
    int height() const { return bottom - top; }
    bool isEmpty() const { return width() <= 0 || height() <= 0; }
};

/// The pixels of the surface that the rectangle covers.
Area areaOf(cairo_t* cairo, cairo_surface_t* surface, CGRect rect) {
    const std::array<CGPoint, 4> corners{rect.origin, CGPoint{rect.maxX(), rect.origin.y},
                                         CGPoint{rect.origin.x, rect.maxY()}, CGPoint{rect.maxX(), rect.maxY()}};
    double offsetX = 0;
    double offsetY = 0;
    cairo_surface_get_device_offset(surface, &offsetX, &offsetY);
    double left = 1e9;
    double top = 1e9;
    double right = -1e9;
    double bottom = -1e9;
    for (CGPoint corner : corners) {
        cairo_user_to_device(cairo, &corner.x, &corner.y);
        left = std::min(left, corner.x + offsetX);
        top = std::min(top, corner.y + offsetY);
        right = std::max(right, corner.x + offsetX);
        bottom = std::max(bottom, corner.y + offsetY);
    }
    auto within = [](double value, int limit) { return static_cast<int>(std::clamp(value, 0.0, double(limit))); };
    const int width = cairo_image_surface_get_width(surface);
    const int height = cairo_image_surface_get_height(surface);
    return {within(std::floor(left), width), within(std::floor(top), height), within(std::ceil(right), width),
            within(std::ceil(bottom), height)};
}

/// Replaces each of `count` pixels, `step` bytes apart, by the average of those up to `radius` away; the
/// line's ends go on as they are.
void averageLine(unsigned char* line, std::ptrdiff_t step, int count, int radius, std::vector<std::uint32_t>& copy) {
    for (int i = 0; i < count; ++i) {
        std::memcpy(&copy[static_cast<std::size_t>(i)], line + i * step, 4);
    }
    const int span = 2 * radius + 1;
    auto at = [&](int i) { return copy[static_cast<std::size_t>(std::clamp(i, 0, count - 1))]; };
    std::array<std::uint32_t, 4> sums{};
    for (int i = -radius; i <= radius; ++i) {
        for (std::size_t c = 0; c < sums.size(); ++c) {
            sums[c] += at(i) >> (8 * c) & 0xff;
        }
    }
    for (int i = 0; i < count; ++i) {
        const std::uint32_t leaving = at(i - radius);
        const std::uint32_t entering = at(i + radius + 1);
        std::uint32_t average = 0;
        for (std::size_t c = 0; c < sums.size(); ++c) {
            average |= (sums[c] + static_cast<unsigned>(radius)) / static_cast<unsigned>(span) << (8 * c);
            sums[c] += (entering >> (8 * c) & 0xff) - (leaving >> (8 * c) & 0xff);
        }
        std::memcpy(line + i * step, &average, 4);
    }
}

void average(cairo_surface_t* surface, int radius) {
    cairo_surface_flush(surface);
    unsigned char* data = cairo_image_surface_get_data(surface);
    const int width = cairo_image_surface_get_width(surface);
    const int height = cairo_image_surface_get_height(surface);
    const std::ptrdiff_t stride = cairo_image_surface_get_stride(surface);
    std::vector<std::uint32_t> copy(static_cast<std::size_t>(std::max(width, height)));
    for (int pass = 0; pass < passes; ++pass) {
        for (int y = 0; y < height; ++y) {
            averageLine(data + y * stride, 4, width, radius, copy);
        }
        for (int x = 0; x < width; ++x) {
            averageLine(data + std::ptrdiff_t{4} * x, stride, height, radius, copy);
        }
    }
    cairo_surface_mark_dirty(surface);
}

} // namespace

void blurSurface(cairo_t* cairo, CGRect rect, double radius) {
    cairo_surface_t* surface = cairo_get_group_target(cairo);
    if (cairo_surface_get_type(surface) != CAIRO_SURFACE_TYPE_IMAGE ||
        cairo_image_surface_get_format(surface) != CAIRO_FORMAT_ARGB32) {
        return;
    }
    const Area inside = areaOf(cairo, surface, rect);
    if (inside.isEmpty()) {
        return;
    }
    const int reach = static_cast<int>(std::lround(radius));
    const Area area{std::max(inside.left - reach, 0), std::max(inside.top - reach, 0),
                    std::min(inside.right + reach, cairo_image_surface_get_width(surface)),
                    std::min(inside.bottom + reach, cairo_image_surface_get_height(surface))};
    double offsetX = 0;
    double offsetY = 0;
    cairo_surface_get_device_offset(surface, &offsetX, &offsetY);

    CairoSurface blurred(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, area.width(), area.height()));
    Cairo copy(cairo_create(blurred.get()));
    cairo_set_operator(copy.get(), CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(copy.get(), surface, offsetX - area.left, offsetY - area.top);
    cairo_paint(copy.get());
    average(blurred.get(), std::max(reach / passes, 1));

    cairo_save(cairo);
    cairo_new_path(cairo);
    cairo_rectangle(cairo, rect.origin.x, rect.origin.y, rect.size.width, rect.size.height);
    cairo_clip(cairo);
    cairo_identity_matrix(cairo);
    cairo_set_operator(cairo, CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(cairo, blurred.get(), area.left - offsetX, area.top - offsetY);
    cairo_paint(cairo);
    cairo_restore(cairo);
}

} // namespace phone
