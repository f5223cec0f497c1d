/// What a client types: characters, and keys that the protocol writes as characters of their own.
#pragma once

#include <string>
#include <vector>

namespace phone::webdriver {

/// One stroke: a text to be typed, or a key by the name that the phone gives it.
struct Stroke {
    enum class Kind { Text, Key };
    Kind kind = Kind::Text;
    std::string what;

    friend bool operator==(const Stroke&, const Stroke&) = default;
};

/// The strokes of a text in UTF-8, in order; neighbouring characters are one stroke. Modifier keys do nothing by
/// themselves. Throws Refusal, unsupported operation, for a key that the phone does not have.
std::vector<Stroke> strokes(const std::string& utf8);

} // namespace phone::webdriver
