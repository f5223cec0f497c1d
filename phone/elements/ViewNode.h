/// A view as the phone application's tree for finding prints it, and what it is to a person.
#pragma once

#include <cstdint>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace phone::webdriver {

class ViewNode {
public:
    explicit ViewNode(pugi::xml_node node) : _node(node) {}

    pugi::xml_node node() const { return _node; }
    std::string_view className() const { return _node.name(); }
    /// The nearest class that the platform publishes.
    std::string_view kind() const { return text("kind"); }
    std::uint64_t identity() const { return _node.attribute("identity").as_ullong(); }
    bool has(const char* attribute) const { return static_cast<bool>(_node.attribute(attribute)); }
    bool is(const char* attribute) const { return _node.attribute(attribute).as_bool(); }
    /// "" where there is none.
    const char* text(const char* attribute) const { return _node.attribute(attribute).value(); }
    /// Itself, or so transparent that the platform counts it as hidden.
    bool isHidden() const { return is("hidden") || _node.attribute("alpha").as_double(1) < leastVisibleAlpha; }
    bool isShownAlert() const;

private:
    static constexpr double leastVisibleAlpha = 0.01;

    pugi::xml_node _node;
};

/// What a view is to a person.
struct Description {
    std::string type; // without the prefix
    std::optional<std::string> value;
    std::optional<std::string> identifier;
    std::optional<std::string> name;
    std::optional<std::string> label;
    std::optional<std::string> placeholder;
    bool isSelected = false;
    bool isHeader = false;
    bool isAccessible = false;
};

/// All but whether it is accessible, which depends on what stands around.
Description describe(const ViewNode& view);

} // namespace phone::webdriver
