/// The share sheet's Reminder.
#pragma once

#include "Quorvan/activities/ShareActivity.h"
#include "Quorvan/reminder/ReminderController.h"

namespace quorvan {

class ReminderMake : public ShareActivity<ReminderMake> {
public:
    static constexpr auto objc_name = "ReminderMake";
    static constexpr auto titleKey = "Reminder";
    static constexpr auto type = "com.tovesk.remindermake";
    static constexpr auto image = "Reminders.png";
    using Compose = ReminderController;
};

} // namespace quorvan
