#include "phone/flow/Selector.h"

#include <charconv>
#include <cmath>

namespace phone {

namespace {

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::optional<Length> length(std::string text) {
    text = trimmed(text);
    Length result;
    if (text.ends_with('%')) {
        result.perCent = true;
        text.pop_back();
    }
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), result.value);
    const bool isNumber = error == std::errc() && end == text.data() + text.size() && std::isfinite(result.value);
    if (!isNumber || result.value < 0 || (result.perCent && result.value > 100)) {
        return std::nullopt;
    }
    return result;
}

} // namespace

std::optional<PointSpec> PointSpec::parse(const std::string& text) {
    const auto comma = text.find(',');
    if (comma == std::string::npos) {
        return std::nullopt;
    }
    const auto x = length(text.substr(0, comma));
    const auto y = length(text.substr(comma + 1));
    return x && y ? std::optional(PointSpec{*x, *y}) : std::nullopt;
}

std::string Selector::description() const {
    std::string all;
    if (text) {
        all = "\"" + text->expression() + "\"";
    }
    if (id) {
        all += (all.empty() ? "" : " with ") + ("id \"" + id->expression() + "\"");
    }
    if (index) {
        all += (all.empty() ? "" : " ") + ("(index " + std::to_string(*index) + ")");
    }
    return all.empty() ? "the point" : all;
}

} // namespace phone
