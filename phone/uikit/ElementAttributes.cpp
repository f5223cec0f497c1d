#include "phone/uikit/ElementAttributes.h"

#include "phone/foundation/Text.h"
#include "phone/uikit/ActivityIcon.h"
#include "phone/uikit/CalendarFields.h"
#include "phone/uikit/Color.h"
#include "phone/uikit/Font.h"
#include "phone/uikit/Image.h"
#include "phone/uikit/View.h"
#include "platform/uikit/UIActivity.h"
#include "platform/uikit/UIButton.h"
#include "platform/uikit/UIDatePicker.h"
#include "platform/uikit/UITableView.h"
#include "platform/uikit/UITextField.h"
#include "platform/uikit/UITextView.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace phone {

namespace {

/// In the precision of the devices' own numbers, so that what was given comes back as it was given.
std::string number(double value) {
    std::array<char, 64> text{};
    const auto single = static_cast<float>(value) + 0.0F; // never "-0"
    const auto end = std::to_chars(text.data(), text.data() + text.size(), single, std::chars_format::fixed);
    return {text.data(), end.ptr};
}

std::string hex(const UIColor& color) {
    const Color c = colorOf(color);
    const auto byte = [](double component) { return static_cast<unsigned>(std::lround(component * 255)); };
    std::array<char, 10> text{};
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x%02x", byte(c.red), byte(c.green), byte(c.blue),
                  byte(c.alpha));
    return text.data();
}

const char* nameOf(NSTextAlignment alignment) {
    switch (alignment) {
    case NSTextAlignment::Center:
        return "center";
    case NSTextAlignment::Right:
        return "right";
    case NSTextAlignment::Left:
        break;
    }
    return "left";
}

const char* nameOf(UIReturnKeyType key) {
    static constexpr std::array<const char*, 11> names = {"default", "go",   "google", "join", "next",         "route",
                                                          "search",  "send", "yahoo",  "done", "emergencycall"};
    const auto index = static_cast<std::size_t>(key);
    return index < names.size() ? names[index] : names[0];
}

const char* nameOf(UITableViewCellAccessoryType type) {
    switch (type) {
    case UITableViewCellAccessoryType::DisclosureIndicator:
        return "disclosure";
    case UITableViewCellAccessoryType::Checkmark:
        return "checkmark";
    case UITableViewCellAccessoryType::None:
        break;
    }
    return "none";
}

const char* nameOf(UIDatePickerMode mode) {
    switch (mode) {
    case UIDatePickerMode::Time:
        return "time";
    case UIDatePickerMode::Date:
        return "date";
    case UIDatePickerMode::DateAndTime:
        break;
    }
    return "dateAndTime";
}

std::string nameOf(UIControlState state) {
    std::string names;
    const auto add = [&](UIControlState bit, const char* name) {
        if ((state & bit) != 0) {
            names += (names.empty() ? "" : " ") + std::string(name);
        }
    };
    add(UIControlStateHighlighted, "highlighted");
    add(UIControlStateDisabled, "disabled");
    add(UIControlStateSelected, "selected");
    return names.empty() ? "normal" : names;
}

/// What labels, fields and text views have in common; they answer the same messages.
template <class Text>
void writeText(pugi::xml_node& element, const Text& view, bool always) {
    if (const NSString shown = view.text(); shown || always) {
        writeAttribute(element, "text", text(shown));
    }
    if (const UIColor color = view.textColor()) {
        writeAttribute(element, "textColor", hex(color));
    }
    if (const UIFont font = view.font()) {
        writeAttribute(element, "font", fontDescription(font));
    }
    if (objc::responds<"textAlignment">(view)) {
        writeAttribute(element, "align", nameOf(view.template send<"textAlignment", NSTextAlignment>()));
    }
}

template <class Input>
void writeInput(pugi::xml_node& element, const Input& input) {
    writeText(element, input, true);
    writeAttribute(element, "returnKey", nameOf(input.returnKeyType()));
    writeAttribute(element, "firstResponder", input.isFirstResponder());
}

void writeButton(pugi::xml_node& element, const UIButton& button) {
    if (const NSString title = button.currentTitle()) {
        writeAttribute(element, "text", text(title));
    }
    for (const UIImage& image :
         {button.imageForState(UIControlStateNormal), button.backgroundImageForState(UIControlStateNormal)}) {
        if (!imagePath(image).empty()) {
            writeAttribute(element, "image", imagePath(image));
            break;
        }
    }
}

UITableView tableAround(const UITableViewCell& cell) {
    UIView at = cell.superview();
    while (at && !objc::isKind<UITableView>(at)) {
        at = at.superview();
    }
    return objc::as<UITableView>(at);
}

void writeCell(pugi::xml_node& element, const UITableViewCell& cell) {
    if (const NSIndexPath path = tableAround(cell).indexPathForCell(cell)) {
        writeAttribute(element, "row", std::to_string(path.section()) + "," + std::to_string(path.row()));
    }
    if (const NSString identifier = cell.reuseIdentifier()) {
        writeAttribute(element, "reuse", text(identifier));
    }
    writeAttribute(element, "accessory", nameOf(cell.accessoryType()));
    writeAttribute(element, "selected", cell.isSelected());
}

