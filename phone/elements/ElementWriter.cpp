#include "phone/elements/ElementWriter.h"

#include "phone/elements/ElementType.h"

#include <array>
#include <cmath>
#include <locale>
#include <sstream>

namespace phone::webdriver {

namespace {

constexpr std::array<std::string_view, 14> shown = {
    "type", "value", "name",  "label",  "enabled", "visible",          "accessible",
    "x",    "y",     "width", "height", "index",   "placeholderValue", "traits"};

/// Less than what a view's place can be off a whole point by rounding.
constexpr double tolerance = 0.001;

struct Frame {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
};

Frame frameOf(const char* text) {
    Frame frame;
    std::istringstream words(text);
    words.imbue(std::locale::classic());
    words >> frame.x >> frame.y >> frame.width >> frame.height;
    return frame;
}

class Writer {
public:
    explicit Writer(pugi::xml_node element) : _element(element) {}

    void add(const char* name, const char* value) { _element.append_attribute(name).set_value(value); }
    void add(const char* name, const std::string& value) { add(name, value.c_str()); }
    void add(const char* name, const std::optional<std::string>& value) {
        if (value) {
            add(name, *value);
        }
    }
    void add(const char* name, bool value) { add(name, value ? "true" : "false"); }
    void add(const char* name, long value) { add(name, std::to_string(value)); }

    /// The least rectangle of whole points around it.
    void addFrame(const Frame& frame) {
        const double x = std::floor(frame.x + tolerance);
        const double y = std::floor(frame.y + tolerance);
        add("x", static_cast<long>(x));
        add("y", static_cast<long>(y));
        add("width", static_cast<long>(std::ceil(frame.x + frame.width - tolerance) - x));
        add("height", static_cast<long>(std::ceil(frame.y + frame.height - tolerance) - y));
    }
    void addNativeFrame(const Frame& frame) {
        std::ostringstream text;
        text.imbue(std::locale::classic());
        text << "{{" << frame.x << ", " << frame.y << "}, {" << frame.width << ", " << frame.height << "}}";
        add("nativeFrame", text.str());
    }
    void copy(const ViewNode& view, const char* name) {
        if (view.has(name)) {
            add(name, view.text(name));
        }
    }

private:
    pugi::xml_node _element;
};

pugi::xml_node appendElement(pugi::xml_node parent, std::string_view type) {
    const std::string name = std::string(typePrefix) + std::string(type);
    pugi::xml_node element = parent.append_child(name.c_str());
    Writer(element).add("type", name);
    return element;
}

/// As a screen reader would speak them, in the order of the platform's bits.
std::optional<std::string> traitsOf(const Description& description, bool isEnabled, bool isKey) {
    std::string all;
    const auto add = [&](bool has, const char* trait) {
        if (has) {
            all += (all.empty() ? "" : ", ") + std::string(trait);
        }
    };
    const std::string& type = description.type;
    add(type == "Button" || type == "Switch", "Button");
    add(type == "Image", "Image");
    add(description.isSelected, "Selected");
    add(isKey, "KeyboardKey");
    add(type == "StaticText", "StaticText");
    add(!isEnabled, "NotEnabled");
    add(type == "PickerWheel", "Adjustable");
    add(description.isHeader, "Header");
    add(type == "Switch", "ToggleButton");
    return all.empty() ? std::nullopt : std::optional(all);
}

} // namespace

std::span<const std::string_view> shownAttributes() { return shown; }

pugi::xml_node writeApplication(pugi::xml_node document, pugi::xml_node screen, const std::string& name) {
    const pugi::xml_node element = appendElement(document, "Application");
    const Frame frame{0, 0, screen.attribute("width").as_double(), screen.attribute("height").as_double()};
    Writer writer(element);
    writer.add("name", name);
    writer.add("label", name);
    writer.add("enabled", true);
    writer.add("visible", true);
    writer.add("accessible", false);
    writer.addFrame(frame);
    writer.add("index", 0L);
    writer.add("selected", false);
    writer.add("focused", false);
    writer.add("hittable", true);
    writer.addNativeFrame(frame);
    writer.add("identity", 0L);
    writer.add("touch", std::to_string(frame.width / 2) + " " + std::to_string(frame.height / 2));
    return element;
}

pugi::xml_node writeElement(pugi::xml_node parent, const ViewNode& view, const Description& description, long index) {
    const pugi::xml_node element = appendElement(parent, description.type);
    const Frame frame = frameOf(view.text("screen"));
    Writer writer(element);
    writer.add("value", description.value);
    writer.add("name", description.name);
    writer.add("label", description.label);
    writer.add("enabled", view.is("enabled"));
    writer.add("visible", view.is("visible"));
    writer.add("accessible", description.isAccessible);
    writer.addFrame(frame);
    writer.add("index", index);
    writer.add("placeholderValue", description.placeholder);
    writer.add("traits", traitsOf(description, view.is("enabled"), view.has("key")));
    writer.add("selected", description.isSelected);
    writer.add("focused", view.is("firstResponder"));
    writer.add("hittable", view.has("touch"));
    writer.add("identifier", description.identifier);
    writer.addNativeFrame(frame);
    writer.add("class", std::string(view.className()));
    writer.copy(view, "identity");
    writer.copy(view, "touch");
    writer.copy(view, "turned");
    return element;
}

} // namespace phone::webdriver
