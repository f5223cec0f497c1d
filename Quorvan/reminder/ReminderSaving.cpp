// How a reminder is saved: the screen closes at once, and the reminder is built when the store has answered.

#include "Quorvan/common/Resources.h"
#include "Quorvan/common/ScreenState.h"
#include "Quorvan/reminder/ReminderController.h"
#include "platform/eventkit/EKEventStore.h"
#include "platform/eventkit/EKReminder.h"

namespace quorvan {

namespace {

/// The store's number for a row of the priority chooser: none, low, medium, high.
objc::Int priorityOf(objc::Int row) {
    constexpr objc::Int priorities[] = {0, 9, 5, 1};
    return row >= 0 && row <= 3 ? priorities[row] : 0;
}

/// The list at the chosen place; the default one when none is chosen or the place is not there any more.
EKCalendar chosenList(const EKEventStore& store, const NSArray& lists) {
    const objc::Int place = chosen;
    const bool exists = place >= 0 && static_cast<objc::UInt>(place) < lists.count();
    return exists ? lists.at<EKCalendar>(static_cast<objc::UInt>(place)) : store.defaultCalendarForNewReminders();
}

NSDateComponents componentsToTheMinute(const NSDate& date) {
    const auto gregorian = NSCalendar::withIdentifier(objc::borrow<NSString>(NSGregorianCalendar));
    return gregorian.components(NSCalendarUnit::Year | NSCalendarUnit::Month | NSCalendarUnit::Day |
                                    NSCalendarUnit::Hour | NSCalendarUnit::Minute,
                                date);
}

} // namespace

void ReminderController::done(const objc::Object&) {
    const auto store = EKEventStore::make();
    if (objc::responds<"requestAccessToEntityType:completion:">(store)) {
        const auto self = objc::as<objc::Ref<ReminderController>>(*this);
        store.requestAccess(EKEntityType::Reminder, ^(bool granted, id) {
          if (granted) {
              self->save(store);
          }
        });
    }
    activity().activityDidFinish(true);
}

/// Runs on a thread of the store's choosing, when the screen may be gone already and another may change what they
/// share: of that each value is read once.
void ReminderController::save(const EKEventStore& store) {
    const NSArray lists = store.calendars(EKEntityType::Reminder);
    identifiersSaved = lists;
    const auto reminder = EKReminder::withEventStore(store);
    reminder.setCalendar(chosenList(store, lists));
    reminder.setTitle(note.text());
    const NSDate alarm = remDate;
    const auto start = componentsToTheMinute(NSDate::now());
    const auto due = alarm ? componentsToTheMinute(alarm) : NSDateComponents(); // of no date nobody knows any
    reminder.setPriority(priorityOf(prior));
    if (alarm && neverOrNot) {
        reminder.setStartDateComponents(start);
        reminder.setDueDateComponents(due);
        reminder.setAlarms(NSArray::of(EKAlarm::withAbsoluteDate(alarm)));
    }
    if (!note.text().isEqualToString(placeholder("Description"))) {
        NSError ignored;
        store.saveReminder(reminder, true, &ignored);
    }
}

} // namespace quorvan
