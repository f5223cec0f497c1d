#include "phone/coregraphics/Cairo.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace phone {

namespace {

class CairoPainter final : public Painter {
public:
    CairoPainter(cairo_surface_t* surface, double scale) : _cairo(cairo_create(surface)) {
        cairo_scale(cr(), scale, scale);
    }

    void save() override {
        cairo_save(cr());
        _saved.push_back(_stroke);
    }
    void restore() override {
        if (_saved.empty()) {
            return;
        }
        cairo_restore(cr());
        _stroke = _saved.back();
        _saved.pop_back();
    }
    void translate(double x, double y) override { cairo_translate(cr(), x, y); }
    void rotate(double radians) override { cairo_rotate(cr(), radians); }
    void scale(double x, double y) override {
        if (x != 0 && y != 0) { // a transform that cannot be undone would end all drawing
            cairo_scale(cr(), x, y);
        }
    }
    void clip(CGRect rect, double radius) override {
        addRect(rect, radius);
        cairo_clip(cr());
    }
    void beginGroup() override { cairo_push_group(cr()); }
    void endGroup(double alpha) override {
        cairo_pop_group_to_source(cr());
        cairo_paint_with_alpha(cr(), alpha);
    }

    void fill(CGRect rect, const Color& color, double radius) override {
        addRect(rect, radius);
        fillWith(color);
    }
    void stroke(CGRect rect, const Color& color, double width, double radius) override {
        addRect(rect, radius);
        strokeWith(color, width);
    }
    void fillEllipse(CGRect rect, const Color& color) override {
        addEllipse(rect);
        fillWith(color);
    }
    void strokeEllipse(CGRect rect, const Color& color, double width) override {
        addEllipse(rect);
        strokeWith(color, width);
    }
    void polyline(const std::vector<CGPoint>& points, const Color& color, double width) override {
        addPoints(points);
        cairo_save(cr());
        cairo_set_line_cap(cr(), CAIRO_LINE_CAP_ROUND);
        cairo_set_line_join(cr(), CAIRO_LINE_JOIN_ROUND);
        strokeWith(color, width);
        cairo_restore(cr());
    }
    void polygon(const std::vector<CGPoint>& points, const Color& color) override {
        addPoints(points);
        cairo_close_path(cr());
        fillWith(color);
    }
    void gradient(CGRect rect, const Color& top, const Color& bottom) override {
        CairoPattern pattern(cairo_pattern_create_linear(0, rect.origin.y, 0, rect.maxY()));
        addStop(pattern.get(), 0, top);
        addStop(pattern.get(), 1, bottom);
        addRect(rect, 0);
        cairo_set_source(cr(), pattern.get());
        cairo_fill(cr());
    }
    void glow(CGRect rect, const Color& color) override {
        if (isEmpty(rect)) {
            return;
        }
        CairoPattern pattern(cairo_pattern_create_radial(0, 0, 0, 0, 0, 1));
        constexpr int stops = 16; // a smooth step, so that the spot has no visible edge
        for (int i = 0; i <= stops; ++i) {
            const double at = static_cast<double>(i) / stops;
            Color faded = color;
            faded.alpha *= 1 - at * at * (3 - 2 * at);
            addStop(pattern.get(), at, faded);
        }
        cairo_save(cr());
        addRect(rect, 0);
        cairo_clip(cr());
        cairo_translate(cr(), rect.center().x, rect.center().y);
        cairo_scale(cr(), rect.size.width / 2, rect.size.height / 2);
        cairo_set_source(cr(), pattern.get());
        cairo_paint(cr());
        cairo_restore(cr());
    }

    void image(const Bitmap& bitmap, CGRect into) override {
        image(bitmap, CGRect(0, 0, bitmap.width(), bitmap.height()), into);
    }
    void image(const Bitmap& bitmap, CGRect pixels, CGRect into) override {
        if (isEmpty(pixels) || isEmpty(into)) {
            return;
        }
        CairoSurface part = partOf(bitmap, pixels);
        CairoPattern pattern = patternOf(part.get(), pixels.size, into);
        addRect(into, 0);
        cairo_set_source(cr(), pattern.get());
        cairo_fill(cr());
    }
    void mask(const Bitmap& bitmap, CGRect into, const Color& color) override {
        const CGRect pixels(0, 0, bitmap.width(), bitmap.height());
        if (isEmpty(pixels) || isEmpty(into)) {
            return;
        }
        CairoSurface part = partOf(bitmap, pixels);
        CairoPattern pattern = patternOf(part.get(), pixels.size, into);
        cairo_save(cr());
        addRect(into, 0);
        cairo_clip(cr());
        setSource(color);
        cairo_mask(cr(), pattern.get());
        cairo_restore(cr());
    }
    void text(const TextLayout& layout, CGPoint origin, const Color& color) override {
        paintText(cr(), layout, origin, color);
    }
    void blurBelow(CGRect rect, double radius) override {
        if (isEmpty(rect) || radius <= 0) {
            return;
        }
        cairo_matrix_t transform;
        cairo_get_matrix(cr(), &transform);
        const double pixelsPerPoint = std::sqrt(std::abs(transform.xx * transform.yy - transform.xy * transform.yx));
        blurSurface(cr(), rect, radius * pixelsPerPoint);
    }

