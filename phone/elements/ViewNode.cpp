#include "phone/elements/ViewNode.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

namespace phone::webdriver {

namespace {

using TypeOf = std::pair<std::string_view, std::string_view>;

/// The platform's own parts, by class.
constexpr std::array<TypeOf, 7> typesOfClasses = {{
    {"UIKeyboardView", "Keyboard"},
    {"_UIModalItemAlertContentView", "Alert"},
    {"UIPickerTableView", "PickerWheel"},
    {"UIActivityIcon", "Image"},
    {"UIActivityTile", "Button"},
    {"UITableViewCellAccessoryMark", "Image"},
    {"UITableViewCellScrollView", "Other"},
}};

constexpr std::array<TypeOf, 12> typesOfKinds = {{
    {"UIWindow", "Window"},
    {"UIButton", "Button"},
    {"UILabel", "StaticText"},
    {"UITextField", "TextField"},
    {"UITextView", "TextView"},
    {"UISwitch", "Switch"},
    {"UITableView", "Table"},
    {"UITableViewCell", "Cell"},
    {"UIImageView", "Image"},
    {"UINavigationBar", "NavigationBar"},
    {"UIScrollView", "ScrollView"},
    {"UIDatePicker", "DatePicker"},
}};

template <std::size_t Size>
std::string_view lookUp(const std::array<TypeOf, Size>& table, std::string_view name) {
    const auto found =
        std::find_if(table.begin(), table.end(), [&](const TypeOf& entry) { return entry.first == name; });
    return found == table.end() ? std::string_view() : found->second;
}

bool isKey(const ViewNode& view) { return view.has("key"); }

/// Letters and what changes them are keys; what ends, capitalises or takes back is a button.
std::string_view typeOfKey(std::string_view key) {
    return key == "character" || key == "space" || key == "plane" ? "Key" : "Button";
}

bool holdsControls(pugi::xml_node node) {
    return static_cast<bool>(node.find_node([&](pugi::xml_node inner) {
        return ViewNode(inner).has("state"); // every control has one
    }));
}

bool isPicker(const ViewNode& view) {
    return ViewNode(view.node().parent()).kind() == "UIDatePicker" && view.node().child("UIPickerTableView");
}

std::string typeOf(const ViewNode& view) {
    if (isKey(view)) {
        return std::string(typeOfKey(view.text("key")));
    }
    std::string_view type = lookUp(typesOfClasses, view.className());
    if (type.empty()) {
        type = lookUp(typesOfKinds, view.kind());
    }
    if (type.empty() && view.kind() == "UIControl" && !holdsControls(view.node())) {
        type = "Button";
    }
    if (type.empty() && isPicker(view)) {
        type = "Picker";
    }
    return std::string(type.empty() ? "Other" : type);
}

std::optional<std::string> unlessEmpty(std::string text) {
    return text.empty() ? std::nullopt : std::optional(std::move(text));
}

/// The texts inside, in order, as a screen reader joins them.
void joinTexts(pugi::xml_node node, std::string& into) {
    for (const pugi::xml_node child : node.children()) {
        const ViewNode view(child);
        if (view.isHidden()) {
            continue;
        }
        if (view.kind() == "UILabel" && *view.text("text") != '\0') {
            into += (into.empty() ? "" : ", ") + std::string(view.text("text"));
        }
        joinTexts(child, into);
    }
}

std::string joinedTexts(const ViewNode& view) {
    std::string all;
    joinTexts(view.node(), all);
    return all;
}

std::string firstText(const ViewNode& view) {
    const pugi::xml_node label = view.node().find_node([](pugi::xml_node node) {
        return ViewNode(node).kind() == "UILabel" && !ViewNode(node).isHidden() && *ViewNode(node).text("text") != '\0';
    });
    return label.attribute("text").value();
}

/// A picture's file without folder, ending and what its name says of screens.
std::string nameOfPicture(const ViewNode& view) {
    std::string_view path = view.text("image");
    path.remove_prefix(path.rfind('/') + 1); // none: from the start
    return std::string(path.substr(0, path.find_first_of(".@~")));
}

std::string labelOfKey(const ViewNode& view) {
    const std::string_view key = view.text("key");
    if (const std::string label = view.text("text"); !label.empty()) {
        return label;
    }
    return key == "hide" ? "Hide keyboard" : std::string(key);
}

std::string labelOf(const ViewNode& view, const std::string& type) {
    if (type == "PickerWheel") {
        return ""; // what it shows is its value
    }
    if (isKey(view)) {
        return labelOfKey(view);
    }
    if (view.has("accessibilityLabel")) {
        return view.text("accessibilityLabel");
    }
    if (type == "StaticText") {
        return view.text("text");
    }
    if (type == "Button") {
        const std::string title = *view.text("text") != '\0' ? view.text("text") : joinedTexts(view);
        return title.empty() ? nameOfPicture(view) : title;
    }
    if (type == "Image") {
        return nameOfPicture(view);
    }
    return type == "Cell" ? joinedTexts(view) : type == "Alert" ? firstText(view) : "";
}

/// Keys that do something are known by what they do, whatever they read.
std::string nameOfKey(const ViewNode& view, const std::string& label) {
    const std::string_view key = view.text("key");
    if (key == "plane") {
        return "more";
    }
    std::string name = key == "space" ? "space" : label;
    if (key == "return" && !name.empty()) {
        name[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(name[0])));
    }
    return name;
}

std::optional<std::string> nameOf(const ViewNode& view, const Description& description) {
    if (description.identifier) {
        return description.identifier;
    }
    if (isKey(view)) {
        return unlessEmpty(nameOfKey(view, description.label.value_or("")));
    }
    return description.type == "NavigationBar" ? unlessEmpty(view.node().child("UILabel").attribute("text").value())
                                               : description.label;
}

std::optional<std::string> valueOf(const ViewNode& view, const Description& description) {
    const std::string& type = description.type;
    if (type == "StaticText") {
        return description.label;
    }
    if (type == "Switch") {
        return view.is("on") ? "1" : "0";
    }
    if (type == "Button") {
        return description.isSelected ? std::optional<std::string>("1") : std::nullopt;
    }
    if (type == "PickerWheel") {
        return view.text("text");
    }
    if (type == "TextField" || type == "TextView") {
        return *view.text("text") != '\0' ? view.text("text") : description.placeholder.value_or("");
    }
    return std::nullopt;
}

bool isSelected(const ViewNode& view) {
    return view.is("selected") || std::string_view(view.text("accessory")) == "checkmark" ||
           std::string_view(view.text("state")).find("selected") != std::string_view::npos;
}

bool isHeader(const ViewNode& view) {
    const ViewNode around(view.node().parent());
    return view.kind() == "UILabel" &&
           (around.kind() == "UINavigationBar" || around.className() == "UITableViewHeaderFooterView");
}

} // namespace

bool ViewNode::isShownAlert() const { return className() == "_UIModalItemAlertContentView" && is("visible"); }

Description describe(const ViewNode& view) {
    Description description;
    description.type = typeOf(view);
    description.isSelected = isSelected(view);
    description.isHeader = isHeader(view);
    description.identifier = unlessEmpty(view.text("id"));
    description.placeholder = unlessEmpty(view.text("placeholder"));
    description.label = unlessEmpty(labelOf(view, description.type));
    description.name = nameOf(view, description);
    description.value = valueOf(view, description);
    return description;
}

} // namespace phone::webdriver
