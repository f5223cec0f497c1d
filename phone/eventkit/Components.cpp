#include "phone/eventkit/Components.h"

#include "phone/foundation/Text.h"
#include "platform/foundation/NSTimeZone.h"

namespace phone::eventkit {

namespace {

constexpr double referenceDate = 978307200; // the start of 2001 in seconds since 1970

int field(objc::Int value, int unset) { return value == NSDateComponents::undefined ? unset : static_cast<int>(value); }

} // namespace

CalendarDate calendarDate(const NSDateComponents& components) {
    CalendarDate date;
    date.year = field(components.year(), 1);
    date.month = field(components.month(), 1);
    date.day = field(components.day(), 1);
    date.hour = field(components.hour(), 0);
    date.minute = field(components.minute(), 0);
    date.second = field(components.second(), 0);
    const auto isUnset = [](objc::Int value) { return value == NSDateComponents::undefined; };
    date.isDay = isUnset(components.hour()) && isUnset(components.minute()) && isUnset(components.second());
    date.zone = text(components.timeZone().name());
    return date;
}

std::string here() { return text(NSTimeZone::defaultTimeZone().name()); }

std::optional<double> unixTime(const NSDate& date) {
    return date ? std::optional(date.sinceReferenceDate() + referenceDate) : std::nullopt;
}

NSDate date(const std::optional<double>& unixTime) {
    return unixTime ? NSDate::withSinceReferenceDate(*unixTime - referenceDate) : NSDate();
}

} // namespace phone::eventkit
