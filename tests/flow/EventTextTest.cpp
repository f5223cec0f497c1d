#include "phone/eventkit/EventText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace phone;
using testing::HasSubstr;
using testing::Not;

namespace {

constexpr const char* berlin = "Europe/Berlin";

EventItem event(const CalendarDate& start, const CalendarDate& end) {
    EventItem made;
    made.id = "1";
    made.title = "Lunch";
    made.start = start;
    made.end = end;
    return made;
}

EventItem lunch(const std::string& zone = berlin) {
    return event({2026, 5, 16, 9, 15, 0, false, zone}, {2026, 5, 16, 10, 15, 0, false, zone});
}

EventItem days() { return event({2026, 5, 16, 0, 0, 0, true, ""}, {2026, 5, 18, 0, 0, 0, true, ""}); }

EventItem readBack(const EventItem& event) {
    const auto read = eventFrom(textOf(event));
    EXPECT_TRUE(read);
    return read.value_or(EventItem());
}

/// As another program might write it.
std::optional<EventItem> theirs(const std::string& lines) {
    return eventFrom("BEGIN:VCALENDAR\r\nVERSION:2.0\r\nBEGIN:VEVENT\r\nUID:7\r\n" + lines +
                     "END:VEVENT\r\nEND:VCALENDAR\r\n");
}

} // namespace

TEST(EventText, KeepsTimesWithTheirZone) {
    for (const std::string zone : {"Europe/Berlin", "America/New_York", "UTC", ""}) {
        const EventItem read = readBack(lunch(zone));

        EXPECT_EQ(read.start, lunch(zone).start);
        EXPECT_EQ(read.end, lunch(zone).end);
    }
    EXPECT_THAT(textOf(lunch()), HasSubstr("DTSTART;TZID=Europe/Berlin:20260516T091500"));
    EXPECT_THAT(textOf(lunch()), HasSubstr("BEGIN:VTIMEZONE"));
    EXPECT_THAT(textOf(lunch("UTC")), HasSubstr("DTSTART:20260516T091500Z"));
}

TEST(EventText, WritesTheDayAfterTheLastOfWholeDays) {
    const EventItem read = readBack(days());

    EXPECT_EQ(read.start, days().start);
    EXPECT_EQ(read.end, days().end);
    EXPECT_THAT(textOf(days()), HasSubstr("DTSTART;VALUE=DATE:20260516"));
    EXPECT_THAT(textOf(days()), HasSubstr("DTEND;VALUE=DATE:20260519"));
}

TEST(EventText, AnEventWithoutLengthHasNoEndThere) {
    EventItem moment = lunch();
    moment.end = moment.start;

    EXPECT_THAT(textOf(moment), Not(HasSubstr("DTEND")));
    EXPECT_EQ(readBack(moment).end, moment.start);
}

TEST(EventText, KeepsTextsAndAlarms) {
    EventItem full = lunch();
    full.title = "a\\n;b, \"c\" \nü";
    full.location = "  Shop, 1st ";
    full.notes = "two\nlines";
    full.alarms = {{std::nullopt, 0}, {std::nullopt, -900}, {1772721432.0, 0}};

    const EventItem read = readBack(full);

    EXPECT_EQ(read.title, full.title);
    EXPECT_EQ(read.location, full.location);
    EXPECT_EQ(read.notes, full.notes);
    EXPECT_EQ(read.alarms, full.alarms);
}

TEST(EventText, AnEmptyLocationIsNone) {
    EventItem event = lunch();
    EXPECT_EQ(readBack(event).location, std::nullopt);

    event.location = "";
    EXPECT_EQ(readBack(event).location, std::nullopt);
    EXPECT_THAT(textOf(event), Not(HasSubstr("\nLOCATION")));
}

TEST(EventText, KeepsHowItRepeats) {
    for (const Frequency frequency : {Frequency::Daily, Frequency::Weekly, Frequency::Monthly, Frequency::Yearly}) {
        for (const long interval : {1L, 2L, 10L}) {
            EventItem repeated = lunch();
            repeated.recurrence = Recurrence{frequency, interval, std::nullopt, 0};
            EXPECT_EQ(readBack(repeated).recurrence, repeated.recurrence);
            repeated.recurrence->count = 7;
            EXPECT_EQ(readBack(repeated).recurrence, repeated.recurrence);
        }
    }
    EXPECT_EQ(readBack(lunch()).recurrence, std::nullopt);
}

