#include "phone/eventkit/ICalendar.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <sstream>

namespace phone {

namespace {

constexpr const char* producer = "-//Quorvan//Phone//EN";

icaltimezone* zoneNamed(const std::string& name) {
    return name == "UTC" || name == "GMT" ? icaltimezone_get_utc_timezone()
                                          : icaltimezone_get_builtin_timezone(name.c_str());
}

void replace(icalcomponent* in, icalproperty* property) {
    const icalproperty_kind kind = icalproperty_isa(property);
    if (icalproperty* before = icalcomponent_get_first_property(in, kind)) {
        icalcomponent_remove_property(in, before);
        icalproperty_free(before);
    }
    icalcomponent_add_property(in, property);
}

/// The zone's rules under its plain name, as all programs know it, unless they are there.
void addZone(icalcomponent* calendar, icaltimezone* zone, const std::string& name) {
    if (icalcomponent_get_timezone(calendar, name.c_str()) != nullptr) {
        return;
    }
    icalcomponent* rules = icalcomponent_new_clone(icaltimezone_get_component(zone));
    replace(rules, icalproperty_new_tzid(name.c_str()));
    icalcomponent_add_component(calendar, rules);
}

/// In UTC where the zone is unknown.
icaltimetype timeIn(const std::string& zone, double moment) {
    const icaltimetype time = ical::utcTime(moment);
    icaltimezone* place = zoneNamed(zone);
    return place == nullptr ? time : icaltime_convert_to_zone(time, place);
}

/// The line as it was before it was folded.
std::string unfolded(const std::string& text) {
    std::string whole;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\r') {
            continue; // the line's end is its line feed
        }
        const bool isFold = text[at] == '\n' && at + 1 < text.size() && (text[at + 1] == ' ' || text[at + 1] == '\t');
        if (isFold) {
            ++at;
        } else {
            whole += text[at];
        }
    }
    return whole;
}

/// libical drops blanks at either end of a value, but not what it reads as one.
std::string withBlanksKept(const std::string& text) {
    std::istringstream lines(unfolded(text));
    std::string kept;
    for (std::string line; std::getline(lines, line);) {
        const bool isText =
            line.starts_with("SUMMARY") || line.starts_with("DESCRIPTION") || line.starts_with("LOCATION");
        const std::size_t colon = isText ? line.find(':') : std::string::npos;
        if (colon == std::string::npos) {
            kept += line + "\n";
            continue;
        }
        const std::size_t first = std::min(line.find_first_not_of(' ', colon + 1), line.size());
        const std::size_t last = std::max(line.find_last_not_of(' ') + 1, first);
        const auto escaped = [](std::size_t count) {
            std::string blanks;
            while (count-- > 0) {
                blanks += "\\_"; // which it reads as a blank
            }
            return blanks;
        };
        kept += line.substr(0, colon + 1) + escaped(first - colon - 1) + line.substr(first, last - first) +
                escaped(line.size() - last) + "\n";
    }
    return kept;
}

} // namespace

double momentOf(const CalendarDate& date, const std::string& localZone) {
    icaltimezone* zone = zoneNamed(date.zone.empty() || date.isDay ? localZone : date.zone);
    icaltimetype time = ical::timeOf(date);
    time.is_date = 0; // a whole day begins at its first moment
    return static_cast<double>(icaltime_as_timet_with_zone(time, zone));
}

CalendarDate dateAt(double moment, const std::string& zone) {
    if (zoneNamed(zone) != nullptr) {
        CalendarDate date = ical::dateOf(timeIn(zone, moment));
        date.zone = zone;
        if (momentOf(date, zone) == std::floor(moment)) {
            return date;
        }
    }
    return ical::dateOf(ical::utcTime(moment));
}

CalendarDate dayAt(double moment, const std::string& zone) {
    const icaltimetype time = timeIn(zone, moment);
    return {time.year, time.month, time.day, 0, 0, 0, true, ""};
}

CalendarDate dayAfter(const CalendarDate& date, int days) {
    icaltimetype time = ical::timeOf(date);
    icaltime_adjust(&time, days, 0, 0, 0);
    CalendarDate later = ical::dateOf(time);
    later.zone = date.zone;
    return later;
}

