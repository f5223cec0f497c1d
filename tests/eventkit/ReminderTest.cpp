#include "tests/eventkit/StoreTest.h"

#include "phone/foundation/WallClock.h"
#include "platform/foundation/NSTimeZone.h"

using phone::Access;
using phone::EntityType;

namespace {

class ReminderTest : public StoreTest {};

} // namespace

// Trap: calendars-in-the-stores-order
TEST_F(ReminderTest, ListsComeInTheStoresOrderTheSameAtEveryCall) {
    useReminders(Access::Allow, {{"Zebra"}, {"Apple", true}, {"Mango"}});
    const auto store = this->store();

    const std::vector<std::string> expected = {"Zebra", "Apple", "Mango"};
    EXPECT_EQ(titles(store.calendars(EKEntityType::Reminder)), expected);
    EXPECT_EQ(titles(store.calendars(EKEntityType::Reminder)), expected);
    EXPECT_EQ(titles(EKEventStore::make().calendars(EKEntityType::Reminder)), expected);
}

TEST_F(ReminderTest, ReadOnlyCalendarsAreListedAndSaySo) {
    useEvents(Access::Allow);
    const auto calendars = store().calendars(EKEntityType::Event);

    ASSERT_EQ(calendars.count(), 3u);
    EXPECT_TRUE(calendars.at<EKCalendar>(0).allowsContentModifications());
    EXPECT_FALSE(calendars.at<EKCalendar>(2).allowsContentModifications());
}

// Trap: calendars-in-the-stores-order
TEST_F(ReminderTest, TheDefaultListIsNilWhereNoneIsTheDefault) {
    useReminders(Access::Allow, {{"One"}, {"Two"}});
    const auto store = this->store();

    EXPECT_FALSE(store.defaultCalendarForNewReminders());
    EXPECT_EQ(failure(store, reminder(store)), 1);
}

// Holds: calendar-is-no-value
TEST_F(ReminderTest, ACalendarIsNeitherADictionarysKeyNorAPropertyList) {
    const auto list = allowedStore().defaultCalendarForNewReminders();

    EXPECT_FALSE(objc::responds<"copyWithZone:">(list));
    EXPECT_FALSE(
        (NSArray::of(list).send<"writeToFile:atomically:", bool>("/Library/Quorvan/RemindersID.plist"_ns, true)));
    EXPECT_FALSE(exists("/Library/Quorvan/RemindersID.plist"));
}

// Trap: no-alarm-by-itself
TEST_F(ReminderTest, ANewOneHasNoCalendarAnEmptyTitleAndNoAlarms) {
    const auto made = EKReminder::withEventStore(allowedStore());

    EXPECT_FALSE(made.calendar());
    EXPECT_TRUE(made.title());
    EXPECT_EQ(phone::text(made.title()), "");
    EXPECT_FALSE(made.alarms());
    EXPECT_EQ(made.priority(), 0);
    EXPECT_TRUE(made.isNew());
    EXPECT_FALSE(made.hasChanges());
}

TEST_F(ReminderTest, SavingWritesAllOfIt) {
    const auto store = allowedStore();
    const auto made = reminder(store, "Milk; bread, \"eggs\"\nand ü"_ns);
    made.setNotes("two\nlines"_ns);
    made.setLocation("Shop"_ns);
    made.setPriority(5);
    made.setStartDateComponents(may(15, 8));
    made.setDueDateComponents(may(16, 9));
    made.addAlarm(EKAlarm::withAbsoluteDate(NSDate::withSinceReferenceDate(800000000)));

    EXPECT_EQ(failure(store, made), std::nullopt);

    const auto saved = reminders();
    ASSERT_EQ(saved.size(), 1u);
    EXPECT_EQ(saved[0].list, "Tasks");
    const phone::ReminderItem& item = saved[0].item;
    EXPECT_EQ(item.title, "Milk; bread, \"eggs\"\nand ü");
    EXPECT_EQ(item.notes, "two\nlines");
    EXPECT_EQ(item.location, "Shop");
    EXPECT_EQ(item.priority, 5);
    EXPECT_EQ(item.start, (phone::CalendarDate{2026, 5, 15, 8, 30, 0, false, ""}));
    EXPECT_EQ(item.due, (phone::CalendarDate{2026, 5, 16, 9, 30, 0, false, ""}));
    EXPECT_EQ(item.alarms, (std::vector<phone::CalendarAlarm>{{800000000 + 978307200.0, 0}}));
    EXPECT_EQ(item.created, phone::WallClock::now());
    EXPECT_FALSE(made.isNew());
    EXPECT_FALSE(made.hasChanges());
    EXPECT_EQ(phone::text(made.calendarItemIdentifier()), item.id);
}

