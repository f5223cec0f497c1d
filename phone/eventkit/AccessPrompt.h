/// What the person is asked before an application gets at calendars or reminders, in the phone's language.
#pragma once

#include "phone/eventkit/CalendarFolder.h"
#include "phone/uikit/Alert.h"

namespace phone::eventkit {

/// Names the application by its display name. `answered` is called on the main thread with whether the person
/// allows it.
Question accessQuestion(EntityType type, std::function<void(bool allowed)> answered);

} // namespace phone::eventkit
