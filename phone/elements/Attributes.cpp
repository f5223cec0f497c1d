#include "phone/elements/Attributes.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace phone::webdriver {

namespace {

using Type = Attribute::Type;

constexpr std::array<Attribute, 22> attributes = {{
    {"type", "type", Type::Text},
    {"value", "value", Type::Text},
    {"name", "name", Type::Text},
    {"label", "label", Type::Text},
    {"enabled", "enabled", Type::Truth},
    {"visible", "visible", Type::Truth},
    {"accessible", "accessible", Type::Truth},
    {"selected", "selected", Type::Truth},
    {"hittable", "hittable", Type::Truth},
    {"focused", "focused", Type::Truth},
    {"x", "x", Type::Number},
    {"y", "y", Type::Number},
    {"width", "width", Type::Number},
    {"height", "height", Type::Number},
    {"rect", "", Type::Rect},
    {"index", "index", Type::Number},
    {"placeholderValue", "placeholderValue", Type::Text},
    {"traits", "traits", Type::Text},
    {"nativeFrame", "nativeFrame", Type::Text},
    // Other names of the above.
    {"hasKeyboardFocus", "focused", Type::Truth},
    {"frame", "", Type::Rect},
    {"identifier", "identifier", Type::Text},
}};
constexpr std::size_t plainNames = 19;

/// Whether `given` is `prefix` and then the name with a capital.
bool isPrefixed(std::string_view given, std::string_view prefix, std::string_view name) {
    return given.size() == prefix.size() + name.size() && given.starts_with(prefix) &&
           given[prefix.size()] == std::toupper(static_cast<unsigned char>(name[0])) &&
           given.substr(prefix.size() + 1) == name.substr(1);
}

bool isCalled(const Attribute& attribute, std::string_view given) {
    return given == attribute.name || isPrefixed(given, "wd", attribute.name) ||
           (attribute.type == Type::Truth &&
            (isPrefixed(given, "is", attribute.name) || isPrefixed(given, "isWD", attribute.name)));
}

} // namespace

const Attribute* findAttribute(std::string_view name) {
    const auto* found = std::find_if(attributes.begin(), attributes.end(),
                                     [&](const Attribute& attribute) { return isCalled(attribute, name); });
    return found == attributes.end() ? nullptr : found;
}

std::string attributeNames() {
    std::string names;
    for (std::size_t i = 0; i < plainNames; ++i) {
        names += (i == 0 ? "" : ", ") + std::string(attributes.at(i).name);
    }
    return names;
}

} // namespace phone::webdriver
