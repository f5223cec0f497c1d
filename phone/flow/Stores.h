/// What stands in a new phone's stores: the stores file of `phone new`.
#pragma once

#include "phone/eventkit/CalendarItems.h"
#include "phone/notes/NotesDatabase.h"

#include <string>
#include <vector>

namespace phone {

/// In the order of the file, which is the stores' order. Starts as a phone without a stores file.
struct Stores {
    std::vector<NotesAccount> notes = {{"LOCAL_NOTES_ACCOUNT", true}, {"Mail", false}};
    Access reminderAccess = Access::Ask;
    std::vector<CalendarStore> reminders = {{"Tasks", true}, {"Shopping"}, {"Work"}};
    Access eventAccess = Access::Ask;
    std::vector<CalendarStore> events = {{"Home", true}, {"Work"}, {"Holidays", false, true}};

    /// What the file leaves out keeps its default. Throws InputError for anything that it may not say.
    static Stores read(const std::string& file);
};

} // namespace phone