TEST_F(ReminderTest, AnEmptyTitleIsSaved) {
    const auto store = allowedStore();

    EXPECT_EQ(failure(store, reminder(store, ""_ns)), std::nullopt);

    ASSERT_EQ(reminders().size(), 1u);
    EXPECT_EQ(reminders()[0].item.title, "");
}

// Trap: due-date-alone
// Holds: due-without-start
TEST_F(ReminderTest, ADueDateWithoutAStartDateFails) {
    const auto store = allowedStore();
    const auto made = reminder(store);
    made.setDueDateComponents(may(16, 9));

    EXPECT_EQ(failure(store, made), 2);
    EXPECT_TRUE(reminders().empty());

    made.setStartDateComponents(may(15, 9));
    EXPECT_EQ(failure(store, made), std::nullopt);
}

// Holds: start-after-due
TEST_F(ReminderTest, AStartAfterTheDueDateFailsAsAnInvertedEventDoes) {
    const auto store = allowedStore();
    const auto made = reminder(store);
    made.setStartDateComponents(may(16, 10));
    made.setDueDateComponents(may(16, 9));

    EXPECT_EQ(failure(store, made), 4);
    EXPECT_TRUE(reminders().empty());

    made.setStartDateComponents(may(16, 9));
    EXPECT_EQ(failure(store, made), std::nullopt);
}

// Holds: start-after-due
TEST_F(ReminderTest, BesideAWholeDayATimeCountsAsItsDay) {
    const auto store = allowedStore();
    const auto made = reminder(store);
    made.setStartDateComponents(may(16, 10));
    made.setDueDateComponents(mayDay(16));
    EXPECT_EQ(failure(store, made), std::nullopt);

    made.setDueDateComponents(mayDay(15));
    EXPECT_EQ(failure(store, made), 4);
}

// Holds: start-after-due
TEST_F(ReminderTest, TimesOfDifferentZonesAreComparedAsMoments) {
    useZone("Europe/Berlin");
    const auto store = allowedStore();
    const auto made = reminder(store);
    const auto due = may(16, 9);
    due.setTimeZone(NSTimeZone::named("UTC"_ns));
    made.setDueDateComponents(due);
    made.setStartDateComponents(may(16, 10)); // an hour before
    EXPECT_EQ(failure(store, made), std::nullopt);

    made.setStartDateComponents(may(16, 12));
    EXPECT_EQ(failure(store, made), 4);
}

// Holds: start-too-far
TEST_F(ReminderTest, AStartOrADueDateAfterTheLastYearFails) {
    const auto store = allowedStore();
    const auto made = reminder(store);
    const auto late = may(16, 9);
    late.setYear(3001);
    made.setStartDateComponents(may(16, 9));
    made.setDueDateComponents(late);
    EXPECT_EQ(failure(store, made), 9);

    made.setStartDateComponents(late);
    EXPECT_EQ(failure(store, made), 9);

    late.setYear(3000);
    late.setMonth(13);
    made.setDueDateComponents(late);
    made.setStartDateComponents(late);
    EXPECT_EQ(failure(store, made), 9);
    EXPECT_TRUE(reminders().empty());
}

// Holds: recurring-without-due
TEST_F(ReminderTest, ARepeatingOneWithoutADueDateFails) {
    const auto store = allowedStore();
    const auto made = reminder(store);
    made.addRecurrenceRule(EKRecurrenceRule::with(EKRecurrenceFrequency::Weekly, 2, nullptr));
    EXPECT_EQ(failure(store, made), 18);
    EXPECT_TRUE(reminders().empty());

    made.setStartDateComponents(may(15, 8));
    made.setDueDateComponents(may(16, 9));
    EXPECT_EQ(failure(store, made), std::nullopt);
    ASSERT_EQ(reminders().size(), 1u);
    EXPECT_EQ(reminders()[0].item.recurrence, (phone::Recurrence{phone::Frequency::Weekly, 2, std::nullopt, 0}));
}

TEST_F(ReminderTest, WithoutAListItFailsWithItsText) {
    const auto store = allowedStore();
    const auto made = EKReminder::withEventStore(store);
    NSError error;

    EXPECT_FALSE(store.saveReminder(made, true, &error));

    EXPECT_EQ(phone::text(error.domain()), "EKErrorDomain");
    EXPECT_EQ(error.code(), 1);
    EXPECT_EQ(phone::text(error.localizedDescription()), "No calendar has been set.");
}

TEST_F(ReminderTest, AReadOnlyListFails) {
    useReminders(Access::Allow, {{"Fixed", true, true}});
    const auto store = this->store();

    EXPECT_EQ(failure(store, reminder(store)), 6);
}

