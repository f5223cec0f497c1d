#include "phone/foundation/PersonsDates.h"
#include "platform/foundation/NSCalendar.h"
#include "tests/foundation/FoundationTest.h"

namespace phone {
namespace {

struct NSLocale : NSObject {
    static constexpr auto objc_name = "NSLocale";
    using NSObject::NSObject;
    static NSLocale named(const char* identifier) {
        return objc::make<NSLocale, "initWithLocaleIdentifier:">(string(identifier));
    }
    static NSLocale current() { return objc::sendClass<NSLocale, "currentLocale", NSLocale>(); }
};

NSDate afternoon() { return NSDate::withSinceReferenceDate(1772721432 - 978307200); } // 2026-03-05 14:37:12 UTC

class DateFormatter : public FoundationTest {
protected:
    /// A person of this language; "" for the region and the hours that go with it.
    static void live(const std::string& language, const std::string& region, const std::string& hours) {
        Settings given = settings();
        given.language = language;
        given.region = region;
        given.hours = hoursNamed(hours);
        useSettings(given);
    }
    static NSDateFormatter formatter(const char* pattern, const char* locale = nullptr) {
        const auto made = NSDateFormatter::make();
        made.setDateFormat(string(pattern));
        if (locale != nullptr) {
            made.send<"setLocale:">(NSLocale::named(locale));
        }
        return made;
    }
    static std::string written(const char* pattern, const char* locale = nullptr) {
        return text(formatter(pattern, locale).string(afternoon()));
    }
    static std::string pattern(const char* fields) { return personsPattern(fields); }
    static std::string inStyle(objc::UInt date, objc::UInt time) {
        const auto made = NSDateFormatter::make();
        made.send<"setDateStyle:">(date);
        made.send<"setTimeStyle:">(time);
        return text(made.string(afternoon()));
    }
    static objc::UInt firstWeekday() {
        return objc::sendClass<NSCalendar, "currentCalendar", NSCalendar>().send<"firstWeekday", objc::UInt>();
    }
};

} // namespace

// Holds: formatter-current-locale
TEST_F(DateFormatter, SpeaksThePersonsLanguageInThePersonsZoneUnlessToldOtherwise) {
    live("de", "", "");

    EXPECT_EQ(written("EEEE, d. MMMM, HH:mm"), "Donnerstag, 5. März, 14:37");
    EXPECT_EQ(text(NSLocale::current().send<"localeIdentifier", NSString>()), "de_DE");
}

// Holds: language-and-region
TEST_F(DateFormatter, TakesHoursOrderAndFirstWeekdayFromTheRegionAndWordsFromTheLanguage) {
    live("en", "DE", "");
    EXPECT_EQ(pattern("jmm"), "HH:mm");
    EXPECT_EQ(pattern("yMMMMd"), "d MMMM y");
    EXPECT_EQ(firstWeekday(), 2u);
    EXPECT_EQ(written("EEEE"), "Thursday");

    live("de", "US", "");
    EXPECT_EQ(pattern("jmm"), "h:mm a");
    EXPECT_EQ(firstWeekday(), 1u);
    EXPECT_EQ(written("EEEE"), "Donnerstag");
}

TEST_F(DateFormatter, KeepsExplicitPatternsWhereThePersonHasChosenNothing) {
    live("en", "", "");
    EXPECT_EQ(written("HH:mm"), "14:37");
    live("de", "", "");
    EXPECT_EQ(written("h:mm a"), "2:37 PM");
    live("ar", "", "");
    EXPECT_EQ(written("HH:mm"), "١٤:٣٧");
}

TEST_F(DateFormatter, KeepsExplicitPatternsWhereThePersonHasChosenWhatIsUsualThere) {
    live("en", "", "12");
    EXPECT_EQ(written("HH:mm"), "14:37");
    live("de", "", "24");
    EXPECT_EQ(written("h:mm a"), "2:37 PM");
}

// Trap: hours-of-the-person
// Holds: formatter-hour-override, hours-are-the-persons
TEST_F(DateFormatter, CountsHoursAsThePersonHasChosenEvenInAnExplicitPattern) {
    live("de", "", "12");
    EXPECT_EQ(written("HH"), "02 PM");
    EXPECT_EQ(written("dd/MM HH:mm 'HH'"), "05/03 02:37 PM HH");
    EXPECT_EQ(pattern("jmm"), "h:mm a");
    EXPECT_TRUE(hasTwelveHours());

    live("en", "", "24");
    EXPECT_EQ(written("h:mm a"), "14:37");
    EXPECT_EQ(pattern("jmm"), "HH:mm");
    EXPECT_FALSE(hasTwelveHours());
}

// Holds: formatter-hour-override
TEST_F(DateFormatter, CountsHoursAsThePersonHasChosenInTheLanguagesDigits) {
    live("ar", "", "24");

    EXPECT_EQ(written("h:mm a"), "١٤:٣٧");
}

// Trap: hours-of-the-person
// Holds: formatter-hour-override, hours-are-the-persons
TEST_F(DateFormatter, LeavesTheLocaleOfFixedFormatsAlone) {
    live("ar", "DE", "12");

    EXPECT_EQ(written("HH:mm", "en_US_POSIX"), "14:37");
    EXPECT_EQ(text(formatter("HH", "en_US_POSIX").dateFormat()), "HH");
}

TEST_F(DateFormatter, KeepsThePatternThatItWasGiven) {
    live("de", "", "12");
    const auto made = formatter("HH:mm");
    (void)made.string(afternoon());

    EXPECT_EQ(text(made.dateFormat()), "HH:mm");
}

// Holds: formatter-hour-override
TEST_F(DateFormatter, ReadsAsItWrites) {
    live("de", "", "12");
    const auto made = formatter("yyyy-MM-dd HH:mm:ss");
    const NSString text = made.string(afternoon());

    const auto read = made.send<"dateFromString:", NSDate>(text);

    ASSERT_TRUE(read);
    EXPECT_EQ(read.sinceReferenceDate(), afternoon().sinceReferenceDate());
    EXPECT_FALSE((made.send<"dateFromString:", NSDate>("2026-03-05 14:37:12"_ns)));
}

TEST_F(DateFormatter, WritesStylesAsThePersonsClockDoesWithPlainSpaces) {
    live("en", "", "");
    EXPECT_EQ(inStyle(0, 1), "2:37 PM");
    EXPECT_EQ(inStyle(2, 1), "Mar 5, 2026, 2:37 PM");
    live("en", "", "24");
    EXPECT_EQ(inStyle(0, 1), "14:37");
    EXPECT_EQ(inStyle(2, 0), "Mar 5, 2026");
}

} // namespace phone
