#include "phone/flow/PreferenceReader.h"

#include "phone/flow/SelectorReader.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace phone {

namespace {

template <class Number>
std::optional<Number> whole(const std::string& text) {
    const char* first = text.data() + (text.starts_with('+') ? 1 : 0);
    Number value{};
    const auto [end, error] = std::from_chars(first, text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(value) : std::nullopt;
}

/// These are booleans to some readers of YAML and texts to others.
bool readsDifferently(std::string word) {
    std::transform(word.begin(), word.end(), word.begin(), [](unsigned char c) { return std::tolower(c); });
    return word == "yes" || word == "no" || word == "on" || word == "off" || word == "y" || word == "n";
}

PreferenceValue plainValue(const Yaml& node, const std::string& name) {
    const std::string text = node.text(name);
    if (text == "true" || text == "True" || text == "TRUE") {
        return true;
    }
    if (text == "false" || text == "False" || text == "FALSE") {
        return false;
    }
    if (const auto number = whole<long>(text)) {
        return *number;
    }
    if (const auto number = whole<double>(text); number && std::isfinite(*number)) {
        return *number;
    }
    if (readsDifferently(text)) {
        node.fail(name + ": write true or false, or \"" + text + "\" in quotes for the text");
    }
    return text;
}

PreferenceValue value(const Yaml& node, const std::string& name, const CommandScope& scope) {
    if (node.isNull()) {
        return std::monostate();
    }
    if (!node.isText()) {
        node.fail(name + " has to be a boolean, a number, a text or null");
    }
    if (node.isPlain() && node.text(name).find("${") == std::string::npos) {
        return plainValue(node, name);
    }
    return readText(node, name, scope);
}

} // namespace

commands::SetPreferences readPreferences(const Yaml& node, const CommandScope& scope) {
    commands::SetPreferences preferences;
    for (const auto& [key, given] : node.pairs("setPreferences")) {
        const std::string name = key.text("a key");
        preferences.values.emplace_back(name, value(given, name, scope));
    }
    return preferences;
}

} // namespace phone
