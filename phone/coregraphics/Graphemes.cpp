#include "phone/coregraphics/Graphemes.h"

#include <pango/pango.h>

#include <memory>

namespace phone {

namespace {

/// A boundary between characters.
struct Boundary {
    std::size_t byte;
    std::size_t unit; // of UTF-16
};

struct Walk {
    std::string text; // valid UTF-8
    std::vector<Boundary> boundaries;
};

Walk walk(const std::string& utf8) {
    const std::unique_ptr<char, decltype(&g_free)> valid(
        g_utf8_make_valid(utf8.data(), static_cast<gssize>(utf8.size())), &g_free);
    Walk result{valid.get(), {}};
    const char* text = result.text.c_str();
    const auto length = static_cast<int>(result.text.size());
    // One attribute for each place before, between and after the code points.
    std::vector<PangoLogAttr> attributes(static_cast<std::size_t>(g_utf8_strlen(text, length)) + 1);
    pango_get_log_attrs(text, length, -1, pango_language_from_string("en"), attributes.data(),
                        static_cast<int>(attributes.size()));
    const char* at = text;
    std::size_t unit = 0;
    for (std::size_t i = 0; i < attributes.size(); ++i) {
        const bool isEnd = i == 0 || i + 1 == attributes.size();
        if (isEnd || attributes[i].is_cursor_position != 0) {
            result.boundaries.push_back({static_cast<std::size_t>(at - text), unit});
        }
        if (i + 1 < attributes.size()) {
            unit += g_utf8_get_char(at) > 0xffff ? 2 : 1;
            at = g_utf8_next_char(at);
        }
    }
    return result;
}

} // namespace

std::vector<std::size_t> graphemeBoundaries(const std::string& utf8) {
    std::vector<std::size_t> units;
    for (const Boundary& boundary : walk(utf8).boundaries) {
        units.push_back(boundary.unit);
    }
    return units;
}

std::vector<std::string> graphemes(const std::string& utf8) {
    const Walk all = walk(utf8);
    std::vector<std::string> characters;
    for (std::size_t i = 1; i < all.boundaries.size(); ++i) {
        const std::size_t start = all.boundaries[i - 1].byte;
        characters.push_back(all.text.substr(start, all.boundaries[i].byte - start));
    }
    return characters;
}

} // namespace phone
