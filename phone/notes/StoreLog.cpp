#include "phone/notes/StoreLog.h"

#include "phone/device/Log.h"
#include "phone/foundation/Text.h"

#include <cmath>
#include <ctime>

namespace phone {

namespace {

constexpr double referenceDate = 978307200; // the start of 2001 in seconds since 1970

} // namespace

nlohmann::json readable(const NSString& string) { return string ? nlohmann::json(text(string)) : nlohmann::json(); }

nlohmann::json readable(const NSNumber& number) {
    return number ? nlohmann::json(text(number.description())) : nlohmann::json();
}

nlohmann::json readable(const NSDate& date) {
    if (!date) {
        return nullptr;
    }
    const auto seconds = static_cast<time_t>(std::floor(date.sinceReferenceDate() + referenceDate));
    tm fields{};
    gmtime_r(&seconds, &fields);
    char iso[sizeof "2001-01-01T00:00:00Z" + 8];
    std::strftime(iso, sizeof iso, "%Y-%m-%dT%H:%M:%SZ", &fields);
    return iso;
}

// The static type of an argument may be wider than what it is.
nlohmann::json readable(const objc::Object& object) {
    if (!object) {
        return nullptr;
    }
    if (objc::isKind<NSString>(object)) {
        return readable(objc::as<NSString>(object));
    }
    if (objc::isKind<NSNumber>(object)) {
        return readable(objc::as<NSNumber>(object));
    }
    if (objc::isKind<NSDate>(object)) {
        return readable(objc::as<NSDate>(object));
    }
    return object_getClassName(object.raw());
}

void addStoreEntry(const char* className, const char* message, nlohmann::json arguments) {
    Log::shared().add("store", {{"class", className}, {"message", message}, {"arguments", std::move(arguments)}});
}

} // namespace phone
