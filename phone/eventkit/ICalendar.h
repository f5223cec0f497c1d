/// iCalendar components as values. The one header that includes libical.
#pragma once

#include "phone/eventkit/CalendarItems.h"

#include <libical/ical.h>

#include <memory>
#include <optional>
#include <string>

namespace phone::ical {

struct FreeComponent {
    void operator()(icalcomponent* component) const { icalcomponent_free(component); }
};
/// A component with all that is in it.
using Component = std::unique_ptr<icalcomponent, FreeComponent>;

/// A `VCALENDAR` with nothing in it yet.
Component calendar();
/// nullptr for a text that is no iCalendar.
Component parse(const std::string& text);
/// The text of the whole, lines ended and folded as the format wants it.
std::string text(const Component& component);

/// The fields alone; a zone is the property's matter.
icaltimetype timeOf(const CalendarDate& date);
/// In UTC.
icaltimetype utcTime(double moment);
/// In UTC, or local everywhere.
CalendarDate dateOf(const icaltimetype& time);

/// Sets a property of this kind to the text, as it stands.
void setText(icalcomponent* in, icalproperty_kind kind, const std::string& text);
/// nullopt where there is none.
std::optional<std::string> textOf(icalcomponent* in, icalproperty_kind kind);

/// Sets a property to a moment, in seconds since 1970, in UTC.
void setMoment(icalcomponent* in, icalproperty_kind kind, double moment);
std::optional<double> momentIn(icalcomponent* in, icalproperty_kind kind);

/// Sets a property to a date; a zone that is not UTC gets its rules into `calendar`.
void setDate(icalcomponent* calendar, icalcomponent* in, icalproperty_kind kind, const CalendarDate& date);
std::optional<CalendarDate> dateIn(icalcomponent* in, icalproperty_kind kind);

/// An alarm that shows this text.
void addAlarm(icalcomponent* to, const CalendarAlarm& alarm, const std::string& shown);
std::vector<CalendarAlarm> alarmsIn(icalcomponent* in);

/// A property of the phone's own, which other programs leave alone.
void setOwn(icalcomponent* in, const char* name, long value);
long ownIn(icalcomponent* in, const char* name);
void setOwnDate(icalcomponent* calendar, icalcomponent* in, const char* name, const CalendarDate& date);
std::optional<CalendarDate> ownDateIn(icalcomponent* in, const char* name);

} // namespace phone::ical
