#include "tests/eventkit/StoreTest.h"

#include "phone/device/Settings.h"
#include "phone/foundation/FileFaults.h"
#include "phone/foundation/WallClock.h"
#include "platform/foundation/NSTimeZone.h"

using phone::Access;
using phone::CalendarDate;
using phone::EntityType;

namespace {

constexpr double hour = 3600;

class EventTest : public StoreTest {
protected:
    /// A store that may do everything with events.
    EKEventStore eventStore() {
        useEvents(Access::Allow);
        return store();
    }
    /// In the default calendar, an hour long.
    static EKEvent event(const EKEventStore& store, const std::string& start = "2026-05-16T09:15:00") {
        const auto made = EKEvent::withEventStore(store);
        made.setCalendar(store.defaultCalendarForNewEvents());
        made.setTitle("Lunch"_ns);
        made.setStartDate(at(start));
        made.setEndDate(at(start, hour));
        return made;
    }
    /// Local time where the person is, and so many seconds later.
    static NSDate at(const std::string& local, double later = 0) {
        int year = 0;
        CalendarDate date;
        EXPECT_EQ(std::sscanf(local.c_str(), "%d-%d-%dT%d:%d:%d", &year, &date.month, &date.day, &date.hour,
                              &date.minute, &date.second),
                  6);
        date.year = year;
        return atMoment(phone::momentOf(date, zone()) + later);
    }
    static NSDate atMoment(double unixTime) { return NSDate::withSinceReferenceDate(unixTime - 978307200); }
    static double moment(const NSDate& date) { return date.sinceReferenceDate() + 978307200; }
    static std::string zone() { return phone::text(NSTimeZone::defaultTimeZone().name()); }
    static void moveTo(const std::string& zone) {
        phone::Settings moved = phone::settings();
        moved.zone = zone;
        phone::useSettings(moved);
    }
    /// The device's path of the one item that is saved.
    std::string itemPath() const {
        const auto file =
            std::string("/") + calendarFolder(EntityType::Event).calendars().front().id + "/" + saved().id;
        return std::string(phone::CalendarFolder::devicePath) + "/events" + file + ".ics";
    }
    phone::EventItem saved(std::size_t index = 0) const { return events().at(index).item; }
};

} // namespace

// Trap: calendars-in-the-stores-order
// Holds: calendars-unordered
TEST_F(EventTest, CalendarsComeInTheStoresOrderTheReadOnlyOnesAmongThem) {
    useEvents(Access::Allow, {{"Zebra"}, {"Fixed", false, true}, {"Apple", true}});
    const auto store = this->store();
    const auto calendars = store.calendars(EKEntityType::Event);

    const std::vector<std::string> expected = {"Zebra", "Fixed", "Apple"};
    EXPECT_EQ(titles(calendars), expected);
    EXPECT_EQ(titles(store.calendars(EKEntityType::Event)), expected);
    EXPECT_TRUE(calendars.at<EKCalendar>(0).allowsContentModifications());
    EXPECT_FALSE(calendars.at<EKCalendar>(1).allowsContentModifications());
    EXPECT_EQ(phone::text(store.defaultCalendarForNewEvents().title()), "Apple");
}

// Trap: calendars-in-the-stores-order
// Holds: defaults-may-be-nil
TEST_F(EventTest, TheDefaultCalendarIsNilWhereNoneIsTheDefault) {
    useEvents(Access::Allow, {{"One"}});
    useReminders(Access::Allow, {{"Two"}});
    const auto store = this->store();

    EXPECT_FALSE(store.defaultCalendarForNewEvents());
    EXPECT_FALSE(store.defaultCalendarForNewReminders());
    EXPECT_EQ(failure(store, event(store)), 1);
}

// Holds: new-item-is-empty
TEST_F(EventTest, ANewOneHasNoCalendarNoDatesAnEmptyTitleAndNoIdentifier) {
    const auto made = EKEvent::withEventStore(eventStore());

    EXPECT_FALSE(made.calendar());
    EXPECT_FALSE(made.startDate());
    EXPECT_FALSE(made.endDate());
    EXPECT_TRUE(made.title());
    EXPECT_EQ(phone::text(made.title()), "");
    EXPECT_FALSE(made.location());
    EXPECT_FALSE(made.isAllDay());
    EXPECT_FALSE(made.alarms());
    EXPECT_FALSE(made.recurrenceRules());
    EXPECT_FALSE(made.eventIdentifier());
    EXPECT_TRUE(made.isNew());
}

