#include "phone/elements/TextFolding.h"

#include <algorithm>
#include <array>
#include <clocale>
#include <cwctype>

namespace phone::webdriver {

namespace {

/// Letters of the phone's languages that carry a mark, and the letters that they are without it.
struct Marked {
    std::u32string_view letters;
    std::u32string_view plain; // as many
};
constexpr std::array<Marked, 3> marked = {{
    {U"ÀÁÂÃÄÅÇÈÉÊËÌÍÎÏÑÒÓÔÕÖÙÚÛÜÝàáâãäåçèéêëìíîïñòóôõöùúûüýÿ",
     U"AAAAAACEEEEIIIINOOOOOUUUUYaaaaaaceeeeiiiinooooouuuuyy"},
    {U"ĀāĂăĄąĆćĈĉĊċČčĎďĒēĔĕĖėĘęĚěĜĝĞğĠġĢģĤĥĨĩĪīĬĭĮįİĴĵĶķĹĺĻļĽľŃńŅņŇňŌōŎŏŐőŔŕŖŗŘřŚśŜŝŞşŠšŢţŤťŨũŪūŬŭŮůŰűŲųŴŵŶŷŸŹźŻżŽž",
     U"AaAaAaCcCcCcCcDdEeEeEeEeEeGgGgGgGgHhIiIiIiIiIJjKkLlLlLlNnNnNnOoOoOoRrRrRrSsSsSsSsTtTtUuUuUuUuUuUuWwYyYZzZzZz"},
    {U"ЁёЙйЇїЎўΆΈΉΊΌΎΏάέήίόύώ", U"ЕеИиІіУуΑΕΗΙΟΥΩαεηιουω"},
}};
static_assert(std::all_of(marked.begin(), marked.end(),
                          [](const Marked& row) { return row.letters.size() == row.plain.size(); }));

bool isCombiningMark(char32_t c) { return c >= 0x300 && c <= 0x36F; }

char32_t withoutMark(char32_t c) {
    if (c < 0x80) {
        return c;
    }
    for (const Marked& row : marked) {
        if (const auto at = row.letters.find(c); at != std::u32string_view::npos) {
            return row.plain[at];
        }
    }
    return c;
}

/// Without regard to the language that the process runs in.
char32_t lowerCase(char32_t c) {
    if (c < 0x80) {
        return c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c;
    }
    static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return unicode == nullptr ? c : static_cast<char32_t>(towlower_l(static_cast<wint_t>(c), unicode));
}

/// Bytes of the character that begins here; 1 for what is no UTF-8.
std::size_t lengthAt(std::string_view utf8, std::size_t at) {
    const auto lead = static_cast<unsigned char>(utf8[at]);
    const std::size_t length = lead < 0xC2 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 1;
    if (at + length > utf8.size()) {
        return 1;
    }
    for (std::size_t i = 1; i < length; ++i) {
        if ((static_cast<unsigned char>(utf8[at + i]) & 0xC0) != 0x80) {
            return 1;
        }
    }
    return length;
}

} // namespace

std::u32string characters(std::string_view utf8) {
    std::u32string all;
    all.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const std::size_t length = lengthAt(utf8, at);
        const auto lead = static_cast<unsigned char>(utf8[at]);
        char32_t character = length == 1 ? lead : lead & (0xFF >> (length + 1));
        for (std::size_t i = 1; i < length; ++i) {
            character = (character << 6) | (static_cast<unsigned char>(utf8[at + i]) & 0x3F);
        }
        all.push_back(character);
        at += length;
    }
    return all;
}

std::string utf8(std::u32string_view characters) {
    std::string text;
    for (const char32_t c : characters) {
        const auto tail = [&](int shift) { text += static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
        if (c < 0x80) {
            text += static_cast<char>(c);
        } else if (c < 0x800) {
            text += static_cast<char>(0xC0 | (c >> 6));
            tail(0);
        } else if (c < 0x10000) {
            text += static_cast<char>(0xE0 | (c >> 12));
            tail(6);
            tail(0);
        } else {
            text += static_cast<char>(0xF0 | (c >> 18));
            tail(12);
            tail(6);
            tail(0);
        }
    }
    return text;
}

std::size_t characterAt(std::string_view utf8, std::size_t byte) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < std::min(byte, utf8.size()); at += lengthAt(utf8, at)) {
        ++count;
    }
    return count;
}

std::u32string folded(std::string_view utf8, Folding folding) {
    std::u32string all = characters(utf8);
    if (folding.accents) {
        std::erase_if(all, isCombiningMark);
        std::transform(all.begin(), all.end(), all.begin(), withoutMark);
    }
    if (folding.letterCase) {
        std::transform(all.begin(), all.end(), all.begin(), lowerCase);
    }
    return all;
}

bool isLike(std::u32string_view text, std::u32string_view pattern) {
    constexpr std::size_t none = std::u32string_view::npos;
    std::size_t at = 0;
    std::size_t in = 0;
    std::size_t star = none; // the last one, which may take more
    std::size_t taken = 0;   // up to where it has taken
    while (at < text.size()) {
        const bool escaped = in + 1 < pattern.size() && pattern[in] == U'\\';
        if (in < pattern.size() && pattern[in] == U'*') {
            star = in++;
            taken = at;
        } else if (in < pattern.size() &&
                   (escaped ? pattern[in + 1] == text[at] : pattern[in] == U'?' || pattern[in] == text[at])) {
            in += escaped ? 2 : 1;
            ++at;
        } else if (star != none) {
            in = star + 1;
            at = ++taken;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(U'*', in) == none;
}

} // namespace phone::webdriver
