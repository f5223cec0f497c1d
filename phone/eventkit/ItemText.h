/// What the files of reminders and events have in common.
#pragma once

#include "phone/eventkit/ICalendar.h"

namespace phone::ical {

/// Writes everything but the alarms into a component that is new.
void setItem(icalcomponent* in, const StoredItem& item);
/// Writes the alarms, which stand behind the properties.
void addAlarms(icalcomponent* to, const StoredItem& item);

/// Everything that is there.
void readItem(icalcomponent* in, StoredItem& item);

/// The first component of the kind that stands for itself, or the whole where it is of the kind; nullptr
/// where there is none. What changes a single occurrence does not stand for itself.
icalcomponent* itemIn(const Component& calendar, icalcomponent_kind kind);

} // namespace phone::ical
