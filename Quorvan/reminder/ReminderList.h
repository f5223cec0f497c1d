/// The lists that a reminder can be written into.
#pragma once

#include "Quorvan/common/CalendarChooser.h"

namespace quorvan {

class ReminderList : public CalendarChooser<ReminderList> {
public:
    static constexpr auto objc_name = "ReminderList";
    static constexpr auto kind = EKEntityType::Reminder;
    static constexpr auto identifiersFile = "RemindersID.plist";
    static constexpr auto titlesFile = "Reminders.plist";
    static constexpr auto controllerTitle = "Reminder";
    static constexpr auto barTitle = "List";
    static constexpr auto firstBarTitle = "Reminder";
    static constexpr auto reload = Reload::AfterThePop;
    static objc::Int& marked() { return prevSelection; }
    static objc::Int& choice() { return chosen; }
    static objc::Global<NSString>& shown() { return rlist; }
    UITableView& table() { return rListTable; }
    ~ReminderList() { takeBackDelegates(rListTable); }

private:
    UITableView rListTable;
};

} // namespace quorvan
