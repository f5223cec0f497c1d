/// One element of the screen as a tester's program meets it.
#pragma once

#include "phone/flow/ScreenPoint.h"

#include <cstdint>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <vector>

namespace phone::webdriver {

using Point = ScreenPoint;

/// A rectangle of the screen, in whole points.
struct Rect {
    long x = 0;
    long y = 0;
    long width = 0;
    long height = 0;
};

/// A handle; valid as long as its tree. Null where there is no such element: then it has nothing.
class Element {
public:
    explicit Element(pugi::xml_node node = {}) : _node(node) {}

    explicit operator bool() const { return static_cast<bool>(_node); }
    bool operator==(const Element& other) const { return _node == other._node; }

    /// With the prefix: "XCUIElementTypeButton".
    std::string type() const { return _node.name(); }
    /// The accessibility identifier, else the label. What is missing is nullopt here and below.
    std::optional<std::string> name() const { return given("name"); }
    std::optional<std::string> label() const { return given("label"); }
    std::optional<std::string> value() const { return given("value"); }
    std::optional<std::string> placeholder() const { return given("placeholderValue"); }
    std::optional<std::string> identifier() const { return given("identifier"); }
    /// As a screen reader speaks them: "Button, Selected".
    std::optional<std::string> traits() const { return given("traits"); }
    /// The first of value and label that says something, else "".
    std::string text() const;

    Rect rect() const;
    /// The upper left corner as it is, not in whole points.
    Point corner() const;
    bool isEnabled() const { return _node.attribute("enabled").as_bool(); }
    bool isVisible() const { return _node.attribute("visible").as_bool(); }
    /// Whether a screen reader stops at it.
    bool isAccessible() const { return _node.attribute("accessible").as_bool(); }
    bool isSelected() const { return _node.attribute("selected").as_bool(); }
    bool isFocused() const { return _node.attribute("focused").as_bool(); }
    /// Whether a finger reaches it.
    bool isHittable() const { return touchPoint().has_value(); }

    /// Of the view that it shows; 0 for the application. No other element of this process of the phone application
    /// ever has it.
    std::uint64_t identity() const { return _node.attribute("identity").as_ullong(); }
    /// Where a finger reaches it; nullopt when it is covered, clipped away or takes no touches.
    std::optional<Point> touchPoint() const;
    /// How far its content is turned clockwise, in quarters: 0 to 3.
    int quarterTurns() const { return _node.attribute("turned").as_int(); }

    /// By a name that a tester may ask for, as text; nullopt for one that this element does not have. Throws Refusal
    /// when no element can have it.
    std::optional<std::string> attribute(const std::string& name) const;

    /// Null for the application.
    Element parent() const;
    std::vector<Element> children() const;
    pugi::xml_node node() const { return _node; }

private:
    std::optional<std::string> given(const char* name) const;

    pugi::xml_node _node;
};

} // namespace phone::webdriver
