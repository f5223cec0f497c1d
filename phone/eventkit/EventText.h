/// An event as an iCalendar file.
#pragma once

#include "phone/eventkit/CalendarItems.h"

namespace phone {

/// The file's text: one event. What a `VEVENT` has no place for is left out.
std::string textOf(const EventItem& event);

/// nullopt for a text that is no iCalendar or holds no event. Dates that make no sense are left out.
std::optional<EventItem> eventFrom(const std::string& text);

} // namespace phone
