#include "tests/eventkit/StoreTest.h"

using phone::Access;
using phone::CalendarDate;
using phone::Frequency;
using phone::Recurrence;

namespace {

constexpr double hour = 3600;
constexpr double day = 24 * hour;

class RecurrenceTest : public StoreTest {
protected:
    RecurrenceTest() { useEvents(Access::Allow); }

    static NSDate at(double unixTime) { return NSDate::withSinceReferenceDate(unixTime - 978307200); }
    /// From 16 May 2026, 09:15 UTC, and so long.
    static EKEvent event(const EKEventStore& store, double length = hour) {
        const auto made = EKEvent::withEventStore(store);
        made.setCalendar(store.defaultCalendarForNewEvents());
        made.setStartDate(at(start));
        made.setEndDate(at(start + length));
        return made;
    }
    static EKRecurrenceRule rule(EKRecurrenceFrequency frequency, long interval = 1) {
        return EKRecurrenceRule::with(frequency, interval, nullptr);
    }
    /// The code with which saving an event of this length fails; 0 when it does not.
    static long failureOf(const EKEventStore& store, double length, const EKRecurrenceRule& rule) {
        const auto made = event(store, length);
        made.addRecurrenceRule(rule);
        return failure(store, made).value_or(0);
    }
    std::optional<Recurrence> saved() const { return events().back().item.recurrence; }

    static constexpr double start = 1778922900;
};

} // namespace

// Trap: recurrence-without-a-number
// Holds: recurrence-numbers
TEST_F(RecurrenceTest, EachFrequencyIsSavedWithItsInterval) {
    const auto store = this->store();
    for (const long number : {0, 1, 2, 3}) {
        const auto made = event(store);
        made.addRecurrenceRule(rule(static_cast<EKRecurrenceFrequency>(number), number + 1));
        EXPECT_EQ(failure(store, made), std::nullopt);
        EXPECT_EQ(saved(), (Recurrence{static_cast<Frequency>(number), number + 1, std::nullopt, 0}));
    }

    EXPECT_EQ(raised([&] { rule(EKRecurrenceFrequency::Daily, 0); }), invalidArgument);
    EXPECT_EQ(raised([&] { EKRecurrenceEnd::withEndDate(nullptr); }), invalidArgument);
    EXPECT_EQ(raised([&] { EKRecurrenceEnd::withOccurrenceCount(0); }), invalidArgument);
}

TEST_F(RecurrenceTest, AnIntervalBelowZeroOrAFrequencyThatIsNoneRaises) {
    boot();

    EXPECT_EQ(raised([&] { rule(EKRecurrenceFrequency::Daily, -1); }), invalidArgument);
    EXPECT_EQ(raised([&] { rule(static_cast<EKRecurrenceFrequency>(4)); }), invalidArgument);
}

TEST_F(RecurrenceTest, ARuleKeepsWhatItWasMadeWith) {
    boot();
    const auto end = EKRecurrenceEnd::withEndDate(at(start));
    const auto made = EKRecurrenceRule::with(EKRecurrenceFrequency::Monthly, 3, end);

    EXPECT_EQ(made.frequency(), EKRecurrenceFrequency::Monthly);
    EXPECT_EQ(made.interval(), 3);
    EXPECT_EQ(made.recurrenceEnd(), end);
    EXPECT_EQ(end.occurrenceCount(), 0u);
    EXPECT_FALSE(EKRecurrenceEnd::withOccurrenceCount(5).endDate());
    EXPECT_FALSE(rule(EKRecurrenceFrequency::Daily).recurrenceEnd());
}

TEST_F(RecurrenceTest, TheEndIsSavedAsItWasGiven) {
    useZone("Europe/Berlin");
    const auto store = this->store();
    const auto ended = event(store);
    ended.addRecurrenceRule(
        EKRecurrenceRule::with(EKRecurrenceFrequency::Daily, 1, EKRecurrenceEnd::withEndDate(at(start + 5 * day + 7))));
    store.saveEvent(ended, EKSpan::FutureEvents, true);
    EXPECT_EQ(phone::momentOf(*saved()->until, "UTC"), start + 5 * day + 7);

    const auto counted = event(store);
    counted.addRecurrenceRule(
        EKRecurrenceRule::with(EKRecurrenceFrequency::Daily, 1, EKRecurrenceEnd::withOccurrenceCount(5)));
    store.saveEvent(counted, EKSpan::FutureEvents, true);
    EXPECT_EQ(saved(), (Recurrence{Frequency::Daily, 1, std::nullopt, 5}));
}

