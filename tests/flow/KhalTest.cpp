#include "phone/eventkit/CalendarFolder.h"
#include "tests/flow/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace phone;

namespace {

using Lines = std::vector<std::string>;

/// khal is a calendar program that people use; it knows nothing of the phone.
class KhalTest : public testing::Test {
protected:
    KhalTest() : calendars(folder.path("root"), EntityType::Event) {
        calendars.create(Access::Allow, {{"Home", true}, {"Work"}});
        std::string places;
        for (const CalendarRow& row : calendars.calendars()) {
            places += "[[" + row.title + "]]\npath = " + folder.path("root") + CalendarFolder::devicePath + "/events/" +
                      row.id + "\n";
        }
        folder.write("khal.conf", "[calendars]\n" + places + "[sqlite]\npath = " + folder.path("khal.db") +
                                      "\n[locale]\nlocal_timezone = Europe/Berlin\n"
                                      "default_timezone = Europe/Berlin\ntimeformat = %H:%M\n"
                                      "dateformat = %Y-%m-%d\nlongdateformat = %Y-%m-%d\n"
                                      "datetimeformat = %Y-%m-%d %H:%M\nlongdatetimeformat = %Y-%m-%d %H:%M\n");
    }
    void write(EventItem event, std::size_t calendar = 0) {
        event.id = newIdentifier();
        event.created = event.modified = 1772721432;
        event.alarms = {{std::nullopt, 0}};
        calendars.write(calendars.calendars()[calendar].id, event);
    }
    /// What khal shows from the first day to the second, one line an occurrence.
    Lines list(const std::string& format, const std::string& from, const std::string& to) {
        const std::string command = "HOME=" + folder.path() + " XDG_DATA_HOME=" + folder.path("data") +
                                    " XDG_CACHE_HOME=" + folder.path("cache") + " LC_ALL=C.UTF-8 khal -c " +
                                    folder.path("khal.conf") + " list --day-format '' --format '" + format + "' " +
                                    from + " " + to + " > " + folder.path("shown") + " 2> " + folder.path("complaints");
        EXPECT_EQ(std::system(command.c_str()), 0) << folder.read("complaints");
        EXPECT_EQ(folder.read("complaints"), "");
        std::istringstream shown(folder.read("shown"));
        Lines lines;
        for (std::string line; std::getline(shown, line);) {
            if (!line.empty() && (lines.empty() || lines.back() != line)) { // it shows an event on each of its days
                lines.push_back(line);
            }
        }
        return lines;
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