TEST_F(EventTest, SavingWritesAllOfIt) {
    useZone("Europe/Berlin");
    const auto store = eventStore();
    const auto made = event(store, "2026-05-16T09:15:00");
    made.setTitle("Lunch; with \"A\", B\nand ü"_ns);
    made.setLocation("Shop, 1st floor"_ns);
    made.setNotes("two\nlines"_ns);
    made.setAlarms(NSArray::of(EKAlarm::withRelativeOffset(0), EKAlarm::withRelativeOffset(-900)));

    EXPECT_EQ(failure(store, made), std::nullopt);

    ASSERT_EQ(events().size(), 1u);
    EXPECT_EQ(events()[0].calendar, "Home");
    EXPECT_EQ(saved().title, "Lunch; with \"A\", B\nand ü");
    EXPECT_EQ(saved().location, "Shop, 1st floor");
    EXPECT_EQ(saved().notes, "two\nlines");
    EXPECT_EQ(saved().start, (CalendarDate{2026, 5, 16, 9, 15, 0, false, "Europe/Berlin"}));
    EXPECT_EQ(saved().end, (CalendarDate{2026, 5, 16, 10, 15, 0, false, "Europe/Berlin"}));
    EXPECT_EQ(saved().alarms, (std::vector<phone::CalendarAlarm>{{std::nullopt, 0}, {std::nullopt, -900}}));
    EXPECT_EQ(saved().recurrence, std::nullopt);
    EXPECT_EQ(saved().created, phone::WallClock::now());
    EXPECT_FALSE(made.isNew());
    EXPECT_FALSE(made.hasChanges());
    EXPECT_EQ(moment(made.startDate()), 1778915700); // 07:15 UTC
}

TEST_F(EventTest, WithoutACalendarItFailsWithItsText) {
    const auto store = eventStore();
    const auto made = event(store);
    made.setCalendar(nullptr);
    NSError error;

    EXPECT_FALSE(store.saveEvent(made, EKSpan::FutureEvents, true, &error));

    EXPECT_EQ(phone::text(error.domain()), "EKErrorDomain");
    EXPECT_EQ(error.code(), 1);
    EXPECT_EQ(phone::text(error.localizedDescription()), "No calendar has been set.");
}

// Holds: store-errors
TEST_F(EventTest, WhatIsMissingOrWrongFailsWithItsNumber) {
    useReminders(Access::Allow);
    const auto store = eventStore();
    const auto fails = [&](long code, const std::function<void(const EKEvent&)>& spoil) {
        const auto made = event(store);
        spoil(made);
        EXPECT_EQ(failure(store, made), code);
    };

    fails(1, [](const EKEvent& made) { made.setCalendar(nullptr); });
    fails(2, [](const EKEvent& made) { made.setStartDate(nullptr); });
    fails(3, [](const EKEvent& made) { made.setEndDate(nullptr); });
    fails(4, [](const EKEvent& made) { made.setEndDate(at("2026-05-16T09:14:59")); });
    fails(6, [&](const EKEvent& made) { made.setCalendar(store.calendars(EKEntityType::Event).at<EKCalendar>(2)); });
    fails(22, [&](const EKEvent& made) { made.setCalendar(store.defaultCalendarForNewReminders()); });
    EXPECT_TRUE(events().empty());
}

// Holds: start-too-far
TEST_F(EventTest, AStartOrAnEndAfterTheLastYearFails) {
    const auto store = eventStore();
    const auto last = event(store, "3000-12-31T22:59:59");
    EXPECT_EQ(failure(store, last), std::nullopt);
    EXPECT_EQ(saved().start, (CalendarDate{3000, 12, 31, 22, 59, 59, false, "UTC"}));

    EXPECT_EQ(failure(store, event(store, "3001-01-01T00:00:00")), 9);
    EXPECT_EQ(failure(store, event(store, "3000-12-31T23:30:00")), 9);
    EXPECT_EQ(events().size(), 1u);
}

// Holds: store-internal-failure
TEST_F(EventTest, OnAFullDiskItFailsWithAnInternalFailureAndIsStillNew) {
    const auto store = eventStore();
    const auto made = event(store);
    {
        const phone::FileFaults full(phone::FileFaults::Disk::Full, phone::CalendarFolder::devicePath);
        EXPECT_EQ(failure(store, made), 5);
    }

    EXPECT_TRUE(events().empty());
    EXPECT_TRUE(made.isNew());
    EXPECT_EQ(failure(store, made), std::nullopt);
}

