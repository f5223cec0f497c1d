/// What keeps reminders and events from being saved.
#pragma once

#include "phone/eventkit/SaveFailure.h"
#include "platform/eventkit/EKEventStore.h"

namespace phone::eventkit {

/// nullopt for one that can be saved.
std::optional<SaveFailure> obstacle(const EKReminder& reminder);
std::optional<SaveFailure> obstacle(const EKEvent& event);

} // namespace phone::eventkit
