#include "phone/foundation/DateComponents.h"

#include "phone/foundation/Correct.h"
#include "platform/foundation/NSDateComponents.h"

namespace phone {

namespace {

template <objc::FixedString Get, objc::FixedString Set>
void take(const NSDateComponents& from, const NSDateComponents& into) {
    into.send<Set>(from.send<Get, objc::Int>());
}

/// Of the caller, as a copy is.
id copyWithZone(id self, SEL, void*) {
    const auto from = objc::borrow<NSDateComponents>(self);
    auto copy = NSDateComponents::make();
    take<"era", "setEra:">(from, copy);
    take<"year", "setYear:">(from, copy);
    take<"quarter", "setQuarter:">(from, copy);
    take<"month", "setMonth:">(from, copy);
    take<"day", "setDay:">(from, copy);
    take<"hour", "setHour:">(from, copy);
    take<"minute", "setMinute:">(from, copy);
    take<"second", "setSecond:">(from, copy);
    take<"weekday", "setWeekday:">(from, copy);
    take<"weekdayOrdinal", "setWeekdayOrdinal:">(from, copy);
    take<"weekOfMonth", "setWeekOfMonth:">(from, copy);
    take<"weekOfYear", "setWeekOfYear:">(from, copy);
    take<"yearForWeekOfYear", "setYearForWeekOfYear:">(from, copy);
    copy.setCalendar(from.calendar());
    copy.setTimeZone(from.timeZone());
    return copy.relinquish();
}

id (*dateOf)(id, SEL, id) = nullptr;

id dateFromComponents(id self, SEL selector, id given) {
    auto components = objc::borrow<NSDateComponents>(given);
    const auto weekYear = components.send<"yearForWeekOfYear", objc::Int>();
    if (components && components.year() == NSDateComponents::undefined && weekYear == NSDateComponents::undefined) {
        components = components.send<"copy", NSDateComponents>();
        components.setYear(1);
    }
    return dateOf(self, selector, components.raw());
}

constexpr objc::UInt calendarUnit = 1 << 20;
constexpr objc::UInt timeZoneUnit = 1 << 21;

id (*componentsOf)(id, SEL, objc::UInt, id) = nullptr;

/// GNUstep's own passes over the two units that are no fields.
id componentsFromDate(id self, SEL selector, objc::UInt units, id date) {
    const id made = componentsOf(self, selector, units, date);
    const auto components = objc::borrow<NSDateComponents>(made);
    if ((units & calendarUnit) != 0) {
        components.setCalendar(objc::borrow<NSCalendar>(self));
    }
    if ((units & timeZoneUnit) != 0) {
        components.setTimeZone(objc::borrow<NSCalendar>(self).send<"timeZone", NSTimeZone>());
    }
    return made;
}

} // namespace

void installDateComponents() {
    correct<"copyWithZone:">(objc::classOf<NSDateComponents>(), &copyWithZone);
    dateOf = correct<"dateFromComponents:">(objc::classOf<NSCalendar>(), &dateFromComponents);
    componentsOf = correct<"components:fromDate:">(objc::classOf<NSCalendar>(), &componentsFromDate);
}

} // namespace phone
