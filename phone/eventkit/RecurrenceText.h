/// How an item repeats, as iCalendar has it.
#pragma once

#include "phone/eventkit/ICalendar.h"

namespace phone::ical {

/// For whole days the format wants the end as a day; the moment as it was given is kept beside it.
void setRecurrence(icalcomponent* calendar, icalcomponent* in, const Recurrence& recurrence, bool isAllDay);

/// nullopt where nothing repeats, or in a way that the phone does not know.
std::optional<Recurrence> recurrenceIn(icalcomponent* in);

} // namespace phone::ical