TEST_F(ReminderTest, AnEventCalendarFails) {
    useEvents(Access::Allow);
    const auto store = allowedStore();
    const auto made = reminder(store);
    made.setCalendar(store.defaultCalendarForNewEvents());

    EXPECT_EQ(failure(store, made), 23);
}

// Holds: priority-numbers
TEST_F(ReminderTest, PrioritiesOutsideZeroToNineFail) {
    const auto store = allowedStore();
    for (const long priority : {-1, 10}) {
        const auto made = reminder(store);
        made.setPriority(priority);
        EXPECT_EQ(failure(store, made), 26) << priority;
    }
    for (const long priority : {0, 1, 5, 9}) {
        const auto made = reminder(store);
        made.setPriority(priority);
        EXPECT_EQ(failure(store, made), std::nullopt) << priority;
    }

    const auto saved = reminders();
    ASSERT_EQ(saved.size(), 4u);
    EXPECT_EQ(saved[0].item.priority, 0);
    EXPECT_EQ(saved[3].item.priority, 9);
}

// Trap: stores-do-not-mix
// Holds: objects-of-another-store
TEST_F(ReminderTest, ObjectsOfAnotherStoreRaise) {
    const auto store = allowedStore();
    const auto other = EKEventStore::make();
    const auto foreign = reminder(other);
    const auto mixed = reminder(store);
    mixed.setCalendar(other.defaultCalendarForNewReminders());

    EXPECT_EQ(raised([&] { store.saveReminder(foreign, true); }), invalidArgument);
    EXPECT_EQ(raised([&] { store.saveReminder(mixed, true); }), invalidArgument);
    EXPECT_TRUE(reminders().empty());
}

// Trap: other-calendars-years
// Holds: gregorian-components
TEST_F(ReminderTest, ComponentsOfAnotherCalendarRaise) {
    const auto made = reminder(allowedStore());
    const auto components = may(16, 9);
    components.setCalendar(NSCalendar::withIdentifier("buddhist"_ns));

    EXPECT_EQ(raised([&] { made.setStartDateComponents(components); }), invalidArgument);
    EXPECT_EQ(raised([&] { made.setDueDateComponents(components); }), invalidArgument);

    components.setCalendar(NSCalendar::withIdentifier(objc::borrow<NSString>(NSGregorianCalendar)));
    made.setDueDateComponents(components);
    EXPECT_TRUE(made.dueDateComponents());
}

// Trap: other-calendars-years
// Holds: other-years-without-a-calendar
TEST_F(ReminderTest, YearsOfAnotherCalendarPassWithoutItAndAreWrong) {
    const auto store = allowedStore();
    const auto made = reminder(store);
    const auto buddhist = NSCalendar::withIdentifier("buddhist"_ns);
    const auto components = buddhist.components(4 | 8 | 16, NSDate::now());
    components.setCalendar(nullptr);
    made.setStartDateComponents(components);

    EXPECT_EQ(failure(store, made), std::nullopt);

    EXPECT_EQ(reminders().at(0).item.start->year, 2026 + 543);
}

// Holds: gregorian-components
TEST_F(ReminderTest, ComponentsAreCopiedWhenSet) {
    const auto made = reminder(allowedStore());
    const auto components = may(16, 9);
    made.setDueDateComponents(components);

    components.setDay(20);

    EXPECT_EQ(made.dueDateComponents().day(), 16);
}

// Holds: gregorian-components
TEST_F(ReminderTest, WithoutATimeOfDayItIsAllDay) {
    const auto store = allowedStore();
    const auto made = reminder(store);
    made.setStartDateComponents(mayDay(16));

    store.saveReminder(made, true);

    EXPECT_TRUE(reminders().at(0).item.start->isDay);
}

TEST_F(ReminderTest, AZoneIsKept) {
    const auto store = allowedStore();
    const auto made = reminder(store);
    const auto components = may(16, 9);
    components.setTimeZone(NSTimeZone::named("Europe/Berlin"_ns));
    made.setStartDateComponents(components);

    store.saveReminder(made, true);

    const auto start = reminders().at(0).item.start.value();
    EXPECT_EQ(start.zone, "Europe/Berlin");
    EXPECT_EQ(start.hour, 9);
    EXPECT_EQ(phone::momentOf(start, "UTC"), 1778916600); // 07:30 UTC
}

// Holds: priority-numbers
TEST_F(ReminderTest, CompletingSetsTheDateAndUndoingClearsIt) {
    const auto made = reminder(allowedStore());

    made.setCompleted(true);
    EXPECT_TRUE(made.isCompleted());
    EXPECT_TRUE(made.completionDate());

    made.setCompleted(false);
    EXPECT_FALSE(made.isCompleted());
    EXPECT_FALSE(made.completionDate());
}

