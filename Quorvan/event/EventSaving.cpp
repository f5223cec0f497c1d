// How an event is saved: the screen closes at once, and the event is built when the store has answered.

#include "Quorvan/event/EventController.h"
#include "platform/eventkit/EKEvent.h"

namespace quorvan {

namespace {

/// The chosen calendar, or the default one.
EKCalendar chosenCalendar(const EKEventStore& store, const NSArray& calendars) {
    const objc::Int place = chosenNum;
    return place < 0 ? store.defaultCalendarForNewEvents()
                     : calendars.at<EKCalendar>(static_cast<objc::UInt>(place)); // docs/kept.md: a place past the end
}

/// None for a repetition without end; none either where no end was ever picked, which only the flag's other use
/// for reminders can bring about: the platform raises for an end without a date.
EKRecurrenceEnd repetitionEnd() {
    const NSDate end = eventRemindEndDate;
    return neverOrNot || !end ? EKRecurrenceEnd() : EKRecurrenceEnd::withEndDate(end);
}

/// nil where the event does not repeat.
EKRecurrenceRule repetition() {
    using enum EKRecurrenceFrequency;
    switch (preSelect) {
    case 1:
        return EKRecurrenceRule::with(Daily, 1, repetitionEnd());
    case 2:
        return EKRecurrenceRule::with(Weekly, 1, repetitionEnd());
    case 3:
        return EKRecurrenceRule::with(Weekly, 2, repetitionEnd());
    case 4:
        return EKRecurrenceRule::with(Monthly, 1, repetitionEnd());
    case 5:
        return EKRecurrenceRule::with(Yearly, 1, repetitionEnd());
    default:
        return nullptr;
    }
}

} // namespace

void EventController::done(const objc::Object&) {
    const auto store = EKEventStore::make();
    const auto self = objc::as<objc::Ref<EventController>>(*this);
    store.requestAccess(EKEntityType::Event, ^(bool granted, id) {
      if (granted) {
          self->save(store);
      }
    });
    activity().activityDidFinish(true);
}

/// Runs on a thread of the store's choosing, when the screen may be gone already and another may change what they
/// share: of that each value is read once.
void EventController::save(const EKEventStore& store) {
    const NSArray calendars = store.calendars(EKEntityType::Event);
    const auto event = EKEvent::withEventStore(store);
    event.setCalendar(chosenCalendar(store, calendars));
    event.setAllDay(allDayer);
    event.setTitle(description.text());
    event.setLocation(location.text());
    event.setStartDate(NSDate::now()); // docs/kept.md: a start at once
    event.setStartDate(startingDate);
    event.setEndDate(endingDate);
    event.setAlarms(NSArray::of(EKAlarm::withRelativeOffset(0)));
    if (const auto rule = repetition()) {
        event.addRecurrenceRule(rule);
    }
    if (!isEmpty(description.text())) {
        NSError ignored;
        store.saveEvent(event, EKSpan::FutureEvents, true, &ignored);
    }
}

} // namespace quorvan
