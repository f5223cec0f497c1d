#include "phone/elements/Source.h"

#include "phone/elements/ElementType.h"
#include "phone/elements/ElementWriter.h"

#include <algorithm>
#include <sstream>

namespace phone::webdriver {

namespace {

using json = nlohmann::ordered_json;

bool isOutsideXml(char c) { return c >= 0 && c < ' ' && c != '\t' && c != '\n' && c != '\r'; }

using Names = std::vector<std::string_view>;

void copyShown(pugi::xml_node from, pugi::xml_node into, const Names& attributes) {
    pugi::xml_node element = into.append_child(from.name());
    for (const std::string_view name : attributes) {
        const pugi::xml_attribute own = from.attribute(name.data()); // names are literals
        if (!own) {
            continue;
        }
        std::string value = own.value();
        std::erase_if(value, isOutsideXml);
        element.append_attribute(name.data()).set_value(value.c_str());
    }
    for (const pugi::xml_node child : from.children()) {
        copyShown(child, element, attributes);
    }
}

std::string typeOf(const Element& element) { return element.type().substr(typePrefix.size()); }

json orNull(const std::optional<std::string>& text) { return text ? json(*text) : json(nullptr); }

const char* digit(bool truth) { return truth ? "1" : "0"; }

std::string frameText(const Rect& rect) {
    std::ostringstream text;
    text << "{{" << rect.x << ", " << rect.y << "}, {" << rect.width << ", " << rect.height << "}}";
    return text.str();
}

void describe(const Element& element, int depth, std::string& into) {
    into += std::string(static_cast<std::size_t>(depth) * 2, ' ') + typeOf(element) + ", " + frameText(element.rect());
    const auto add = [&](const char* what, const std::optional<std::string>& text) {
        if (text) {
            into += std::string(", ") + what + ": " + json(*text).dump(-1, ' ', false, json::error_handler_t::replace);
        }
    };
    add("identifier", element.identifier());
    add("label", element.label());
    add("value", element.value());
    add("placeholder", element.placeholder());
    into += element.isSelected() ? ", selected" : "";
    into += element.isFocused() ? ", focused" : "";
    into += element.isEnabled() ? "" : ", disabled";
    into += element.isVisible() ? "" : ", not visible";
    into += "\n";
    for (const Element& child : element.children()) {
        describe(child, depth + 1, into);
    }
}

} // namespace

std::string xmlSource(const Element& element, const std::vector<std::string>& excludedAttributes) {
    Names attributes;
    for (const std::string_view name : shownAttributes()) {
        if (std::find(excludedAttributes.begin(), excludedAttributes.end(), name) == excludedAttributes.end()) {
            attributes.push_back(name);
        }
    }
    pugi::xml_document document;
    pugi::xml_node declaration = document.append_child(pugi::node_declaration);
    declaration.append_attribute("version") = "1.0";
    declaration.append_attribute("encoding") = "UTF-8";
    copyShown(element.node(), document, attributes);
    std::ostringstream text;
    document.save(text, "  ");
    return text.str();
}

json jsonSource(const Element& element) {
    const Rect rect = element.rect();
    json node;
    node["type"] = typeOf(element);
    node["rawIdentifier"] = orNull(element.identifier());
    node["name"] = orNull(element.name());
    node["value"] = orNull(element.value());
    node["label"] = orNull(element.label());
    node["rect"] = {{"x", rect.x}, {"y", rect.y}, {"width", rect.width}, {"height", rect.height}};
    node["frame"] = frameText(rect);
    node["isEnabled"] = digit(element.isEnabled());
    node["isVisible"] = digit(element.isVisible());
    node["isAccessible"] = digit(element.isAccessible());
    node["isFocused"] = digit(element.isFocused());
    node["placeholderValue"] = orNull(element.placeholder());
    node["traits"] = orNull(element.traits());
    for (const Element& child : element.children()) {
        node["children"].push_back(jsonSource(child));
    }
    return node;
}

std::string descriptionSource(const Element& element) {
    std::string text;
    describe(element, 0, text);
    return text;
}

} // namespace phone::webdriver
