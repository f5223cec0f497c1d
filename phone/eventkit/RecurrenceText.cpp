#include "phone/eventkit/RecurrenceText.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace phone::ical {

namespace {

/// The end of the repetition as it was given to the rule.
constexpr const char* untilProperty = "X-PHONE-UNTIL";

constexpr std::array<std::pair<Frequency, icalrecurrencetype_frequency>, 4> frequencies = {{
    {Frequency::Daily, ICAL_DAILY_RECURRENCE},
    {Frequency::Weekly, ICAL_WEEKLY_RECURRENCE},
    {Frequency::Monthly, ICAL_MONTHLY_RECURRENCE},
    {Frequency::Yearly, ICAL_YEARLY_RECURRENCE},
}};

/// The nearest number that the format's field can hold.
template <class T>
T limited(long value) {
    return static_cast<T>(std::min<long>(value, std::numeric_limits<T>::max()));
}

bool isSameDay(const CalendarDate& a, const CalendarDate& b) {
    return a.year == b.year && a.month == b.month && a.day == b.day;
}

/// The moment beside a day, unless another program has changed the day since.
CalendarDate asGiven(icalcomponent* in, const CalendarDate& day) {
    const auto given = ownDateIn(in, untilProperty);
    return given && isSameDay(*given, day) ? *given : day;
}

} // namespace

void setRecurrence(icalcomponent* calendar, icalcomponent* in, const Recurrence& recurrence, bool isAllDay) {
    icalrecurrencetype rule{};
    icalrecurrencetype_clear(&rule);
    rule.freq = frequencies[static_cast<std::size_t>(recurrence.frequency)].second;
    rule.interval = limited<short>(recurrence.interval);
    rule.count = limited<int>(recurrence.count);
    if (recurrence.until && (isAllDay || recurrence.until->isDay)) {
        CalendarDate day = *recurrence.until;
        day.isDay = true;
        rule.until = timeOf(day);
        if (!recurrence.until->isDay) {
            setOwnDate(calendar, in, untilProperty, *recurrence.until);
        }
    } else if (recurrence.until) {
        rule.until = utcTime(momentOf(*recurrence.until, "UTC"));
    }
    icalcomponent_add_property(in, icalproperty_new_rrule(rule));
}

std::optional<Recurrence> recurrenceIn(icalcomponent* in) {
    icalproperty* property = icalcomponent_get_first_property(in, ICAL_RRULE_PROPERTY);
    if (property == nullptr) {
        return std::nullopt;
    }
    const icalrecurrencetype rule = icalproperty_get_rrule(property);
    for (const auto& [frequency, format] : frequencies) {
        if (rule.freq != format) {
            continue;
        }
        Recurrence recurrence;
        recurrence.frequency = frequency;
        recurrence.interval = rule.interval;
        recurrence.count = rule.count;
        if (!icaltime_is_null_time(rule.until)) {
            const CalendarDate until = dateOf(rule.until);
            recurrence.until = until.isDay ? asGiven(in, until) : until;
        }
        return recurrence;
    }
    return std::nullopt;
}

} // namespace phone::ical
