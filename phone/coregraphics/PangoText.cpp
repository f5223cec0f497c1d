#include "phone/coregraphics/Cairo.h"
#include "phone/coregraphics/Fonts.h"
#include "phone/coregraphics/Utf16.h"

#include <pango/pangofc-font.h>

#include <algorithm>
#include <cmath>

namespace phone {

namespace {

constexpr const char* ellipsis = "\u2026";

double points(int pangoUnits) { return static_cast<double>(pangoUnits) / PANGO_SCALE; }

/// Whether the font's characters are pictures with colours of their own.
bool isColored(PangoFont* font) {
    FcBool colored = FcFalse;
    FcPatternGetBool(pango_fc_font_get_pattern(PANGO_FC_FONT(font)), FC_COLOR, 0, &colored);
    return colored == FcTrue;
}

/// How far a face reaches above and below its baseline, in points.
struct Metrics {
    double ascent = 0;
    double descent = 0;

    double height() const { return ascent + descent; }
};

Metrics metricsOf(const Typeface& face) {
    FontDescription description = fontDescriptionOf(face);
    GObject<PangoFont> font(pango_context_load_font(textContext(), description.get()));
    PangoFontMetrics* found = pango_font_get_metrics(font.get(), nullptr);
    const Metrics metrics{points(pango_font_metrics_get_ascent(found)), points(pango_font_metrics_get_descent(found))};
    pango_font_metrics_unref(found);
    return metrics;
}

/// Pango stops at a zero byte and wants valid text.
std::string cleaned(const std::string& utf8) {
    char* valid = g_utf8_make_valid(utf8.c_str(), -1);
    std::string text(valid);
    g_free(valid);
    return text;
}

class PangoText final : public TextLayout {
public:
    PangoText(const std::string& utf8, const Options& options)
        : _text(cleaned(utf8)), _index(_text), _options(options), _metrics(metricsOf(options.face)) {
        addLines(layoutOf(_text, PANGO_ELLIPSIZE_NONE), 0);
        if (_options.maximumLines > 0 && _lines.size() > static_cast<std::size_t>(_options.maximumLines)) {
            cutLines();
        }
    }

    CGSize size() const override {
        double width = 0;
        for (const Line& line : _lines) {
            width = std::max(width, line.width);
        }
        return {width, lineCount() * _metrics.height()};
    }

    int lineCount() const override { return static_cast<int>(_lines.size()); }

    bool isRightToLeft() const override { return _lines.front().isRightToLeft; }

    CGRect caret(std::size_t position) const override {
        const std::size_t byte = _index.byteOf(position);
        std::size_t at = _lines.size() - 1;
        while (at > 0 && _lines[at].start > byte) {
            --at;
        }
        const Line& line = _lines[at];
        const auto index = static_cast<int>(std::min(byte - line.base, line.layoutLength));
        int x = 0; // where a line that goes to the left ends; pango would give its right end
        if (!line.isRightToLeft || index < line.line->start_index + line.line->length) {
            pango_layout_line_index_to_x(line.line, index, FALSE, &x);
        }
        return CGRect(line.x + points(x), static_cast<double>(at) * _metrics.height(), caretWidth, _metrics.height());
    }

    std::size_t positionAt(CGPoint point) const override {
        const double row = std::floor(point.y / _metrics.height());
        const auto at = static_cast<std::size_t>(std::clamp(row, 0.0, static_cast<double>(_lines.size() - 1)));
        const Line& line = _lines[at];
        int byte = 0;
        int trailing = 0;
        const double x = std::clamp(point.x - line.x, -1.0, line.width + 1);
        pango_layout_line_x_to_index(line.line, static_cast<int>(std::lround(x * PANGO_SCALE)), &byte, &trailing);
        const char* text = pango_layout_get_text(line.layout);
        const char* found = g_utf8_offset_to_pointer(text + byte, trailing);
        std::size_t position = std::min(line.base + static_cast<std::size_t>(found - text), _text.size());
        const bool wraps = at + 1 < _lines.size() && _lines[at + 1].start == position && position > line.start;
        if (wraps && _text[position - 1] != '\n') { // the next line's first position: stay on this line
            position = static_cast<std::size_t>(g_utf8_prev_char(_text.data() + position) - _text.data());
        }
        return _index.unitOf(position);
    }

    /// Adds the outlines to the current path.
    void addPath(cairo_t* cairo, CGPoint origin) const {
        eachRun(cairo, origin, [&](PangoGlyphItem* run) {
            if (!isColored(run->item->analysis.font)) {
                pango_cairo_glyph_string_path(cairo, run->item->analysis.font, run->glyphs);
            }
        });
    }

    /// Draws the characters that have no outlines.
    void showPictures(cairo_t* cairo, CGPoint origin) const {
        eachRun(cairo, origin, [&](PangoGlyphItem* run) {
            if (isColored(run->item->analysis.font)) {
                pango_cairo_show_glyph_string(cairo, run->item->analysis.font, run->glyphs);
            }
        });
    }

    bool hasPictures() const { return _hasPictures; }

private:
    struct Line {
        PangoLayout* layout;   // one of `_layouts`
        PangoLayoutLine* line; // owned by it
        std::size_t base = 0;  // where the layout's text begins in the whole one, in bytes
        std::size_t layoutLength = 0;
        std::size_t start = 0; // where the line begins in the whole text, in bytes
        double x = 0;          // points
        double width = 0;
        bool isRightToLeft = false;
    };