TEST_F(RecurrenceTest, TheEndOfAnAllDayEventKeepsItsTime) {
    useZone("Europe/Berlin");
    const auto store = this->store();
    const auto made = event(store);
    made.setAllDay(true);
    made.addRecurrenceRule(
        EKRecurrenceRule::with(EKRecurrenceFrequency::Daily, 1, EKRecurrenceEnd::withEndDate(at(start + 5 * day))));

    store.saveEvent(made, EKSpan::FutureEvents, true);

    EXPECT_EQ(saved()->until, (CalendarDate{2026, 5, 21, 11, 15, 0, false, "Europe/Berlin"}));
}

// Holds: recurrence-limits
TEST_F(RecurrenceTest, AnEventLongerThanTheTimeToItsNextOccurrenceFails) {
    const auto store = this->store();

    EXPECT_EQ(failureOf(store, day, rule(EKRecurrenceFrequency::Daily)), 0);
    EXPECT_EQ(failureOf(store, day + 1, rule(EKRecurrenceFrequency::Daily)), 7);
    EXPECT_EQ(failureOf(store, day + 1, rule(EKRecurrenceFrequency::Daily, 2)), 0);
    EXPECT_EQ(failureOf(store, 7 * day + 1, rule(EKRecurrenceFrequency::Weekly)), 7);
    EXPECT_EQ(failureOf(store, 28 * day, rule(EKRecurrenceFrequency::Monthly)), 0);
    EXPECT_EQ(failureOf(store, 28 * day + 1, rule(EKRecurrenceFrequency::Monthly)), 7);
    EXPECT_EQ(failureOf(store, 59 * day, rule(EKRecurrenceFrequency::Monthly, 2)), 0);
    EXPECT_EQ(failureOf(store, 59 * day + 1, rule(EKRecurrenceFrequency::Monthly, 2)), 7);
    EXPECT_EQ(failureOf(store, 365 * day + 1, rule(EKRecurrenceFrequency::Monthly, 12)), 7);
    EXPECT_EQ(failureOf(store, 365 * day + 1, rule(EKRecurrenceFrequency::Yearly)), 7);
}

TEST_F(RecurrenceTest, WholeDaysCountWhole) {
    const auto store = this->store();
    const auto made = event(store);
    made.setAllDay(true);
    made.addRecurrenceRule(rule(EKRecurrenceFrequency::Daily));
    EXPECT_EQ(failure(store, made), std::nullopt);

    made.setEndDate(at(start + day));
    EXPECT_EQ(failure(store, made), 7);
}

TEST_F(RecurrenceTest, ADayIsADayWhenSummerTimeEnds) {
    useZone("Europe/Berlin");
    const auto store = this->store();
    const auto made = event(store);
    made.setStartDate(at(1792875600));           // 24 October, 23:00
    made.setEndDate(at(1792875600 + 25 * hour)); // the next day, 23:00
    made.addRecurrenceRule(rule(EKRecurrenceFrequency::Daily));

    EXPECT_EQ(failure(store, made), std::nullopt);
}

// Holds: recurrence-limits
TEST_F(RecurrenceTest, AnAlarmFurtherAwayThanTheNextOccurrenceFails) {
    const auto store = this->store();
    const auto made = event(store);
    made.addRecurrenceRule(rule(EKRecurrenceFrequency::Daily));
    made.addAlarm(EKAlarm::withRelativeOffset(-day));
    EXPECT_EQ(failure(store, made), std::nullopt);

    made.addAlarm(EKAlarm::withRelativeOffset(-day - 1));
    EXPECT_EQ(failure(store, made), 8);
}

TEST_F(RecurrenceTest, EventsTakeRulesOnlyAndKeepOne) {
    const auto store = this->store();
    const auto made = event(store);

    EXPECT_EQ(raised([&] { made.addRecurrenceRule(nullptr); }), invalidArgument);
    EXPECT_EQ(raised([&] { made.setRecurrenceRules(NSArray::of("daily"_ns)); }), invalidArgument);
    EXPECT_FALSE(made.recurrenceRules());

    made.addRecurrenceRule(rule(EKRecurrenceFrequency::Weekly));
    made.addRecurrenceRule(rule(EKRecurrenceFrequency::Daily));
    EXPECT_EQ(made.recurrenceRules().count(), 2u);
    store.saveEvent(made, EKSpan::FutureEvents, true);
    EXPECT_EQ(saved()->frequency, Frequency::Weekly);
}

TEST_F(RecurrenceTest, TakingTheRuleAwayEndsTheRepetition) {
    const auto store = this->store();
    const auto made = event(store);
    made.addRecurrenceRule(rule(EKRecurrenceFrequency::Weekly));
    store.saveEvent(made, EKSpan::FutureEvents, true);

    made.setRecurrenceRules(nullptr);
    EXPECT_EQ(failure(store, made), std::nullopt);

    EXPECT_EQ(saved(), std::nullopt);
}