// Holds: no-length-is-allowed
TEST_F(EventTest, AnEndAtTheStartIsAllowed) {
    const auto store = eventStore();
    const auto made = event(store);
    made.setEndDate(made.startDate());

    EXPECT_EQ(failure(store, made), std::nullopt);

    EXPECT_EQ(saved().end, saved().start);
}

// Holds: span-numbers
TEST_F(EventTest, ASpanThatIsNeitherThisEventNorFutureEventsFails) {
    const auto store = eventStore();
    const auto answer = [&](long span) {
        NSError error;
        return store.saveEvent(event(store), static_cast<EKSpan>(span), true, &error) ? 0 : error.code();
    };

    EXPECT_EQ(answer(-1), 13);
    EXPECT_EQ(answer(2), 13);
    EXPECT_TRUE(events().empty());

    EXPECT_EQ(answer(0), 0);
    EXPECT_EQ(answer(1), 0);
    EXPECT_EQ(events().size(), 2u);
}

// Trap: unchanged-event-says-no
// Holds: unchanged-event
TEST_F(EventTest, SavingAnUnchangedEventAnswersNoWithoutAnError) {
    const auto store = eventStore();
    const auto alarm = EKAlarm::withRelativeOffset(0);
    const auto made = event(store);
    made.addAlarm(alarm);
    store.saveEvent(made, EKSpan::FutureEvents, true);
    NSError error;

    EXPECT_FALSE(store.saveEvent(made, EKSpan::FutureEvents, true, &error));
    EXPECT_FALSE(error);

    alarm.setRelativeOffset(-60);
    EXPECT_TRUE(store.saveEvent(made, EKSpan::FutureEvents, true, &error));
    made.setTitle("Dinner"_ns);
    EXPECT_TRUE(store.saveEvent(made, EKSpan::FutureEvents, true, &error));
    ASSERT_EQ(events().size(), 1u);
    EXPECT_EQ(saved().title, "Dinner");
    EXPECT_EQ(saved().alarms.at(0).offset, -60);
}

// Trap: stores-do-not-mix
// Holds: objects-of-another-store
TEST_F(EventTest, ObjectsOfAnotherStoreRaise) {
    const auto store = eventStore();
    const auto other = EKEventStore::make();
    const auto mixed = event(store);
    mixed.setCalendar(other.defaultCalendarForNewEvents());

    EXPECT_EQ(raised([&] { store.saveEvent(event(other), EKSpan::FutureEvents, true); }), invalidArgument);
    EXPECT_EQ(raised([&] { store.saveEvent(mixed, EKSpan::FutureEvents, true); }), invalidArgument);
    EXPECT_EQ(raised([&] { store.saveEvent(nullptr, EKSpan::FutureEvents, true); }), invalidArgument);
    EXPECT_TRUE(events().empty());
}

TEST_F(EventTest, WithoutAccessNothingIsSaved) {
    const auto store = eventStore();
    const auto made = event(store);
    calendarFolder(EntityType::Event).setAccess(Access::Deny);

    EXPECT_EQ(failure(store, made), 1013);
    EXPECT_TRUE(events().empty());
}

// Holds: all-day-floats
TEST_F(EventTest, AnAllDayEventIsSavedAsItsDays) {
    useZone("Europe/Berlin");
    const auto store = eventStore();
    const auto made = event(store);
    made.setAllDay(true);
    made.setStartDate(at("2026-05-16T14:37:12"));
    made.setEndDate(at("2026-05-18T00:00:00"));

    EXPECT_EQ(failure(store, made), std::nullopt);

    EXPECT_TRUE(saved().isAllDay());
    EXPECT_EQ(saved().start, (CalendarDate{2026, 5, 16, 0, 0, 0, true, ""}));
    EXPECT_EQ(saved().end, (CalendarDate{2026, 5, 18, 0, 0, 0, true, ""}));
    EXPECT_EQ(moment(made.startDate()), moment(at("2026-05-16T00:00:00")));
    EXPECT_EQ(moment(made.endDate()), moment(at("2026-05-18T23:59:59")));
    EXPECT_NE(read(itemPath()).find("DTSTART;VALUE=DATE:20260516"), std::string::npos); // of no zone
}