namespace ical {

icaltimetype timeOf(const CalendarDate& date) {
    icaltimetype time = icaltime_null_time();
    time.year = date.year;
    time.month = date.month;
    time.day = date.day;
    time.is_date = date.isDay ? 1 : 0;
    if (!date.isDay) {
        time.hour = date.hour;
        time.minute = date.minute;
        time.second = date.second;
    }
    return icaltime_normalize(time);
}

icaltimetype utcTime(double moment) {
    return icaltime_from_timet_with_zone(static_cast<time_t>(std::floor(moment)), 0, icaltimezone_get_utc_timezone());
}

CalendarDate dateOf(const icaltimetype& time) {
    return {time.year,   time.month,  time.day,          time.hour,
            time.minute, time.second, time.is_date != 0, icaltime_is_utc(time) != 0 ? "UTC" : ""};
}

Component calendar() {
    Component made(icalcomponent_new(ICAL_VCALENDAR_COMPONENT));
    icalcomponent_add_property(made.get(), icalproperty_new_version("2.0"));
    icalcomponent_add_property(made.get(), icalproperty_new_prodid(producer));
    return made;
}

Component parse(const std::string& text) {
    icalerror_set_errors_are_fatal(0); // a broken file is nothing to die of
    return Component(icalparser_parse_string(withBlanksKept(text).c_str()));
}

std::string text(const Component& component) {
    char* owned = icalcomponent_as_ical_string_r(component.get());
    std::string text = owned;
    icalmemory_free_buffer(owned);
    return text;
}

void setText(icalcomponent* in, icalproperty_kind kind, const std::string& text) {
    icalproperty* property = icalproperty_new(kind);
    icalproperty_set_value(property, icalvalue_new_text(text.c_str()));
    replace(in, property);
}

std::optional<std::string> textOf(icalcomponent* in, icalproperty_kind kind) {
    icalproperty* property = icalcomponent_get_first_property(in, kind);
    icalvalue* value = property == nullptr ? nullptr : icalproperty_get_value(property);
    const char* text = value == nullptr ? nullptr : icalvalue_get_text(value);
    // An empty value has no text with the parser.
    return property == nullptr ? std::nullopt : std::optional<std::string>(text == nullptr ? "" : text);
}

void setMoment(icalcomponent* in, icalproperty_kind kind, double moment) {
    icalproperty* property = icalproperty_new(kind);
    icalproperty_set_value(property, icalvalue_new_datetime(utcTime(moment)));
    replace(in, property);
}

std::optional<double> momentIn(icalcomponent* in, icalproperty_kind kind) {
    const auto date = dateIn(in, kind);
    return date ? std::optional(momentOf(*date, "UTC")) : std::nullopt;
}

namespace {

/// Gives the property a date, and `calendar` the rules of its zone unless that is UTC.
void fill(icalproperty* property, icalcomponent* calendar, const CalendarDate& date) {
    icaltimetype time = timeOf(date);
    icaltimezone* zone = date.zone.empty() || date.isDay ? nullptr : zoneNamed(date.zone);
    if (zone == icaltimezone_get_utc_timezone()) {
        icaltime_set_timezone(&time, zone);
    } else if (zone != nullptr) {
        icalproperty_add_parameter(property, icalparameter_new_tzid(date.zone.c_str()));
        addZone(calendar, zone, date.zone);
    }
    icalproperty_set_value(property, date.isDay ? icalvalue_new_date(time) : icalvalue_new_datetime(time));
    if (date.isDay) {
        icalproperty_add_parameter(property, icalparameter_new_value(ICAL_VALUE_DATE));
    }
}

/// The time as the property gives it, in the property's zone.
std::optional<CalendarDate> dateFrom(icalproperty* property, const icaltimetype& time) {
    if (icaltime_is_null_time(time) || !icaltime_is_valid_time(time)) {
        return std::nullopt;
    }
    CalendarDate date = dateOf(time);
    icalparameter* id = icalproperty_get_first_parameter(property, ICAL_TZID_PARAMETER);
    if (date.zone.empty() && id != nullptr) {
        // A zone that only the file itself describes is taken as local time.
        const std::string name = icalparameter_get_tzid(id);
        icaltimezone* zone = icaltimezone_get_builtin_timezone_from_tzid(name.c_str());
        date.zone = zoneNamed(name) != nullptr ? name : zone == nullptr ? "" : icaltimezone_get_location(zone);
    }
    return date;
}

icalproperty* ownProperty(icalcomponent* in, const char* name) {
    for (icalproperty* at = icalcomponent_get_first_property(in, ICAL_X_PROPERTY); at != nullptr;
         at = icalcomponent_get_next_property(in, ICAL_X_PROPERTY)) {
        const char* found = icalproperty_get_x_name(at);
        if (found != nullptr && std::string_view(found) == name) {
            return at;
        }
    }
    return nullptr;
}

} // namespace

void setDate(icalcomponent* calendar, icalcomponent* in, icalproperty_kind kind, const CalendarDate& date) {
    icalproperty* property = icalproperty_new(kind);
    fill(property, calendar, date);
    replace(in, property);
}

std::optional<CalendarDate> dateIn(icalcomponent* in, icalproperty_kind kind) {
    icalproperty* property = icalcomponent_get_first_property(in, kind);
    icalvalue* value = property == nullptr ? nullptr : icalproperty_get_value(property);
    return value == nullptr ? std::nullopt : dateFrom(property, icalvalue_get_datetime(value));
}

void addAlarm(icalcomponent* to, const CalendarAlarm& alarm, const std::string& shown) {
    icalcomponent* made = icalcomponent_new(ICAL_VALARM_COMPONENT);
    icalcomponent_add_property(made, icalproperty_new_action(ICAL_ACTION_DISPLAY));
    setText(made, ICAL_DESCRIPTION_PROPERTY, shown);
    icaltriggertype trigger{};
    if (alarm.moment) {
        trigger.time = utcTime(*alarm.moment);
    } else {
        trigger.time = icaltime_null_time();
        trigger.duration = icaldurationtype_from_int(static_cast<int>(std::floor(alarm.offset)));
    }
    icalproperty* property = icalproperty_new_trigger(trigger);
    if (alarm.moment) {
        icalproperty_add_parameter(property, icalparameter_new_value(ICAL_VALUE_DATETIME));
    }
    icalcomponent_add_property(made, property);
    icalcomponent_add_component(to, made);
}

std::vector<CalendarAlarm> alarmsIn(icalcomponent* in) {
    std::vector<CalendarAlarm> all;
    for (icalcomponent* at = icalcomponent_get_first_component(in, ICAL_VALARM_COMPONENT); at != nullptr;
         at = icalcomponent_get_next_component(in, ICAL_VALARM_COMPONENT)) {
        icalproperty* property = icalcomponent_get_first_property(at, ICAL_TRIGGER_PROPERTY);
        if (property == nullptr) {
            continue;
        }
        const icaltriggertype trigger = icalproperty_get_trigger(property);
        if (icaltime_is_null_time(trigger.time)) {
            all.push_back({std::nullopt, static_cast<double>(icaldurationtype_as_int(trigger.duration))});
        } else {
            all.push_back(
                {static_cast<double>(icaltime_as_timet_with_zone(trigger.time, icaltimezone_get_utc_timezone())), 0});
        }
    }
    return all;
}

void setOwn(icalcomponent* in, const char* name, long value) {
    icalproperty* property = icalproperty_new_x(std::to_string(value).c_str());
    icalproperty_set_x_name(property, name);
    icalcomponent_add_property(in, property);
}

long ownIn(icalcomponent* in, const char* name) {
    icalproperty* property = ownProperty(in, name);
    const char* value = property == nullptr ? nullptr : icalproperty_get_value_as_string(property);
    return value == nullptr ? 0 : std::strtol(value, nullptr, 10);
}

void setOwnDate(icalcomponent* calendar, icalcomponent* in, const char* name, const CalendarDate& date) {
    icalproperty* property = icalproperty_new(ICAL_X_PROPERTY);
    icalproperty_set_x_name(property, name);
    fill(property, calendar, date);
    icalcomponent_add_property(in, property);
}

std::optional<CalendarDate> ownDateIn(icalcomponent* in, const char* name) {
    icalproperty* property = ownProperty(in, name);
    const char* value = property == nullptr ? nullptr : icalproperty_get_value_as_string(property);
    return value == nullptr ? std::nullopt : dateFrom(property, icaltime_from_string(value));
}

} // namespace ical
} // namespace phone
