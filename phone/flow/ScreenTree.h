/// The printed view tree, asked for what a selector names.
#pragma once

#include "phone/flow/ScreenPoint.h"
#include "phone/flow/Selector.h"

#include <optional>
#include <pugixml.hpp>
#include <string>
#include <vector>

namespace phone {

/// A rectangle of the screen, as above.
struct ScreenRect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    ScreenPoint center() const { return {x + width / 2, y + height / 2}; }
    /// Turned around the screen's corner, clockwise by so many quarters.
    ScreenRect turned(int quarters) const;
};

/// One element of the tree; valid as long as its tree.
class ScreenElement {
public:
    explicit ScreenElement(pugi::xml_node node) : _node(node) {}

    bool isVisible() const { return _node.attribute("visible").as_bool(); }
    /// Where a touch reaches it; nullopt when it is hidden, clipped away or covered.
    std::optional<ScreenPoint> touchPoint() const;
    ScreenRect rect() const;
    /// How far its content is turned clockwise, in quarters: 0 to 3.
    int quarterTurns() const { return _node.attribute("turned").as_int(); }
    /// A point of its rectangle.
    ScreenPoint at(const PointSpec& point) const;
    /// What a person reads on it.
    std::vector<std::string> texts() const;
    /// Whether it is one of the keyboard's own.
    bool isOfKeyboard() const;
    pugi::xml_node node() const { return _node; }

private:
    pugi::xml_node _node;
};

/// One moment of the screen. Not copyable; its elements point into it.
class ScreenTree {
public:
    /// What `Screen::tree(true)` gives; throws ScreenError when it is no such tree.
    explicit ScreenTree(const std::string& xml);

    double width() const { return _screen.attribute("width").as_double(); }
    double height() const { return _screen.attribute("height").as_double(); }
    ScreenPoint at(const PointSpec& point) const { return {point.x.in(width()), point.y.in(height())}; }

    /// All that the selector's text and id match, in tree order, the keyboard's own keys last, whether visible or not.
    /// What lies inside a visible match is the same thing to a person (a button's label in its button)
    /// and is left out.
    std::vector<ScreenElement> all(const Selector& selector) const;
    /// Those of them that are visible; with an index that one alone, if there is one.
    std::vector<ScreenElement> visible(const Selector& selector) const;
    /// The view that a touch reaches, of a tree for a point; null where there is none.
    pugi::xml_node hit() const;
    /// All visible elements that have the attribute, in tree order.
    std::vector<ScreenElement> visibleWith(const char* attribute) const;

private:
    pugi::xml_document _document;
    pugi::xml_node _screen;
};

} // namespace phone
