#include "phone/foundation/XmlPropertyList.h"

#include "phone/foundation/Data.h"
#include "phone/foundation/Text.h"
#include "platform/foundation/NSDate.h"
#include "platform/foundation/NSDictionary.h"
#include "platform/foundation/NSNumber.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <ctime>
#include <map>

// Foundation here has a writer of its own, but it breaks characters beyond the first 65536.

namespace phone {

namespace {

constexpr const char* head = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
)";
constexpr const char* tail = "</plist>\n";
constexpr double referenceDate = 978307200; // the start of 2001 in seconds since 1970

std::string escaped(const std::string& text) {
    std::string safe;
    for (const char c : text) {
        switch (c) {
        case '&':
            safe += "&amp;";
            break;
        case '<':
            safe += "&lt;";
            break;
        case '>':
            safe += "&gt;";
            break;
        default:
            safe += c;
        }
    }
    return safe;
}

std::string element(const std::string& tag, const std::string& content) {
    return "<" + tag + ">" + content + "</" + tag + ">\n";
}

std::string base64(const std::string& bytes) {
    static constexpr char letters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string encoded;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const auto byte = [&](std::size_t at) -> std::uint32_t {
            return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0;
        };
        const std::uint32_t group = byte(i) << 16 | byte(i + 1) << 8 | byte(i + 2);
        encoded += letters[group >> 18];
        encoded += letters[group >> 12 & 63];
        encoded += i + 1 < bytes.size() ? letters[group >> 6 & 63] : '=';
        encoded += i + 2 < bytes.size() ? letters[group & 63] : '=';
    }
    return encoded;
}

std::string isoDate(const NSDate& date) {
    const auto seconds = static_cast<std::time_t>(std::floor(date.sinceReferenceDate() + referenceDate));
    std::tm fields{};
    gmtime_r(&seconds, &fields);
    char text[64];
    std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &fields);
    return text;
}

std::string number(const NSNumber& value) {
    // The two truth values are single objects.
    if (value == NSNumber::withBool(true)) {
        return "<true/>\n";
    }
    if (value == NSNumber::withBool(false)) {
        return "<false/>\n";
    }
    const char type = *value.send<"objCType", const char*>();
    if (type != 'd' && type != 'f') {
        return element("integer", text(value.description()));
    }
    char digits[64];
    const auto written = std::to_chars(digits, digits + sizeof digits, value.doubleValue());
    return element("real", std::string(digits, written.ptr));
}

std::string written(const NSObject& object, const std::string& indent);

std::string array(const NSArray& elements, const std::string& indent) {
    if (elements.count() == 0) {
        return "<array/>\n";
    }
    std::string all = "<array>\n";
    for (const NSObject& one : elements) {
        all += indent + "\t" + written(one, indent + "\t");
    }
    return all + indent + "</array>\n";
}

std::string dictionary(const NSDictionary& entries, const std::string& indent) {
    if (entries.count() == 0) {
        return "<dict/>\n";
    }
    std::map<std::string, NSObject> sorted;
    for (const NSObject& key : entries.allKeys()) {
        sorted.emplace(text(objc::as<NSString>(key)), entries.at(key));
    }
    std::string all = "<dict>\n";
    for (const auto& [key, value] : sorted) {
        all += indent + "\t" + element("key", escaped(key)) + indent + "\t" + written(value, indent + "\t");
    }
    return all + indent + "</dict>\n";
}

std::string written(const NSObject& object, const std::string& indent) {
    if (objc::isKind<NSDictionary>(object)) {
        return dictionary(objc::as<NSDictionary>(object), indent);
    }
    if (objc::isKind<NSArray>(object)) {
        return array(objc::as<NSArray>(object), indent);
    }
    if (objc::isKind<NSString>(object)) {
        return element("string", escaped(text(objc::as<NSString>(object))));
    }
    if (objc::isKind<NSNumber>(object)) {
        return number(objc::as<NSNumber>(object));
    }
    if (objc::isKind<NSDate>(object)) {
        return element("date", isoDate(objc::as<NSDate>(object)));
    }
    if (objc::isKind<NSData>(object)) {
        return element("data", base64(objc::as<NSData>(object).bytes()));
    }
    return "";
}

} // namespace

std::string xmlPropertyList(const NSObject& object) { return head + written(object, "") + tail; }

} // namespace phone
