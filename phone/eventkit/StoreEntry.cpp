#include "phone/eventkit/StoreEntry.h"

#include "phone/eventkit/Components.h"
#include "phone/notes/StoreLog.h"
#include "platform/foundation/NSArray.h"

#include <array>
#include <cstdio>

namespace phone::eventkit {

nlohmann::json shown(const objc::Object& object) {
    if (objc::isKind<NSArray>(object)) {
        nlohmann::json all = nlohmann::json::array();
        for (const NSObject& one : objc::as<NSArray>(object)) {
            all.push_back(shown(one));
        }
        return all;
    }
    if (objc::isKind<NSDateComponents>(object)) {
        const CalendarDate date = calendarDate(objc::as<NSDateComponents>(object));
        std::array<char, 80> text{};
        std::snprintf(text.data(), text.size(), date.isDay ? "%04d-%02d-%02d" : "%04d-%02d-%02dT%02d:%02d:%02d",
                      date.year, date.month, date.day, date.hour, date.minute, date.second);
        return text.data();
    }
    return readable(object);
}

nlohmann::json shown(SEL selector) { return selector == nullptr ? nlohmann::json() : sel_getName(selector); }

nlohmann::json shown(bool value) { return value ? "true" : "false"; }

void addEntry(const char* className, const char* message, nlohmann::json arguments) {
    addStoreEntry(className, message, std::move(arguments));
}

} // namespace phone::eventkit
