#include "phone/elements/CssSelector.h"

#include "phone/elements/Refusal.h"
#include "phone/elements/TextFolding.h"

#include <algorithm>
#include <charconv>

namespace phone::webdriver {

namespace {

[[noreturn]] void refuse(std::string_view text, std::size_t byte) {
    throw Refusal(
        Error::InvalidSelector,
        "the css selector cannot be read at character " + std::to_string(characterAt(text, byte) + 1) +
            ": only *[id=\"…\"], *[name=\"…\"], #… and .… are known here; use another strategy, such as xpath");
}

bool isHexDigit(char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }

/// What an escape stands for; `at` stands behind the backslash, and behind the escape afterwards.
std::string escaped(std::string_view text, std::size_t& at) {
    constexpr std::size_t mostDigits = 6;
    if (!isHexDigit(text[at])) {
        return std::string(1, text[at++]);
    }
    const std::size_t begin = at;
    while (at < text.size() && at - begin < mostDigits && isHexDigit(text[at])) {
        ++at;
    }
    unsigned value = 0;
    std::from_chars(text.data() + begin, text.data() + at, value, 16);
    const bool isCharacter = value > 0 && value <= 0x10FFFF && (value < 0xD800 || value > 0xDFFF);
    const char32_t character = isCharacter ? value : 0xFFFD;
    if (at < text.size() && text[at] == ' ') {
        ++at; // ends the number
    }
    return utf8(std::u32string(1, character));
}

/// A name that goes up to the end.
std::string identifier(std::string_view text, std::size_t at) {
    std::string name;
    while (at < text.size()) {
        const char c = text[at];
        const bool isPlain = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-' ||
                             c == '_' || static_cast<unsigned char>(c) >= 0x80;
        if (c == '\\' && at + 1 < text.size()) {
            name += escaped(text, ++at);
        } else if (isPlain) {
            name += c;
            ++at;
        } else {
            refuse(text, at);
        }
    }
    if (name.empty()) {
        refuse(text, at);
    }
    return name;
}

/// A quoted value and the end of the selector behind it.
std::string quoted(std::string_view text, std::size_t at) {
    const char quote = at < text.size() ? text[at] : '\0';
    if (quote != '"' && quote != '\'') {
        refuse(text, at);
    }
    std::string value;
    for (++at; at < text.size() && text[at] != quote;) {
        if (text[at] == '\\' && at + 1 < text.size()) {
            value += escaped(text, ++at);
        } else {
            value += text[at++];
        }
    }
    if (text.substr(std::min(at, text.size())) != std::string{quote, ']'}) {
        refuse(text, at);
    }
    return value;
}

} // namespace

CssSelector CssSelector::parse(std::string_view text) {
    if (text.starts_with(".")) {
        return {Kind::Type, identifier(text, 1)};
    }
    if (text.starts_with("#")) {
        return {Kind::Name, identifier(text, 1)};
    }
    const std::size_t star = text.starts_with("*") ? 1 : 0;
    for (const std::string_view attribute : {"[id=", "[name="}) {
        if (text.substr(star).starts_with(attribute)) {
            return {Kind::Name, quoted(text, star + attribute.size())};
        }
    }
    refuse(text, star);
}

} // namespace phone::webdriver
