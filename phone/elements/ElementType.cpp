#include "phone/elements/ElementType.h"

#include <algorithm>
#include <array>

namespace phone::webdriver {

namespace {

/// As the platform's testing framework names them, in the order of the alphabet.
constexpr std::array<std::string_view, 83> types = {
    "ActivityIndicator",
    "Alert",
    "Any",
    "Application",
    "Browser",
    "Button",
    "Cell",
    "CheckBox",
    "CollectionView",
    "ColorWell",
    "ComboBox",
    "DatePicker",
    "DecrementArrow",
    "Dialog",
    "DisclosureTriangle",
    "DockItem",
    "Drawer",
    "Grid",
    "Group",
    "Handle",
    "HelpTag",
    "Icon",
    "Image",
    "IncrementArrow",
    "Key",
    "Keyboard",
    "LayoutArea",
    "LayoutItem",
    "LevelIndicator",
    "Link",
    "Map",
    "Matte",
    "Menu",
    "MenuBar",
    "MenuBarItem",
    "MenuButton",
    "MenuItem",
    "NavigationBar",
    "Other",
    "Outline",
    "OutlineRow",
    "PageIndicator",
    "Picker",
    "PickerWheel",
    "PopUpButton",
    "Popover",
    "ProgressIndicator",
    "RadioButton",
    "RadioGroup",
    "RatingIndicator",
    "RelevanceIndicator",
    "Ruler",
    "RulerMarker",
    "ScrollBar",
    "ScrollView",
    "SearchField",
    "SecureTextField",
    "SegmentedControl",
    "Sheet",
    "Slider",
    "SplitGroup",
    "Splitter",
    "StaticText",
    "StatusBar",
    "StatusItem",
    "Stepper",
    "Switch",
    "Tab",
    "TabBar",
    "TabGroup",
    "Table",
    "TableColumn",
    "TableRow",
    "TextField",
    "TextView",
    "Timeline",
    "Toggle",
    "Toolbar",
    "ToolbarButton",
    "TouchBar",
    "ValueIndicator",
    "WebView",
    "Window",
};
static_assert(std::is_sorted(types.begin(), types.end()));

} // namespace

bool isElementType(std::string_view name) { return std::binary_search(types.begin(), types.end(), name); }

std::string wholeTypeName(std::string_view given) {
    const std::string_view name = given.starts_with(typePrefix) ? given.substr(typePrefix.size()) : given;
    return isElementType(name) ? std::string(typePrefix) + std::string(name) : std::string();
}

} // namespace phone::webdriver
