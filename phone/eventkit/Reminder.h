/// One reminder being written.
#pragma once

#include "phone/eventkit/CalendarItem.h"
#include "platform/eventkit/EKReminder.h"

namespace phone::eventkit {

/// Nothing of it lies on the disk before its store saves it.
class Reminder : public objc::Implements<Reminder, EKReminder, objc::Ref<CalendarItem>> {
public:
    static void define(objc::ClassTable<Reminder>& c);

    /// As it is written.
    ReminderItem item() const;

private:
    static EKReminder withEventStore(const EKEventStore& store);

    objc::Int priority();
    void setPriority(objc::Int priority);
    NSDateComponents startDateComponents();
    void setStartDateComponents(const NSDateComponents& start);
    NSDateComponents dueDateComponents();
    void setDueDateComponents(const NSDateComponents& due);
    bool isCompleted();
    void setCompleted(bool completed);
    NSDate completionDate();
    void setCompletionDate(const NSDate& date);

    objc::Int _priority = 0;
    NSDateComponents _start; // nil for none
    NSDateComponents _due;   // nil for none
    NSDate _completion;      // nil while it is not completed
};

} // namespace phone::eventkit
