#include "phone/elements/Element.h"

#include "phone/elements/Attributes.h"
#include "phone/elements/Refusal.h"

#include <locale>
#include <nlohmann/json.hpp>
#include <sstream>

namespace phone::webdriver {

std::optional<std::string> Element::given(const char* name) const {
    const pugi::xml_attribute attribute = _node.attribute(name);
    return attribute ? std::optional<std::string>(attribute.value()) : std::nullopt;
}

std::string Element::text() const {
    for (const auto& words : {value(), label()}) {
        if (words && !words->empty()) {
            return *words;
        }
    }
    return "";
}

Point Element::corner() const {
    Point point;
    std::istringstream text(std::string(_node.attribute("nativeFrame").value()));
    text.imbue(std::locale::classic());
    text.ignore(2); // {{
    text >> point.x;
    text.ignore(1); // ,
    text >> point.y;
    return point;
}

Rect Element::rect() const {
    return {_node.attribute("x").as_int(), _node.attribute("y").as_int(), _node.attribute("width").as_int(),
            _node.attribute("height").as_int()};
}

std::optional<Point> Element::touchPoint() const {
    Point point;
    std::istringstream words(_node.attribute("touch").value());
    words.imbue(std::locale::classic());
    return words >> point.x >> point.y ? std::optional(point) : std::nullopt;
}

std::optional<std::string> Element::attribute(const std::string& name) const {
    const Attribute* known = findAttribute(name);
    if (known == nullptr) {
        throw Refusal(Error::InvalidArgument, "there is no attribute \"" + name + "\"; there are " + attributeNames());
    }
    if (known->type == Attribute::Type::Rect) {
        const Rect frame = rect();
        return nlohmann::ordered_json(
                   {{"x", frame.x}, {"y", frame.y}, {"width", frame.width}, {"height", frame.height}})
            .dump();
    }
    return given(known->stored);
}

Element Element::parent() const {
    const pugi::xml_node above = _node.parent();
    return Element(above.type() == pugi::node_element ? above : pugi::xml_node());
}

std::vector<Element> Element::children() const {
    std::vector<Element> all;
    for (const pugi::xml_node child : _node.children()) {
        all.emplace_back(child);
    }
    return all;
}

} // namespace phone::webdriver