void writeControl(pugi::xml_node& element, const UIControl& control) {
    writeAttribute(element, "state", nameOf(control.state()));
    if (objc::responds<"isOn">(control)) {
        writeAttribute(element, "on", control.send<"isOn", bool>());
    }
    if (objc::isKind<UIDatePicker>(control)) {
        const auto picker = objc::as<UIDatePicker>(control);
        writeAttribute(element, "date", iso8601(picker.date().sinceReferenceDate()));
        writeAttribute(element, "mode", nameOf(picker.datePickerMode()));
    }
}

void writeClassAttributes(pugi::xml_node& element, const UIView& view) {
    if (objc::isKind<UILabel>(view)) {
        writeText(element, objc::as<UILabel>(view), false);
    } else if (objc::isKind<UITextField>(view)) {
        const auto field = objc::as<UITextField>(view);
        writeInput(element, field);
        if (const NSString placeholder = field.placeholder()) {
            writeAttribute(element, "placeholder", text(placeholder));
        }
    } else if (objc::isKind<UITextView>(view)) {
        writeInput(element, objc::as<UITextView>(view));
    } else if (objc::isKind<UIImageView>(view)) {
        if (const UIImage image = objc::as<UIImageView>(view).image()) {
            writeAttribute(element, "image", imagePath(image));
        }
    } else if (const ActivityIcon* icon = ActivityIcon::of(view)) {
        if (!imagePath(icon->image()).empty()) {
            writeAttribute(element, "image", imagePath(icon->image()));
        }
    } else if (objc::isKind<UITableViewCell>(view)) {
        writeCell(element, objc::as<UITableViewCell>(view));
    } else if (objc::responds<"currentTitle">(view)) {
        writeButton(element, objc::as<UIButton>(view));
    }
    if (objc::isKind<UIControl>(view)) {
        writeControl(element, objc::as<UIControl>(view));
    }
    // A key, a pictogram or a wheel has no text of its own but says what it is.
    if (const NSString label = view.accessibilityLabel(); label.length() > 0 && !element.attribute("text")) {
        writeAttribute(element, "text", text(label));
    }
    if (objc::isKind<UITableView>(view)) {
        const bool grouped = objc::as<UITableView>(view).style() == UITableViewStyle::Grouped;
        writeAttribute(element, "style", grouped ? "grouped" : "plain");
    }
    if (objc::isKind<UIScrollView>(view)) {
        writeAttribute(element, "scrollEnabled", objc::as<UIScrollView>(view).isScrollEnabled());
    }
}

/// What a controller's root view says of its controller.
void writeController(pugi::xml_node& element, const UIViewController& controller) {
    writeAttribute(element, "controller", class_getName(object_getClass(controller.raw())));
    if (const NSString title = controller.title()) {
        writeAttribute(element, "title", text(title));
    }
    if (objc::isKind<UIActivityViewController>(controller)) {
        std::string types;
        for (const NSObject& type : objc::as<UIActivityViewController>(controller).excludedActivityTypes()) {
            types += (types.empty() ? "" : " ") + text(objc::as<NSString>(type));
        }
        writeAttribute(element, "excluded", types);
    }
}

} // namespace

void writeAttribute(pugi::xml_node& element, const char* name, CGRect rect) {
    writeAttribute(element, name,
                   number(rect.origin.x) + " " + number(rect.origin.y) + " " + number(rect.size.width) + " " +
                       number(rect.size.height));
}

void writeAttribute(pugi::xml_node& element, const char* name, CGPoint point) {
    writeAttribute(element, name, number(point.x) + " " + number(point.y));
}

void writeAttribute(pugi::xml_node& element, const char* name, double value) {
    writeAttribute(element, name, number(value));
}

void writeAttribute(pugi::xml_node& element, const char* name, bool value) {
    writeAttribute(element, name, value ? "true" : "false");
}

void writeAttribute(pugi::xml_node& element, const char* name, const std::string& value) {
    writeAttribute(element, name, value.c_str());
}

void writeAttribute(pugi::xml_node& element, const char* name, const char* value) {
    element.append_attribute(name).set_value(value);
}

void writeElementAttributes(pugi::xml_node& element, const UIView& view) {
    writeAttribute(element, "hidden", view.isHidden());
    writeAttribute(element, "alpha", view.alpha());
    if (const UIColor color = view.backgroundColor()) {
        writeAttribute(element, "background", hex(color));
    }
    if (view.layer().cornerRadius() != 0) {
        writeAttribute(element, "cornerRadius", view.layer().cornerRadius());
    }
    if (view.clipsToBounds()) {
        writeAttribute(element, "clips", true);
    }
    if (const NSString identifier = view.accessibilityIdentifier(); identifier.length() > 0) {
        writeAttribute(element, "id", text(identifier));
    }
    writeClassAttributes(element, view);
    if (view.isFirstResponder() && !element.attribute("firstResponder")) {
        writeAttribute(element, "firstResponder", true);
    }
    if (const UIViewController controller = View::of(view)->controller()) {
        writeController(element, controller);
    }
}

} // namespace phone