    /// Calls with each run of one font, with cairo's current point where it begins.
    template <class Show>
    void eachRun(cairo_t* cairo, CGPoint origin, const Show& show) const {
        double baseline = origin.y + _metrics.ascent;
        for (const Line& line : _lines) {
            double x = origin.x + line.x;
            for (const GSList* at = line.line->runs; at != nullptr; at = at->next) {
                auto* run = static_cast<PangoGlyphItem*>(at->data);
                moveToWholePixel(cairo, x, baseline);
                show(run);
                x += points(pango_glyph_string_get_width(run->glyphs));
            }
            baseline += _metrics.height();
        }
    }

    PangoLayout* layoutOf(const std::string& text, PangoEllipsizeMode mode) {
        GObject<PangoLayout> layout(pango_layout_new(textContext()));
        FontDescription description = fontDescriptionOf(_options.face);
        pango_layout_set_font_description(layout.get(), description.get());
        pango_layout_set_text(layout.get(), text.data(), static_cast<int>(text.size()));
        if (_options.width >= 0) {
            pango_layout_set_width(layout.get(), static_cast<int>(std::floor(_options.width * PANGO_SCALE)));
            pango_layout_set_wrap(layout.get(), PANGO_WRAP_WORD_CHAR);
            pango_layout_set_ellipsize(layout.get(), mode);
        }
        _layouts.push_back(std::move(layout));
        return _layouts.back().get();
    }

    void addLines(PangoLayout* layout, std::size_t base) {
        PangoLayoutIter* at = pango_layout_get_iter(layout);
        do {
            Line line{layout, pango_layout_iter_get_line_readonly(at), base};
            PangoRectangle extents;
            pango_layout_line_get_extents(line.line, nullptr, &extents);
            line.layoutLength = std::char_traits<char>::length(pango_layout_get_text(layout));
            line.start = base + static_cast<std::size_t>(line.line->start_index);
            line.width = points(extents.width);
            line.isRightToLeft = pango_layout_line_get_resolved_direction(line.line) == PANGO_DIRECTION_RTL;
            line.x = indent(line);
            for (const GSList* run = line.line->runs; run != nullptr; run = run->next) {
                const auto* glyphs = static_cast<const PangoGlyphItem*>(run->data);
                _hasPictures = _hasPictures || isColored(glyphs->item->analysis.font);
            }
            _lines.push_back(line);
        } while (pango_layout_iter_next_line(at));
        pango_layout_iter_free(at);
    }

    double indent(const Line& line) const {
        const double spare = _options.width < 0 ? 0 : _options.width - line.width;
        switch (_options.alignment) {
        case Alignment::Left:
            return 0;
        case Alignment::Center:
            return spare / 2;
        case Alignment::Right:
            return spare;
        case Alignment::Natural:
            return line.isRightToLeft ? spare : 0;
        }
        return 0;
    }

    /// Keeps as many lines as are allowed, and says in the last one that there is more.
    void cutLines() {
        const std::size_t last = static_cast<std::size_t>(_options.maximumLines) - 1;
        const std::size_t start = _lines[last].start;
        if (!_options.ellipsis) {
            _lines.resize(last + 1);
            return;
        }
        _lines.resize(last);
        const std::size_t end = _text.find('\n', start);
        std::string rest = _text.substr(start, end == std::string::npos ? end : end - start);
        if (end != std::string::npos) {
            rest += ellipsis;
        }
        addLines(layoutOf(rest, PANGO_ELLIPSIZE_END), start);
    }

    /// Baselines lie on whole pixels, as on the platform; letters stand where they fall.
    static void moveToWholePixel(cairo_t* cairo, double x, double y) {
        cairo_matrix_t matrix;
        cairo_get_matrix(cairo, &matrix);
        cairo_user_to_device(cairo, &x, &y);
        if (matrix.xy == 0 && matrix.yx == 0) {
            y = std::round(y);
        } else if (matrix.xx == 0 && matrix.yy == 0) { // a device turned on its side
            x = std::round(x);
        }
        cairo_device_to_user(cairo, &x, &y);
        cairo_move_to(cairo, x, y);
    }

    std::string _text;
    Utf16Index _index;
    Options _options;
    Metrics _metrics;
    std::vector<GObject<PangoLayout>> _layouts;
    std::vector<Line> _lines;
    bool _hasPictures = false;
};

} // namespace

std::unique_ptr<TextLayout> TextLayout::make(const std::string& utf8, const Options& options) {
    return std::make_unique<PangoText>(utf8, options);
}

double TextLayout::lineHeight(const Typeface& face) { return metricsOf(face).height(); }
double TextLayout::ascender(const Typeface& face) { return metricsOf(face).ascent; }

void paintText(cairo_t* cairo, const TextLayout& layout, CGPoint origin, const Color& color) {
    const auto& text = static_cast<const PangoText&>(layout);
    cairo_new_path(cairo);
    text.addPath(cairo, origin);
    cairo_set_source_rgba(cairo, color.red, color.green, color.blue, color.alpha);
    cairo_fill(cairo);
    if (text.hasPictures()) {
        cairo_push_group(cairo); // pictures take only the colour's alpha
        text.showPictures(cairo, origin);
        cairo_pop_group_to_source(cairo);
        cairo_paint_with_alpha(cairo, color.alpha);
    }
}

} // namespace phone
