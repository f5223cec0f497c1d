#include "phone/webdriver/Keys.h"

#include "phone/elements/Refusal.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace phone::webdriver {

namespace {

/// The protocol's own characters.
constexpr char32_t firstKey = 0xE000;
constexpr char32_t lastKey = 0xF8FF;

struct Key {
    char32_t code;
    Stroke::Kind kind;
    const char* what; // "" does nothing
};

constexpr auto key = Stroke::Kind::Key;
constexpr auto text = Stroke::Kind::Text;
constexpr std::array keys = {
    Key{0xE000, text, ""},                                    // releases modifiers
    Key{0xE003, key, "backspace"}, Key{0xE006, key, "enter"}, // return
    Key{0xE007, key, "enter"},     Key{0xE008, text, ""},     // shift: characters come as they are to be typed
    Key{0xE00D, text, " "},        Key{0xE010, key, "end"},    Key{0xE011, key, "home"}, Key{0xE012, key, "left"},
    Key{0xE014, key, "right"},     Key{0xE017, key, "delete"}, Key{0xE018, text, ";"},   Key{0xE019, text, "="},
    Key{0xE01A, text, "0"},        Key{0xE01B, text, "1"},     Key{0xE01C, text, "2"},   Key{0xE01D, text, "3"},
    Key{0xE01E, text, "4"},        Key{0xE01F, text, "5"},     Key{0xE020, text, "6"},   Key{0xE021, text, "7"},
    Key{0xE022, text, "8"},        Key{0xE023, text, "9"},     Key{0xE024, text, "*"},   Key{0xE025, text, "+"},
    Key{0xE026, text, ","},        Key{0xE027, text, "-"},     Key{0xE028, text, "."},   Key{0xE029, text, "/"},
    Key{0xE050, text, ""}, // the right shift
};

/// Of three bytes at `at`, the only length that the protocol's characters have; 0 for another character.
char32_t keyAt(const std::string& utf8, std::size_t at) {
    if (at + 2 >= utf8.size()) {
        return 0;
    }
    const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(utf8[at + index]); };
    if ((byte(0) & 0xF0U) != 0xE0U) {
        return 0;
    }
    const char32_t code = (byte(0) & 0x0FU) << 12U | (byte(1) & 0x3FU) << 6U | (byte(2) & 0x3FU);
    return code >= firstKey && code <= lastKey ? code : 0;
}

Stroke strokeOf(char32_t code) {
    const auto known = std::find_if(keys.begin(), keys.end(), [&](const Key& one) { return one.code == code; });
    if (known == keys.end()) {
        std::array<char, 16> name{};
        std::snprintf(name.data(), name.size(), "U+%04X", static_cast<unsigned>(code));
        throw Refusal(
            Error::UnsupportedOperation,
            std::string("the phone has no key ") + name.data() +
                "; it has Enter, Backspace, Delete, Home, End, the arrows to the left and right, and the number pad");
    }
    return {known->kind, known->what};
}

} // namespace

std::vector<Stroke> strokes(const std::string& utf8) {
    std::vector<Stroke> all;
    const auto add = [&](const Stroke& stroke) {
        const bool joins = stroke.kind == Stroke::Kind::Text && !all.empty() && all.back().kind == Stroke::Kind::Text;
        if (joins) {
            all.back().what += stroke.what;
        } else if (!stroke.what.empty()) {
            all.push_back(stroke);
        }
    };
    for (std::size_t at = 0; at < utf8.size();) {
        if (const char32_t code = keyAt(utf8, at)) {
            add(strokeOf(code));
            at += 3;
        } else {
            add({Stroke::Kind::Text, utf8.substr(at, 1)});
            ++at;
        }
    }
    return all;
}

} // namespace phone::webdriver