TEST(EventText, ARepetitionEndsAtItsMoment) {
    EventItem repeated = lunch();
    repeated.recurrence = Recurrence{Frequency::Weekly, 2, CalendarDate{2026, 6, 16, 14, 37, 12, false, berlin}, 0};

    EXPECT_THAT(textOf(repeated), HasSubstr("RRULE:FREQ=WEEKLY;UNTIL=20260616T123712Z;INTERVAL=2"));
    EXPECT_EQ(momentOf(*readBack(repeated).recurrence->until, "UTC"), 1781613432);
}

TEST(EventText, ARepetitionOfWholeDaysEndsOnADayAndKeepsTheMoment) {
    EventItem repeated = days();
    repeated.recurrence = Recurrence{Frequency::Daily, 3, CalendarDate{2026, 6, 16, 0, 37, 12, false, berlin}, 0};
    const std::string text = textOf(repeated);

    EXPECT_THAT(text, HasSubstr("UNTIL=20260616;"));
    EXPECT_EQ(readBack(repeated).recurrence, repeated.recurrence);

    // Another program has moved the end since.
    std::string moved = text;
    moved.replace(moved.find("UNTIL=20260616"), 14, "UNTIL=20260617");
    EXPECT_EQ(eventFrom(moved)->recurrence->until, (CalendarDate{2026, 6, 17, 0, 0, 0, true, ""}));
}

TEST(EventText, UnderstandsWhatOtherProgramsWrite) {
    const auto withDuration = theirs("DTSTART;TZID=Europe/Berlin:20260516T091500\r\nDURATION:PT90M\r\n");
    EXPECT_EQ(withDuration->end, (CalendarDate{2026, 5, 16, 10, 45, 0, false, berlin}));

    const auto local = theirs("DTSTART:20260516T233000\r\nDURATION:PT1H\r\n");
    EXPECT_EQ(local->end, (CalendarDate{2026, 5, 17, 0, 30, 0, false, ""}));

    const auto twoDays = theirs("DTSTART;VALUE=DATE:20260516\r\nDURATION:P2D\r\n");
    EXPECT_EQ(twoDays->end, (CalendarDate{2026, 5, 17, 0, 0, 0, true, ""}));

    const auto oneDay = theirs("DTSTART;VALUE=DATE:20260516\r\n");
    EXPECT_EQ(oneDay->end, oneDay->start);
    const auto sameDay = theirs("DTSTART;VALUE=DATE:20260516\r\nDTEND;VALUE=DATE:20260516\r\n");
    EXPECT_EQ(sameDay->end, sameDay->start);

    const auto odd = theirs("DTSTART:garbage\r\nSUMMARY:Odd\r\nRRULE:FREQ=HOURLY\r\n");
    ASSERT_TRUE(odd);
    EXPECT_EQ(odd->title, "Odd");
    EXPECT_FALSE(odd->start);
    EXPECT_FALSE(odd->recurrence);
}

TEST(EventText, TheEventItselfComesBeforeItsChangedOccurrences) {
    const auto read = eventFrom("BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nUID:7\r\nRECURRENCE-ID:20260517T091500\r\n"
                                "SUMMARY:Changed\r\nEND:VEVENT\r\nBEGIN:VEVENT\r\nUID:7\r\nSUMMARY:All\r\n"
                                "END:VEVENT\r\nEND:VCALENDAR\r\n");

    ASSERT_TRUE(read);
    EXPECT_EQ(read->title, "All");
}

TEST(EventText, IsNoneWhereThereIsNoEvent) {
    EXPECT_FALSE(eventFrom(""));
    EXPECT_FALSE(eventFrom("BEGIN:VCAL"));
    EXPECT_FALSE(eventFrom("BEGIN:VCALENDAR\r\nBEGIN:VTODO\r\nUID:1\r\nEND:VTODO\r\nEND:VCALENDAR\r\n"));
}
