#include "phone/foundation/DateFormatter.h"

#include "phone/device/Settings.h"
#include "phone/foundation/Correct.h"
#include "phone/foundation/HourPattern.h"
#include "phone/foundation/Text.h"
#include "platform/foundation/NSDateFormatter.h"

#include <array>
#include <optional>
#include <unicode/udat.h>
#include <unicode/udatpg.h>
#include <unicode/ustring.h>

namespace phone {

namespace {

using StringFromDate = id (*)(id, SEL, id);
using FromTemplate = id (*)(id, SEL, id, objc::UInt, id);
constinit StringFromDate stringFromDate = nullptr;
constinit StringFromDate dateFromString = nullptr;
constinit FromTemplate fromTemplate = nullptr;

/// What is usual in the person's region.
Hours usualHours() {
    UErrorCode error = U_ZERO_ERROR;
    UDateTimePatternGenerator* generator =
        udatpg_open(localeIdentifier(settings().language, settings().region).c_str(), &error);
    const UDateFormatHourCycle cycle = udatpg_getDefaultHourCycle(generator, &error);
    udatpg_close(generator);
    const bool twelve = U_SUCCESS(error) && (cycle == UDAT_HOUR_CYCLE_11 || cycle == UDAT_HOUR_CYCLE_12);
    return twelve ? Hours::Twelve : Hours::TwentyFour;
}

/// The person's choice, where it goes against what is usual and the locale follows persons at all.
std::optional<Hours> hoursChosen(const std::string& locale) {
    const auto chosen = settings().hours;
    return chosen && locale != "en_US_POSIX" && *chosen != usualHours() ? chosen : std::nullopt;
}

std::string identifierOf(id locale) {
    return text(objc::borrow<NSObject>(locale).send<"localeIdentifier", NSString>());
}

/// The narrow spaces of newer locale data are unknown to the platform of those days.
std::string withPlainSpaces(std::string pattern) {
    constexpr std::string_view narrow = "\u202f";
    for (std::size_t at = 0; (at = pattern.find(narrow, at)) != std::string::npos;) {
        pattern.replace(at, narrow.size(), " ");
    }
    return pattern;
}

/// The pattern of a formatter that has none but styles; "" for one that has neither.
std::string patternOfStyles(const NSDateFormatter& formatter, const std::string& locale) {
    const auto style = [](objc::UInt own) { // none, short, medium, long, full
        return own == 0 ? UDAT_NONE : static_cast<UDateFormatStyle>(UDAT_SHORT - (own - 1));
    };
    const objc::UInt time = formatter.send<"timeStyle", objc::UInt>();
    const objc::UInt date = formatter.send<"dateStyle", objc::UInt>();
    if (time == 0 && date == 0) {
        return "";
    }
    constexpr std::size_t longest = 256;
    UErrorCode error = U_ZERO_ERROR;
    UDateFormat* format = udat_open(style(time), style(date), locale.c_str(), nullptr, 0, nullptr, 0, &error);
    std::array<UChar, longest> pattern{};
    udat_toPattern(format, false, pattern.data(), longest - 1, &error);
    udat_close(format);
    std::array<char, 3 * longest> utf8{};
    u_strToUTF8(utf8.data(), utf8.size() - 1, nullptr, pattern.data(), -1, &error);
    return U_SUCCESS(error) ? utf8.data() : "";
}

/// The formatter itself, or one like it with the pattern that it has for this person. Foundation's own copies give up
/// what the original still holds.
NSDateFormatter forThePerson(id self) {
    const auto formatter = objc::borrow<NSDateFormatter>(self);
    const auto spoken = formatter.send<"locale", objc::Object>();
    const std::string locale = identifierOf(spoken.raw());
    const NSString given = formatter.dateFormat();
    std::string pattern = given ? text(given) : withPlainSpaces(patternOfStyles(formatter, locale));
    if (const auto hours = hoursChosen(locale)) {
        pattern = withHours(pattern, *hours);
    }
    if (pattern.empty() || (given && pattern == text(given))) {
        return formatter;
    }
    const auto persons = NSDateFormatter::make();
    persons.send<"setLocale:">(spoken);
    persons.send<"setTimeZone:">(formatter.send<"timeZone", objc::Object>());
    persons.setDateFormat(string(pattern));
    return persons;
}

id personsStringFromDate(id self, SEL selector, id date) {
    const NSDateFormatter formatter = forThePerson(self);
    return stringFromDate(formatter.raw(), selector, date);
}

id personsDateFromString(id self, SEL selector, id string) {
    const NSDateFormatter formatter = forThePerson(self);
    return dateFromString(formatter.raw(), selector, string);
}

id personsFormatFromTemplate(id self, SEL selector, id fields, objc::UInt options, id locale) {
    std::string wanted = text(objc::borrow<NSString>(fields));
    if (const auto hours = hoursChosen(identifierOf(locale))) {
        wanted = templateWithHours(wanted, *hours);
    }
    const NSString from = string(wanted);
    const std::string pattern = text(objc::borrow<NSString>(fromTemplate(self, selector, from.raw(), options, locale)));
    return autoreleased(string(withPlainSpaces(pattern)));
}

} // namespace

void installDateFormatters() {
    const Class formatter = objc::classOf<NSDateFormatter>();
    stringFromDate = correct<"stringFromDate:">(formatter, &personsStringFromDate);
    dateFromString = correct<"dateFromString:">(formatter, &personsDateFromString);
    fromTemplate = correctClass<"dateFormatFromTemplate:options:locale:">(formatter, &personsFormatFromTemplate);
}

} // namespace phone
