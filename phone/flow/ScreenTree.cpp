#include "phone/flow/ScreenTree.h"

#include "phone/device/Screen.h"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <string_view>

namespace phone {

namespace {

bool matches(pugi::xml_node node, const Selector& selector) {
    if (selector.id && !(node.attribute("id") && selector.id->matches(node.attribute("id").value()))) {
        return false;
    }
    if (selector.text) {
        const auto all = ScreenElement(node).texts();
        return std::any_of(all.begin(), all.end(), [&](const auto& text) { return selector.text->matches(text); });
    }
    return selector.id.has_value();
}

void collect(pugi::xml_node parent, const Selector& selector, std::vector<ScreenElement>& into) {
    for (pugi::xml_node child : parent.children()) {
        const bool found = matches(child, selector);
        if (found) {
            into.emplace_back(child);
        }
        if (!found || !ScreenElement(child).isVisible()) {
            collect(child, selector, into);
        }
    }
}

} // namespace

ScreenRect ScreenRect::turned(int quarters) const {
    ScreenRect rect = *this;
    for (; quarters > 0; --quarters) {
        rect = {-rect.y - rect.height, rect.x, rect.height, rect.width};
    }
    return rect;
}

std::optional<ScreenPoint> ScreenElement::touchPoint() const {
    ScreenPoint point;
    std::istringstream text(_node.attribute("touch").value());
    text.imbue(std::locale::classic());
    return text >> point.x >> point.y ? std::optional(point) : std::nullopt;
}

std::vector<std::string> ScreenElement::texts() const {
    std::vector<std::string> all;
    const auto add = [&](const char* name) {
        if (const auto attribute = _node.attribute(name); attribute && *attribute.value()) {
            all.emplace_back(attribute.value());
        }
    };
    add("text");
    add("label");
    if (all.empty()) {
        add("placeholder"); // gone from the screen as soon as there is text
    }
    if (!_node.attribute("controller")) {
        add("title"); // a controller's title is not on the screen by itself
    }
    return all;
}

ScreenRect ScreenElement::rect() const {
    ScreenRect rect;
    std::istringstream text(_node.attribute("screen").value());
    text.imbue(std::locale::classic());
    text >> rect.x >> rect.y >> rect.width >> rect.height;
    return rect;
}

ScreenPoint ScreenElement::at(const PointSpec& point) const {
    const ScreenRect whole = rect();
    return {whole.x + point.x.in(whole.width), whole.y + point.y.in(whole.height)};
}

bool ScreenElement::isOfKeyboard() const {
    for (pugi::xml_node node = _node; node; node = node.parent()) {
        if (std::string_view(node.name()).find("Keyboard") != std::string_view::npos) {
            return true;
        }
    }
    return false;
}

ScreenTree::ScreenTree(const std::string& xml) {
    const auto result = _document.load_buffer(xml.data(), xml.size());
    _screen = _document.child("screen");
    if (!result || !_screen) {
        throw ScreenError("the phone application gave no tree of its screen");
    }
}

std::vector<ScreenElement> ScreenTree::all(const Selector& selector) const {
    std::vector<ScreenElement> found;
    collect(_screen, selector, found);
    std::vector<ScreenElement> ordered;
    for (const bool keys : {false, true}) {
        std::copy_if(found.begin(), found.end(), std::back_inserter(ordered),
                     [&](const ScreenElement& element) { return element.isOfKeyboard() == keys; });
    }
    return ordered;
}

std::vector<ScreenElement> ScreenTree::visible(const Selector& selector) const {
    auto found = all(selector);
    std::erase_if(found, [](const auto& element) { return !element.isVisible(); });
    if (selector.index) {
        const auto index = static_cast<std::size_t>(*selector.index);
        return index < found.size() ? std::vector{found[index]} : std::vector<ScreenElement>{};
    }
    return found;
}

pugi::xml_node ScreenTree::hit() const {
    const std::string_view identity = _screen.attribute("hit").value();
    return identity.empty()
               ? pugi::xml_node()
               : _screen.find_node([&](pugi::xml_node node) { return identity == node.attribute("identity").value(); });
}

std::vector<ScreenElement> ScreenTree::visibleWith(const char* attribute) const {
    std::vector<ScreenElement> found;
    for (const pugi::xpath_node& match : _screen.select_nodes((".//*[@" + std::string(attribute) + "]").c_str())) {
        if (const ScreenElement element(match.node()); element.isVisible()) {
            found.push_back(element);
        }
    }
    return found;
}

} // namespace phone
