/// A reminder as an iCalendar file.
#pragma once

#include "phone/eventkit/CalendarItems.h"

namespace phone {

/// The file's text: one to-do. What a `VTODO` has no place for is left out.
std::string textOf(const ReminderItem& reminder);

/// nullopt for a text that is no iCalendar or holds no to-do. Dates that make no sense are left out.
std::optional<ReminderItem> reminderFrom(const std::string& text);

} // namespace phone
