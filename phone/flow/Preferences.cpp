#include "phone/flow/Preferences.h"

#include "phone/flow/AtomicFile.h"

#include <array>
#include <charconv>
#include <fstream>
#include <pugixml.hpp>
#include <sstream>

namespace phone {

namespace {

constexpr unsigned parsing = pugi::parse_default | pugi::parse_ws_pcdata_single;

std::string content(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// The dictionary of the file, or an empty one; the document is left in the shape of a property list.
pugi::xml_node dictionary(pugi::xml_document& document, const std::string& file) {
    const std::string text = content(file);
    if (text.starts_with("bplist")) {
        throw InputError({file, 0}, "is a binary property list; convert it to XML or remove it");
    }
    pugi::xml_document read;
    const bool isRead = read.load_buffer(text.data(), text.size(), parsing);
    pugi::xml_node found = isRead ? read.child("plist").child("dict") : pugi::xml_node();
    pugi::xml_node declaration = document.append_child(pugi::node_declaration);
    declaration.append_attribute("version") = "1.0";
    declaration.append_attribute("encoding") = "UTF-8";
    document.append_child(pugi::node_doctype)
        .set_value("plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\"");
    pugi::xml_node plist = document.append_child("plist");
    plist.append_attribute("version") = "1.0";
    return found ? plist.append_copy(found) : plist.append_child("dict");
}

pugi::xml_node valueAfter(pugi::xml_node key) {
    pugi::xml_node next = key.next_sibling();
    while (next && next.type() != pugi::node_element) {
        next = next.next_sibling();
    }
    return next;
}

void remove(pugi::xml_node dict, const std::string& name) {
    for (pugi::xml_node key = dict.child("key"); key;) {
        const pugi::xml_node next = key.next_sibling("key");
        if (name == key.child_value()) {
            dict.remove_child(valueAfter(key));
            dict.remove_child(key);
        }
        key = next;
    }
}

std::string shortest(double number) {
    std::array<char, 64> text{};
    const auto result = std::to_chars(text.data(), text.data() + text.size(), number);
    return {text.data(), result.ptr};
}

/// Appends the value's element.
struct Writer {
    pugi::xml_node dict;

    void operator()(std::monostate) {}
    void operator()(bool value) { dict.append_child(value ? "true" : "false"); }
    void operator()(long value) { dict.append_child("integer").text() = std::to_string(value).c_str(); }
    void operator()(double value) { dict.append_child("real").text() = shortest(value).c_str(); }
    void operator()(const std::string& value) { dict.append_child("string").text() = value.c_str(); }
};

} // namespace

void writePreferences(const std::string& root, const commands::SetPreferences& preferences) {
    const std::string file = root + preferencesPath;
    pugi::xml_document document;
    pugi::xml_node dict = dictionary(document, file);
    for (const auto& [name, value] : preferences.values) {
        remove(dict, name);
        if (!std::holds_alternative<std::monostate>(value)) {
            dict.append_child("key").text() = name.c_str();
            std::visit(Writer{dict}, value);
        }
    }
    std::ostringstream text;
    document.save(text, "\t");
    writeAtomically(file, text.str());
}

} // namespace phone