TEST_F(EventTest, OfAnAllDayEventOnlyTheDaysCanBeInverted) {
    const auto store = eventStore();
    const auto made = event(store);
    made.setAllDay(true);
    made.setStartDate(at("2026-05-16T23:40:00"));
    made.setEndDate(at("2026-05-16T00:40:00"));
    EXPECT_EQ(failure(store, made), std::nullopt);

    made.setEndDate(at("2026-05-15T23:59:59"));
    EXPECT_EQ(failure(store, made), 4);
}

// Holds: all-day-shifts
TEST_F(EventTest, AnAllDayEventThatTravelsWhileItIsHeldIsSavedADayOff) {
    useZone("Europe/Berlin");
    const auto store = eventStore();
    const auto made = event(store);
    made.setAllDay(true);
    store.saveEvent(made, EKSpan::FutureEvents, true);
    const double midnight = moment(made.startDate());

    moveTo("America/New_York");

    EXPECT_EQ(moment(made.startDate()), midnight);
    EXPECT_EQ(saved().start->day, 16); // what is written floats
    made.setTitle("Elsewhere"_ns);
    EXPECT_EQ(failure(store, made), std::nullopt);
    EXPECT_EQ(saved().start->day, 15);
}

TEST_F(EventTest, AnAllDayEventThatIsNoLongerOneHasTheTimesOfItsDays) {
    const auto store = eventStore();
    const auto made = event(store);
    made.setAllDay(true);
    store.saveEvent(made, EKSpan::FutureEvents, true);

    made.setAllDay(false);
    EXPECT_EQ(failure(store, made), std::nullopt);

    EXPECT_EQ(saved().start, (CalendarDate{2026, 5, 16, 0, 0, 0, false, "UTC"}));
    EXPECT_EQ(saved().end, (CalendarDate{2026, 5, 16, 23, 59, 59, false, "UTC"}));
}

TEST_F(EventTest, TimesAreKeptAcrossBothChangesOfSummerTime) {
    useZone("Europe/Berlin");
    const auto store = eventStore();
    // 01:30 and 03:30 in spring; in autumn 02:30 for the first and for the second time.
    for (const double start : {1774744200.0, 1774747800.0, 1792888200.0, 1792891800.0}) {
        const auto made = event(store);
        made.setStartDate(atMoment(start));
        made.setEndDate(atMoment(start + hour));
        EXPECT_EQ(failure(store, made), std::nullopt);
    }

    const auto all = events();
    ASSERT_EQ(all.size(), 4u);
    const auto start = [&](std::size_t index) { return phone::momentOf(*all[index].item.start, "UTC"); };
    const auto end = [&](std::size_t index) { return phone::momentOf(*all[index].item.end, "UTC"); };
    EXPECT_EQ(start(0), 1774744200);
    EXPECT_EQ(end(0), 1774747800);
    EXPECT_EQ(all[0].item.end->hour, 3);
    EXPECT_EQ(start(1), 1774747800);
    EXPECT_EQ(start(2), 1792888200);
    EXPECT_EQ(end(2), 1792891800);
    EXPECT_EQ(start(3), 1792891800);
    EXPECT_EQ(end(3), 1792895400);
}

// Holds: identifiers-change
TEST_F(EventTest, MovingItToAnotherCalendarChangesItsIdentifier) {
    const auto store = eventStore();
    const auto made = event(store);
    store.saveEvent(made, EKSpan::FutureEvents, true);
    const std::string before = phone::text(made.eventIdentifier());

    made.setCalendar(store.calendars(EKEntityType::Event).at<EKCalendar>(1));
    store.saveEvent(made, EKSpan::FutureEvents, true);

    EXPECT_NE(before, "");
    EXPECT_NE(phone::text(made.eventIdentifier()), before);
    ASSERT_EQ(events().size(), 1u);
    EXPECT_EQ(events()[0].calendar, "Work");
}

// Holds: commit-and-reset
TEST_F(EventTest, WithoutCommitItWaitsAndAResetEndsAllObjects) {
    useReminders(Access::Allow);
    const auto store = eventStore();
    EXPECT_TRUE(store.commit());

    EXPECT_TRUE(store.saveEvent(event(store), EKSpan::FutureEvents, false));
    EXPECT_TRUE(store.saveReminder(reminder(store), false));
    EXPECT_TRUE(events().empty());
    EXPECT_TRUE(store.commit());
    EXPECT_EQ(events().size(), 1u);
    EXPECT_EQ(reminders().size(), 1u);

    const auto lost = event(store);
    EXPECT_TRUE(store.saveEvent(lost, EKSpan::FutureEvents, false));
    store.reset();
    EXPECT_TRUE(store.commit());
    EXPECT_EQ(raised([&] { store.saveEvent(lost, EKSpan::FutureEvents, true); }), invalidArgument);
    EXPECT_EQ(events().size(), 1u);
    EXPECT_EQ(failure(store, event(store)), std::nullopt);
}

