// What Done tells the stores, message by message: who receives it and what comes with it.

#include "tests/quorvan/EventSavingTest.h"

namespace {

using Texts = std::vector<std::string>;

class SavingMessages : public EventSavingTest {
protected:
    /// "CLASS MESSAGE ARGUMENT..." of what a touch of Done sends.
    Texts sentByDone() {
        const auto before = log("store").size();
        done();
        Texts sent;
        const auto entries = log("store");
        for (auto entry = entries.begin() + static_cast<std::ptrdiff_t>(before); entry != entries.end(); ++entry) {
            std::string line = entry->at("class").get<std::string>() + " " + entry->at("message").get<std::string>();
            for (const auto& argument : entry->at("arguments")) {
                line += " " + (argument.is_string() ? argument.get<std::string>() : argument.dump());
            }
            sent.push_back(line);
        }
        return sent;
    }
};

} // namespace

TEST_F(SavingMessages, OfANote) {
    start();
    startNote();
    typeNote("milk\neggs");

    EXPECT_EQ(
        sentByDone(),
        (Texts{
            "NoteContext init",
            "NoteContext allStores",
            "NoteContext enableChangeLogging: true",
            "NoteContext managedObjectContext",
            "NoteContext defaultStoreForNewNote",
            "NSEntityDescription insertNewObjectForEntityForName:inManagedObjectContext: Note NSManagedObjectContext",
            "NSEntityDescription insertNewObjectForEntityForName:inManagedObjectContext: NoteBody "
            "NSManagedObjectContext",
            "NoteObject setIsPlainText: true",
            "NoteObject setContent: milk\neggs",
            "NoteBodyObject setContent: milk\neggs",
            "NoteBodyObject setOwner: NoteObject",
            "NoteObject setStore: NoteStoreObject",
            "NoteContext nextIndex",
            "NoteObject setIntegerId: 1",
            "NoteObject setTitle: milk",
            "NoteObject setSummary: milk\neggs",
            "NoteObject setBody: NoteBodyObject",
            "NoteObject setCreationDate: 2026-03-05T14:37:12Z",
            "NoteObject setModificationDate: 2026-03-05T14:37:12Z",
            "NoteContext saveOutsideApp: null",
        }));
}

TEST_F(SavingMessages, OfANoteWithATitle) {
    turnOn({3});
    start();
    startNote();
    typeTitle("Shopping");
    typeNote("milk");

    EXPECT_EQ(
        sentByDone(),
        (Texts{
            "NoteContext init",
            "NoteContext allStores",
            "NoteContext enableChangeLogging: true",
            "NoteContext managedObjectContext",
            "NoteContext defaultStoreForNewNote",
            "NSEntityDescription insertNewObjectForEntityForName:inManagedObjectContext: Note NSManagedObjectContext",
            "NSEntityDescription insertNewObjectForEntityForName:inManagedObjectContext: NoteBody "
            "NSManagedObjectContext",
            "NoteObject setIsPlainText: true",
            "NoteObject setContent: milk",
            "NoteBodyObject setContent: milk",
            "NoteBodyObject setOwner: NoteObject",
            "NoteObject setStore: NoteStoreObject",
            "NoteContext nextIndex",
            "NoteObject setIntegerId: 1",
            "NoteObject setTitle: Shopping",
            "NoteBodyObject setContent: Shopping\nmilk",
            "NoteObject setIsPlainText: true",
            "NoteObject setContent: Shopping\nmilk",
            "NoteObject setSummary: milk",
            "NoteObject setBody: NoteBodyObject",
            "NoteObject setCreationDate: 2026-03-05T14:37:12Z",
            "NoteObject setModificationDate: 2026-03-05T14:37:12Z",
            "NoteContext saveOutsideApp: null",
        }));
}

TEST_F(SavingMessages, OfANoteWithoutAText) {
    start();
    startNote();

    EXPECT_EQ(
        sentByDone(),
        (Texts{
            "NoteContext init",
            "NoteContext allStores",
            "NoteContext enableChangeLogging: true",
            "NoteContext managedObjectContext",
            "NoteContext defaultStoreForNewNote",
            "NSEntityDescription insertNewObjectForEntityForName:inManagedObjectContext: Note NSManagedObjectContext",
            "NSEntityDescription insertNewObjectForEntityForName:inManagedObjectContext: NoteBody "
            "NSManagedObjectContext",
            "NoteObject setIsPlainText: true",
            "NoteObject setContent:   Note",
            "NoteBodyObject setContent:   Note",
            "NoteBodyObject setOwner: NoteObject",
            "NoteObject setStore: NoteStoreObject",
            "NoteContext nextIndex",
            "NoteObject setIntegerId: 1",
        }));
}

