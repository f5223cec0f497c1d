/// What can be asked of an element by name.
#pragma once

#include <string>
#include <string_view>

namespace phone::webdriver {

struct Attribute {
    enum class Type { Text, Truth, Number, Rect };

    std::string_view name; // as a tester writes it
    const char* stored;    // in the tree's document; a rectangle's is made of four
    Type type;
};

/// By one of the names that testers use for it: `label`, `wdLabel`, `visible`, `isVisible`, `isWDVisible`.
/// nullptr when there is no such attribute.
const Attribute* findAttribute(std::string_view name);

/// The plain names, for messages: "type, value, …".
std::string attributeNames();

} // namespace phone::webdriver