// Trap: no-alarm-by-itself
// Holds: relative-alarms
TEST_F(EventTest, AlarmsAreAtTheStartOrBeforeItOrAtADate) {
    const auto store = eventStore();
    const auto alarm = EKAlarm::withAbsoluteDate(at("2026-05-16T09:00:00"));
    const auto made = event(store);
    made.setAlarms(NSArray::of(alarm, EKAlarm::withRelativeOffset(0)));

    EXPECT_EQ(raised([&] { EKAlarm::withRelativeOffset(1); }), invalidArgument);
    alarm.setRelativeOffset(-60);
    EXPECT_FALSE(alarm.absoluteDate());
    alarm.setAbsoluteDate(at("2026-05-16T08:00:00"));
    EXPECT_EQ(alarm.relativeOffset(), 0);

    EXPECT_EQ(failure(store, made), std::nullopt);
    EXPECT_EQ(saved().alarms.at(0).moment, moment(at("2026-05-16T08:00:00")));
    EXPECT_EQ(saved().alarms.at(1), (phone::CalendarAlarm{std::nullopt, 0}));
}

// Holds: alarms-may-be-cut
TEST_F(EventTest, OfMoreAlarmsThanTheCalendarTakesTheFirstAreKeptWithoutAWord) {
    useEvents(Access::Allow, {{.title = "Work", .isDefault = true, .mostAlarms = 1}});
    const auto store = this->store();
    const auto made = event(store);
    made.setAlarms(NSArray::of(EKAlarm::withRelativeOffset(-60), EKAlarm::withRelativeOffset(-120)));

    EXPECT_EQ(failure(store, made), std::nullopt);

    EXPECT_EQ(saved().alarms, (std::vector<phone::CalendarAlarm>{{std::nullopt, -60}}));
    EXPECT_EQ(made.alarms().count(), 1u);
}

// Holds: store-internal-failure
TEST_F(EventTest, ACalendarThatIsGoneFailsWithAnInternalFailure) {
    const auto store = eventStore();
    const auto made = event(store);
    remove("/var/mobile/Library/Calendar/events");
    calendarFolder(EntityType::Event).setAccess(Access::Allow);

    EXPECT_EQ(failure(store, made), 5);
}

TEST_F(EventTest, EveryMessageIsLoggedWithItsArguments) {
    const auto store = eventStore();
    const auto made = event(store);
    made.setAllDay(true);
    made.setLocation("Shop"_ns);
    made.setAlarms(NSArray::of(EKAlarm::withRelativeOffset(0)));
    const auto end = EKRecurrenceEnd::withEndDate(at("2026-06-16T09:15:00"));
    made.addRecurrenceRule(EKRecurrenceRule::with(EKRecurrenceFrequency::Weekly, 2, end));
    store.saveEvent(made, EKSpan::FutureEvents, true);

    const auto entries = log("store");
    const std::vector<std::string> expected = {"EKEventStore init",
                                               "EKEvent eventWithEventStore:",
                                               "EKEventStore defaultCalendarForNewEvents",
                                               "EKEvent setCalendar:",
                                               "EKEvent setTitle:",
                                               "EKEvent setStartDate:",
                                               "EKEvent setEndDate:",
                                               "EKEvent setAllDay:",
                                               "EKEvent setLocation:",
                                               "EKAlarm alarmWithRelativeOffset:",
                                               "EKEvent setAlarms:",
                                               "EKRecurrenceEnd recurrenceEndWithEndDate:",
                                               "EKRecurrenceRule initRecurrenceWithFrequency:interval:end:",
                                               "EKEvent addRecurrenceRule:",
                                               "EKEventStore saveEvent:span:commit:error:"};
    EXPECT_EQ(messages(entries), expected);
    EXPECT_EQ(entries[5]["arguments"].dump(), R"(["2026-05-16T09:15:00Z"])");
    EXPECT_EQ(entries[7]["arguments"].dump(), R"(["true"])");
    EXPECT_EQ(entries[12]["arguments"].dump(), R"(["1","2","EKRecurrenceEnd"])");
    EXPECT_EQ(entries[14]["arguments"].dump(), R"(["EKEvent","1","true"])");
}
