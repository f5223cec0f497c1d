#include "tests/flow/Khal.h"

using namespace phone;

namespace {

using Lines = std::vector<std::string>;

class KhalTest : public testing::Test {
protected:
    KhalTest() : calendars(folder.path("root"), EntityType::Event) {
        calendars.create(Access::Allow, {{"Home", true}, {"Work"}});
    }
    void write(EventItem event, std::size_t calendar = 0) {
        event.id = newIdentifier();
        event.created = event.modified = 1772721432;
        event.alarms = {{std::nullopt, 0}};
        calendars.write(calendars.calendars()[calendar].id, event);
    }
    Lines list(const std::string& format, const std::string& from, const std::string& to) const {
        return Khal(folder, folder.path("root")).list(format, from, to);
    }
    /// The days on which an event of 31 January 2026, 09:15 in Berlin, comes again.
    Lines daysOf(const Recurrence& recurrence, const std::string& to, bool isAllDay = false) {
        EventItem event;
        event.title = "Again";
        event.start = CalendarDate{2026, 1, 31, 9, 15, 0, false, "Europe/Berlin"};
        event.end = CalendarDate{2026, 1, 31, 10, 15, 0, false, "Europe/Berlin"};
        if (isAllDay) {
            event.start = event.end = CalendarDate{2026, 1, 31, 0, 0, 0, true, ""};
        }
        event.recurrence = recurrence;
        write(event);
        return list("{start-date} {start-time}", "2026-01-01", to);
    }
    static CalendarDate at(int year, int month, int day, int hour, int minute) {
        return {year, month, day, hour, minute, 0, false, "Europe/Berlin"};
    }

    TemporaryFolder folder;
    CalendarFolder calendars;
};

} // namespace

TEST_F(KhalTest, ReadsTitleTimesLocationAndCalendar) {
    EventItem event;
    event.title = "Lunch; with A, ü";
    event.location = "Shop, 1st floor";
    event.start = at(2026, 5, 16, 9, 15);
    event.end = at(2026, 5, 16, 10, 45);
    write(event, 1);

    EXPECT_EQ(list("{calendar}|{title}|{location}|{start}|{end}", "2026-05-01", "2026-05-31"),
              (Lines{"Work|Lunch; with A, ü|Shop, 1st floor|2026-05-16 09:15|2026-05-16 10:45"}));
}

TEST_F(KhalTest, ReadsTimesOfOtherZonesAndOverMidnight) {
    EventItem event;
    event.title = "Far";
    event.start = CalendarDate{2026, 5, 16, 17, 40, 0, false, "America/New_York"};
    event.end = CalendarDate{2026, 5, 16, 18, 40, 0, false, "America/New_York"};
    write(event);

    EXPECT_EQ(list("{start}|{end}", "2026-05-01", "2026-05-31"), (Lines{"2026-05-16 23:40|2026-05-17 00:40"}));
}

TEST_F(KhalTest, ReadsWholeDays) {
    EventItem event;
    event.title = "Away";
    event.start = CalendarDate{2026, 5, 30, 0, 0, 0, true, ""};
    event.end = CalendarDate{2026, 6, 1, 0, 0, 0, true, ""};
    write(event);

    EXPECT_EQ(list("{title}|{start}|{end}|{start-time}", "2026-05-30", "2026-06-10"),
              (Lines{"Away|2026-05-30|2026-06-01|"}));
}

TEST_F(KhalTest, ReadsTheDaysOfEachRepetitionWithoutAnEnd) {
    const auto days = [&](Frequency frequency, long interval, const std::string& to) {
        for (const EventRow& row : calendars.events()) {
            calendars.remove(calendars.calendars()[0].id, row.item.id);
        }
        return daysOf({frequency, interval, std::nullopt, 0}, to);
    };

    EXPECT_EQ(days(Frequency::Daily, 1, "2026-02-02"),
              (Lines{"2026-01-31 09:15", "2026-02-01 09:15", "2026-02-02 09:15"}));
    EXPECT_EQ(days(Frequency::Weekly, 1, "2026-02-20"),
              (Lines{"2026-01-31 09:15", "2026-02-07 09:15", "2026-02-14 09:15"}));
    EXPECT_EQ(days(Frequency::Weekly, 2, "2026-04-12"),
              (Lines{"2026-01-31 09:15", "2026-02-14 09:15", "2026-02-28 09:15", "2026-03-14 09:15", "2026-03-28 09:15",
                     "2026-04-11 09:15"})); // at the same time across the change to summer time
    EXPECT_EQ(days(Frequency::Monthly, 1, "2026-06-01"),
              (Lines{"2026-01-31 09:15", "2026-03-31 09:15", "2026-05-31 09:15"}));
    EXPECT_EQ(days(Frequency::Yearly, 1, "2028-03-01"),
              (Lines{"2026-01-31 09:15", "2027-01-31 09:15", "2028-01-31 09:15"}));
}

TEST_F(KhalTest, ARepetitionEndsWithTheLastOccurrenceThatIsNotAfterItsEnd) {
    EXPECT_EQ(daysOf({Frequency::Weekly, 2, at(2026, 2, 28, 9, 15), 0}, "2027-01-01"),
              (Lines{"2026-01-31 09:15", "2026-02-14 09:15", "2026-02-28 09:15"}));
}

TEST_F(KhalTest, ReadsTheDaysOfEachRepetitionWithAnEnd) {
    const auto days = [&](Frequency frequency, const CalendarDate& end) {
        for (const EventRow& row : calendars.events()) {
            calendars.remove(calendars.calendars()[0].id, row.item.id);
        }
        return daysOf({frequency, 1, end, 0}, "2040-01-01");
    };

    EXPECT_EQ(days(Frequency::Daily, at(2026, 2, 2, 9, 15)),
              (Lines{"2026-01-31 09:15", "2026-02-01 09:15", "2026-02-02 09:15"}));
    EXPECT_EQ(days(Frequency::Weekly, at(2026, 2, 14, 9, 15)),
              (Lines{"2026-01-31 09:15", "2026-02-07 09:15", "2026-02-14 09:15"}));
    EXPECT_EQ(days(Frequency::Monthly, at(2026, 5, 31, 9, 15)),
              (Lines{"2026-01-31 09:15", "2026-03-31 09:15", "2026-05-31 09:15"}));
    EXPECT_EQ(days(Frequency::Yearly, at(2028, 1, 31, 9, 15)),
              (Lines{"2026-01-31 09:15", "2027-01-31 09:15", "2028-01-31 09:15"}));
}

TEST_F(KhalTest, ARepetitionThatEndsOnAnOccurrencesDayButBeforeItLeavesItOut) {
    EXPECT_EQ(daysOf({Frequency::Weekly, 2, at(2026, 2, 28, 9, 14), 0}, "2027-01-01"),
              (Lines{"2026-01-31 09:15", "2026-02-14 09:15"}));
}

TEST_F(KhalTest, WholeDaysRepeatUntilTheDayOfTheEnd) {
    EXPECT_EQ(daysOf({Frequency::Daily, 1, at(2026, 2, 2, 0, 30), 0}, "2027-01-01", true),
              (Lines{"2026-01-31 ", "2026-02-01 ", "2026-02-02 "}));
}