TEST_F(ReminderTest, WithoutCommitItWaitsAndResetForgetsIt) {
    const auto store = allowedStore();

    EXPECT_TRUE(store.saveReminder(reminder(store, "forgotten"_ns), false));
    EXPECT_TRUE(reminders().empty());
    store.reset();
    EXPECT_TRUE(store.commit());
    EXPECT_TRUE(reminders().empty());

    EXPECT_TRUE(store.saveReminder(reminder(store, "one"_ns), false));
    EXPECT_TRUE(store.saveReminder(reminder(store, "two"_ns), false));
    EXPECT_TRUE(store.commit());
    EXPECT_EQ(reminders().size(), 2u);
}

TEST_F(ReminderTest, SavingAgainInAnotherListMovesIt) {
    const auto store = allowedStore();
    const auto made = reminder(store);
    store.saveReminder(made, true);

    made.setCalendar(store.calendars(EKEntityType::Reminder).at<EKCalendar>(2));
    made.setTitle("Moved"_ns);
    store.saveReminder(made, true);

    const auto saved = reminders();
    ASSERT_EQ(saved.size(), 1u);
    EXPECT_EQ(saved[0].list, "Work");
    EXPECT_EQ(saved[0].item.title, "Moved");
}

TEST_F(ReminderTest, RecordsComeInTheOrderOfCreationThoughTheClockStandsStill) {
    const auto store = allowedStore();
    const std::vector<std::string> expected = {"c", "a", "d", "b"};
    std::size_t list = 2;
    for (const std::string& title : expected) {
        const auto made = reminder(store, phone::string(title));
        made.setCalendar(store.calendars(EKEntityType::Reminder).at<EKCalendar>(list));
        list = (list + 2) % 3;
        store.saveReminder(made, true);
    }

    std::vector<std::string> found;
    for (const auto& row : reminders()) {
        found.push_back(row.item.title);
    }

    EXPECT_EQ(found, expected);
}

TEST_F(ReminderTest, AListThatIsGoneFailsWithAnInternalFailure) {
    const auto store = allowedStore();
    const auto made = reminder(store);
    remove("/var/mobile/Library/Calendar/reminders");
    calendarFolder(EntityType::Reminder).setAccess(Access::Allow);

    EXPECT_EQ(failure(store, made), 5);
}

// Trap: no-alarm-by-itself
// Holds: relative-alarms
TEST_F(ReminderTest, RelativeAlarmsAreNeverAfterTheStart) {
    boot();
    const auto alarm = EKAlarm::withAbsoluteDate(NSDate::now());

    alarm.setRelativeOffset(-60);
    EXPECT_FALSE(alarm.absoluteDate());
    EXPECT_EQ(raised([&] { alarm.setRelativeOffset(1); }), invalidArgument);
    EXPECT_EQ(raised([&] { EKAlarm::withRelativeOffset(60); }), invalidArgument);
    EXPECT_TRUE(EKAlarm::withRelativeOffset(0));

    alarm.setAbsoluteDate(NSDate::now());
    EXPECT_EQ(alarm.relativeOffset(), 0);
}

TEST_F(ReminderTest, ItemsTakeAlarmsOnly) {
    const auto made = reminder(allowedStore());

    EXPECT_EQ(raised([&] { made.setAlarms(NSArray::of("alarm"_ns)); }), invalidArgument);
    EXPECT_FALSE(made.hasAlarms());
}

TEST_F(ReminderTest, EveryMessageIsLoggedWithItsArguments) {
    const auto store = allowedStore();
    objc::responds<"requestAccessToEntityType:completion:">(store);
    const auto made = reminder(store);
    made.setStartDateComponents(may(16, 9));
    made.setAlarms(NSArray::of(EKAlarm::withAbsoluteDate(NSDate::withSinceReferenceDate(0))));
    store.saveReminder(made, true);

    const auto entries = log("store");
    const std::vector<std::string> expected = {"EKEventStore init",
                                               "EKEventStore respondsToSelector:",
                                               "EKReminder reminderWithEventStore:",
                                               "EKEventStore defaultCalendarForNewReminders",
                                               "EKReminder setCalendar:",
                                               "EKReminder setTitle:",
                                               "EKReminder setStartDateComponents:",
                                               "EKAlarm alarmWithAbsoluteDate:",
                                               "EKReminder setAlarms:",
                                               "EKEventStore saveReminder:commit:error:"};
    EXPECT_EQ(messages(entries), expected);
    EXPECT_EQ(entries[5]["arguments"], nlohmann::ordered_json({"Milk"}));
    EXPECT_EQ(entries[6]["arguments"], nlohmann::ordered_json({"2026-05-16T09:30:00"}));
    EXPECT_EQ(entries[8]["arguments"].dump(), R"([["EKAlarm"]])");
    EXPECT_EQ(entries[9]["arguments"].dump(), R"(["EKReminder","true"])");
}
