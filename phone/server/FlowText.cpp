#include "phone/server/FlowText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>

namespace phone {

std::string flowQuoted(const std::string& text) {
    std::string plain;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isVariable = text.compare(at, 2, "${") == 0; // a flow would look for its value
        plain += isVariable ? "\\$" : std::string(1, text[at]);
    }
    using nlohmann::json;
    return json(plain).dump(-1, ' ', false, json::error_handler_t::replace); // YAML reads what JSON writes
}

std::string patternOf(const std::string& text) {
    std::string pattern;
    for (const char c : text) {
        if (std::string_view("\\^$.|?*+()[]{}").find(c) != std::string_view::npos) {
            pattern += '\\';
        }
        pattern += c;
    }
    return pattern;
}

std::string flowNumber(double number) {
    constexpr double finest = 100;
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), std::round(number * finest) / finest);
    return {text.data(), end.ptr};
}

} // namespace phone