    void moveTo(CGPoint point) override { addToPath(point, true); }
    void addLineTo(CGPoint point) override {
        if (!_path.empty()) {
            addToPath(point, false);
        }
    }
    void setStrokeColor(const Color& color) override { _stroke.color = color; }
    void setLineWidth(double width) override { _stroke.width = width; }
    void strokePath() override {
        cairo_new_path(cr());
        for (Step step : _path) {
            cairo_device_to_user(cr(), &step.x, &step.y);
            step.starts ? cairo_move_to(cr(), step.x, step.y) : cairo_line_to(cr(), step.x, step.y);
        }
        _path.clear();
        strokeWith(_stroke.color, _stroke.width);
    }

private:
    struct Stroke {
        Color color;
        double width = 1;
    };
    /// One step of the platform's path, in the surface's own coordinates: a later transform leaves it alone.
    struct Step {
        double x;
        double y;
        bool starts;
    };

    cairo_t* cr() const { return _cairo.get(); }

    static bool isEmpty(CGRect rect) { return !(rect.size.width > 0 && rect.size.height > 0); }

    void addRect(CGRect rect, double radius) {
        cairo_new_path(cr());
        if (isEmpty(rect)) {
            return;
        }
        const double r = std::min({radius, rect.size.width / 2, rect.size.height / 2});
        if (r <= 0) {
            cairo_rectangle(cr(), rect.origin.x, rect.origin.y, rect.size.width, rect.size.height);
            return;
        }
        constexpr double quarter = std::numbers::pi / 2;
        cairo_arc(cr(), rect.maxX() - r, rect.origin.y + r, r, -quarter, 0);
        cairo_arc(cr(), rect.maxX() - r, rect.maxY() - r, r, 0, quarter);
        cairo_arc(cr(), rect.origin.x + r, rect.maxY() - r, r, quarter, 2 * quarter);
        cairo_arc(cr(), rect.origin.x + r, rect.origin.y + r, r, 2 * quarter, 3 * quarter);
        cairo_close_path(cr());
    }

    void addEllipse(CGRect rect) {
        cairo_new_path(cr());
        if (isEmpty(rect)) {
            return;
        }
        cairo_save(cr());
        cairo_translate(cr(), rect.center().x, rect.center().y);
        cairo_scale(cr(), rect.size.width / 2, rect.size.height / 2);
        cairo_arc(cr(), 0, 0, 1, 0, 2 * std::numbers::pi);
        cairo_close_path(cr());
        cairo_restore(cr()); // so that the line keeps its width all around
    }

    void addPoints(const std::vector<CGPoint>& points) {
        cairo_new_path(cr());
        for (const CGPoint& point : points) {
            cairo_line_to(cr(), point.x, point.y);
        }
    }

    void addToPath(CGPoint point, bool starts) {
        cairo_user_to_device(cr(), &point.x, &point.y);
        _path.push_back({point.x, point.y, starts});
    }

    void setSource(const Color& color) { cairo_set_source_rgba(cr(), color.red, color.green, color.blue, color.alpha); }
    void fillWith(const Color& color) {
        setSource(color);
        cairo_fill(cr());
    }
    void strokeWith(const Color& color, double width) {
        setSource(color);
        cairo_set_line_width(cr(), std::max(width, 0.0));
        cairo_stroke(cr());
    }

    static void addStop(cairo_pattern_t* pattern, double at, const Color& color) {
        cairo_pattern_add_color_stop_rgba(pattern, at, color.red, color.green, color.blue, color.alpha);
    }

    static CairoSurface partOf(const Bitmap& bitmap, CGRect pixels) {
        cairo_surface_t* whole = static_cast<const CairoBitmap&>(bitmap).surface();
        return CairoSurface(cairo_surface_create_for_rectangle(whole, pixels.origin.x, pixels.origin.y,
                                                               pixels.size.width, pixels.size.height));
    }

    /// Neighbouring parts of one picture meet without a seam: each repeats its own edge.
    static CairoPattern patternOf(cairo_surface_t* part, CGSize pixels, CGRect into) {
        CairoPattern pattern(cairo_pattern_create_for_surface(part));
        cairo_matrix_t matrix;
        cairo_matrix_init_scale(&matrix, pixels.width / into.size.width, pixels.height / into.size.height);
        cairo_matrix_translate(&matrix, -into.origin.x, -into.origin.y);
        cairo_pattern_set_matrix(pattern.get(), &matrix);
        cairo_pattern_set_extend(pattern.get(), CAIRO_EXTEND_PAD);
        cairo_pattern_set_filter(pattern.get(), CAIRO_FILTER_GOOD);
        return pattern;
    }

    Cairo _cairo;
    Stroke _stroke;
    std::vector<Stroke> _saved;
    std::vector<Step> _path;
};

constinit Painter* drawingNow = nullptr;

} // namespace

std::unique_ptr<Painter> makeCairoPainter(cairo_surface_t* surface, double scale) {
    return std::make_unique<CairoPainter>(surface, scale);
}

Painter* Painter::current() { return drawingNow; }

CurrentPainter::CurrentPainter(Painter& painter) : _previous(drawingNow) { drawingNow = &painter; }
CurrentPainter::~CurrentPainter() { drawingNow = _previous; }

} // namespace phone