TEST_F(SavingMessages, OfAReminder) {
    start();
    startReminder();
    typeNote("milk");

    EXPECT_EQ(sentByDone(), (Texts{
                                "EKEventStore init",
                                "EKEventStore respondsToSelector: requestAccessToEntityType:completion:",
                                "EKEventStore requestAccessToEntityType:completion: 1",
                                "EKEventStore calendarsForEntityType: 1",
                                "EKReminder reminderWithEventStore: EKEventStore",
                                "EKEventStore defaultCalendarForNewReminders",
                                "EKReminder setCalendar: EKCalendar",
                                "EKReminder setTitle: milk",
                                "EKReminder setPriority: 0",
                                "EKEventStore saveReminder:commit:error: EKReminder true",
                            }));
}

TEST_F(SavingMessages, OfAReminderWithAnAlarm) {
    start();
    startReminder();
    typeNote("milk");
    touchAndWait("Remind me");
    pickDate("2026-03-06T09:30");
    goBack();

    EXPECT_EQ(sentByDone(), (Texts{
                                "EKEventStore init",
                                "EKEventStore respondsToSelector: requestAccessToEntityType:completion:",
                                "EKEventStore requestAccessToEntityType:completion: 1",
                                "EKEventStore calendarsForEntityType: 1",
                                "EKReminder reminderWithEventStore: EKEventStore",
                                "EKEventStore defaultCalendarForNewReminders",
                                "EKReminder setCalendar: EKCalendar",
                                "EKReminder setTitle: milk",
                                "EKReminder setPriority: 0",
                                "EKReminder setStartDateComponents: 2026-03-05T14:37:00",
                                "EKReminder setDueDateComponents: 2026-03-06T09:30:00",
                                "EKAlarm alarmWithAbsoluteDate: 2026-03-06T09:30:00Z",
                                "EKReminder setAlarms: [\"EKAlarm\"]",
                                "EKEventStore saveReminder:commit:error: EKReminder true",
                            }));
}

TEST_F(SavingMessages, OfAnEvent) {
    startTyped();
    locate("Canteen");
    setClock("2026-03-05T14:50:00"); // what is saved is when the screen was opened

    EXPECT_EQ(sentByDone(), (Texts{
                                "EKEventStore init",
                                "EKEventStore requestAccessToEntityType:completion: 0",
                                "EKEventStore calendarsForEntityType: 0",
                                "EKEvent eventWithEventStore: EKEventStore",
                                "EKEventStore defaultCalendarForNewEvents",
                                "EKEvent setCalendar: EKCalendar",
                                "EKEvent setAllDay: false",
                                "EKEvent setTitle: Lunch",
                                "EKEvent setLocation: Canteen",
                                "EKEvent setStartDate: 2026-03-05T14:50:00Z",
                                "EKEvent setStartDate: 2026-03-05T14:37:12Z",
                                "EKEvent setEndDate: 2026-03-05T15:37:12Z",
                                "EKAlarm alarmWithRelativeOffset: 0.0",
                                "EKEvent setAlarms: [\"EKAlarm\"]",
                                "EKEventStore saveEvent:span:commit:error: EKEvent 1 true",
                            }));
}

TEST_F(SavingMessages, OfAnEventThatRepeats) {
    startTyped();
    chooseCalendar("Work");
    chooseInterval("Every 2 Weeks");
    chooseRepeatEnd("2026-12-24T14:37");

    EXPECT_EQ(sentByDone(), (Texts{
                                "EKEventStore init",
                                "EKEventStore requestAccessToEntityType:completion: 0",
                                "EKEventStore calendarsForEntityType: 0",
                                "EKEvent eventWithEventStore: EKEventStore",
                                "EKEvent setCalendar: EKCalendar",
                                "EKEvent setAllDay: false",
                                "EKEvent setTitle: Lunch",
                                "EKEvent setLocation: ",
                                "EKEvent setStartDate: 2026-03-05T14:37:12Z",
                                "EKEvent setStartDate: 2026-03-05T14:37:12Z",
                                "EKEvent setEndDate: 2026-03-05T15:37:12Z",
                                "EKAlarm alarmWithRelativeOffset: 0.0",
                                "EKEvent setAlarms: [\"EKAlarm\"]",
                                "EKRecurrenceEnd recurrenceEndWithEndDate: 2026-12-24T14:37:00Z",
                                "EKRecurrenceRule initRecurrenceWithFrequency:interval:end: 1 2 EKRecurrenceEnd",
                                "EKEvent addRecurrenceRule: EKRecurrenceRule",
                                "EKEventStore saveEvent:span:commit:error: EKEvent 1 true",
                            }));
}
