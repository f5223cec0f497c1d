#include "platform/foundation/NSDateFormatter.h"
#include "tests/foundation/FoundationTest.h"

#include "platform/foundation/NSCalendar.h"

namespace phone {
namespace {

class Calendar : public FoundationTest {
protected:
    static NSCalendar gregorian() { return NSCalendar::withIdentifier(objc::borrow<NSString>(NSGregorianCalendar)); }
    static NSDate at(double unixTime) { return NSDate::withSinceReferenceDate(unixTime - 978307200); }
    /// The moment of components, in seconds since 1970.
    static double moment(const NSDateComponents& components) {
        return gregorian().date(components).sinceReferenceDate() + 978307200;
    }
    static NSDateComponents day(objc::Int year, objc::Int month, objc::Int day) {
        const auto components = NSDateComponents::make();
        components.setYear(year);
        components.setMonth(month);
        components.setDay(day);
        return components;
    }
};

// Holds: component-units
TEST_F(Calendar, UnitsAskForTheirFields) {
    const auto field = [](objc::UInt unit, auto get) { return get(gregorian().components(unit, at(now))); };

    EXPECT_EQ(field(2, [](const NSDateComponents& c) { return c.send<"era", objc::Int>(); }), 1);
    EXPECT_EQ(field(4, [](const NSDateComponents& c) { return c.year(); }), 2026);
    EXPECT_EQ(field(8, [](const NSDateComponents& c) { return c.month(); }), 3);
    EXPECT_EQ(field(16, [](const NSDateComponents& c) { return c.day(); }), 5);
    EXPECT_EQ(field(32, [](const NSDateComponents& c) { return c.hour(); }), 14);
    EXPECT_EQ(field(64, [](const NSDateComponents& c) { return c.minute(); }), 37);
    EXPECT_EQ(field(128, [](const NSDateComponents& c) { return c.second(); }), 12);
    EXPECT_EQ(field(512, [](const NSDateComponents& c) { return c.send<"weekday", objc::Int>(); }), 5);
    EXPECT_EQ(field(1024, [](const NSDateComponents& c) { return c.send<"weekdayOrdinal", objc::Int>(); }), 1);
    EXPECT_EQ(field(256, [](const NSDateComponents& c) { return c.send<"week", objc::Int>(); }), 10);
    EXPECT_TRUE(field(1 << 20, [](const NSDateComponents& c) { return static_cast<bool>(c.calendar()); }));
    EXPECT_EQ(field(1 << 21, [](const NSDateComponents& c) { return text(c.timeZone().name()); }), "UTC");
}

// Holds: components-unset
TEST_F(Calendar, WhatWasNotAskedForIsUndefinedAndSundayIsOne) {
    const auto components = gregorian().components(NSCalendarUnit::Year | 512, at(now + 3 * 86400));

    EXPECT_EQ(components.month(), NSDateComponents::undefined);
    EXPECT_EQ(components.hour(), NSDateComponents::undefined);
    EXPECT_EQ(NSDateComponents::make().year(), NSDateComponents::undefined);
    EXPECT_EQ((components.send<"weekday", objc::Int>()), 1);
}

// Holds: components-are-lenient
TEST_F(Calendar, FieldsThatAreTooLargeRollAndThoseThatAreMissingAreTheFirst) {
    const auto rolled = day(2026, 12, 31);
    rolled.setHour(24);
    rolled.setMinute(61);
    EXPECT_EQ(moment(rolled), 1798765260); // 1 January 2027, 01:01
    EXPECT_EQ(moment(day(2026, 3, 5)), 1772668800);

    const auto first = gregorian().components(4 | 8 | 16 | 32, gregorian().date(NSDateComponents::make()));
    EXPECT_EQ(first.year(), 1);
    EXPECT_EQ(first.month(), 1);
    EXPECT_EQ(first.day(), 1);
    EXPECT_EQ(first.hour(), 0);
}

TEST_F(Calendar, ACopyOfComponentsIsAnotherObject) {
    const auto components = day(2026, 3, 5);
    components.setCalendar(gregorian());
    components.setTimeZone(NSTimeZone::named("Europe/Berlin"_ns));
    const auto copy = components.send<"copy", NSDateComponents>();

    components.setDay(6);
    components.setTimeZone(nullptr);

    EXPECT_EQ(copy.year(), 2026);
    EXPECT_EQ(copy.day(), 5);
    EXPECT_EQ(copy.hour(), NSDateComponents::undefined);
    EXPECT_TRUE(copy.calendar());
    EXPECT_EQ(text(copy.timeZone().name()), "Europe/Berlin");
}

// Holds: formatter-other-calendars
TEST_F(Calendar, YearsAreThoseOfThePersonsCalendar) {
    const auto formatter = NSDateFormatter::make();
    formatter.setDateFormat("yyyy"_ns);
    EXPECT_EQ(text(formatter.string(at(now))), "2026");

    speak("th-TH");
    const auto thai = NSDateFormatter::make();
    thai.setDateFormat("yyyy"_ns);
    EXPECT_EQ(text(thai.string(at(now))), "2569");
}

} // namespace
} // namespace phone
