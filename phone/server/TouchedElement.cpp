#include "phone/server/TouchedElement.h"

#include "phone/server/FlowText.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <vector>

namespace phone {

namespace {

constexpr std::size_t longestName = 80; // bytes of a text that still reads as a name

bool contains(const ScreenRect& rect, const ScreenPoint& point) {
    return point.x >= rect.x && point.x < rect.x + rect.width && point.y >= rect.y && point.y < rect.y + rect.height;
}

/// The row or control around the element, which answers for all that is in it; null where there is none.
pugi::xml_node controlAround(pugi::xml_node element) {
    static constexpr std::array<std::string_view, 4> kinds = {"UITableViewCell", "UIButton", "UICollectionViewCell",
                                                              "UIControl"};
    for (pugi::xml_node at = element; at; at = at.parent()) {
        if (std::find(kinds.begin(), kinds.end(), at.attribute("kind").value()) != kinds.end()) {
            return at;
        }
    }
    return {};
}

bool isInside(pugi::xml_node inner, pugi::xml_node outer) {
    for (pugi::xml_node at = inner; at; at = at.parent()) {
        if (at == outer) {
            return true;
        }
    }
    return false;
}

bool takesText(pugi::xml_node element) { return static_cast<bool>(element.attribute("returnKey")); }

bool isName(const std::string& text) {
    return !text.empty() && text.size() <= longestName && text.find('\n') == std::string::npos;
}

/// The texts on it and on what is in it that a flow could name it by.
void collectNames(pugi::xml_node element, std::vector<std::string>& into) {
    const auto texts = ScreenElement(element).texts();
    std::copy_if(texts.begin(), texts.end(), std::back_inserter(into), isName);
    for (const pugi::xml_node child : element.children()) {
        if (ScreenElement(child).isVisible()) {
            collectNames(child, into);
        }
    }
}

/// The first of them. A view that is neither row nor control needs to be the only thing with a text in it: which place
/// of a larger one was touched matters.
std::optional<std::string> nameOf(pugi::xml_node element, bool isControl) {
    std::vector<std::string> names;
    collectNames(element, names);
    const bool isPlain = std::all_of(names.begin(), names.end(), [&](const auto& name) { return name == names[0]; });
    return names.empty() || !(isControl || isPlain) ? std::nullopt : std::optional(names.front());
}

/// What a flow would touch by this text.
pugi::xml_node found(const ScreenTree& tree, const std::string& text) {
    Selector selector;
    selector.text = TextPattern(patternOf(text));
    const auto all = tree.visible(selector);
    const auto reached = std::find_if(all.begin(), all.end(), [](const auto& one) { return one.touchPoint(); });
    return reached == all.end() ? pugi::xml_node() : reached->node();
}

std::string pointText(const ScreenPoint& point) {
    return flowQuoted(flowNumber(std::max(0.0, point.x)) + "," + flowNumber(std::max(0.0, point.y)));
}

} // namespace

std::string nameOfTouched(const ScreenTree& tree, const ScreenPoint& point) {
    const std::string byPoint = "{point: " + pointText(point) + "}";
    const pugi::xml_node touched = tree.hit();
    if (!touched || !touched.attribute("on").empty()) { // a switch has no text of its own
        return byPoint;
    }
    const pugi::xml_node control = controlAround(touched);
    const pugi::xml_node whole = control ? control : touched;
    const auto name = takesText(touched) ? std::nullopt : nameOf(whole, static_cast<bool>(control));
    if (name && isInside(found(tree, *name), whole)) {
        return flowQuoted(patternOf(*name));
    }
    // Where in a text the finger goes down decides where the caret comes to stand.
    const auto own = ScreenElement(touched).texts();
    if (takesText(touched) && !own.empty() && isName(own.front()) && found(tree, own.front()) == touched) {
        const ScreenElement element(touched);
        if (element.quarterTurns() == 0) {
            const ScreenRect rect = element.rect();
            return "{text: " + flowQuoted(patternOf(own.front())) +
                   ", point: " + pointText({point.x - rect.x, point.y - rect.y}) + "}";
        }
    }
    return byPoint;
}

std::optional<std::string> dateOfPicker(const ScreenTree& tree, const ScreenPoint& point) {
    for (const ScreenElement& picker : tree.visibleWith("mode")) {
        if (contains(picker.rect(), point)) {
            constexpr std::size_t toTheMinute = std::string_view("2026-03-05T14:37").size();
            return std::string(picker.node().attribute("date").value()).substr(0, toTheMinute);
        }
    }
    return std::nullopt;
}

} // namespace phone
