/// An event written and saved: the fixture of the tests on what stands in the calendar afterwards.
#pragma once

#include "phone/flow/LocalTime.h"
#include "tests/quorvan/EventTest.h"

#include <algorithm>

/// One event as a line that can be read.
struct SavedEvent {
    std::string calendar;
    std::string title;
    std::string location;
    std::string start; // with its zone; only the day of an event of whole days
    std::string end;
    std::string repeats; // "" or "FREQUENCY INTERVAL", with " until MOMENT"

    friend bool operator==(const SavedEvent&, const SavedEvent&) = default;
    friend std::ostream& operator<<(std::ostream& out, const SavedEvent& event) {
        return out << event.calendar << " | " << event.title << " | " << event.location << " | " << event.start << " | "
                   << event.end << " | " << event.repeats;
    }
};

class EventSavingTest : public EventTest {
protected:
    EventSavingTest() {
        useEvents(phone::Access::Allow);
        useReminders(phone::Access::Allow);
    }
    void startTyped(const std::string& description = "Lunch") {
        startEvent();
        describe(description);
    }
    void startTypedAt(const std::string& localTime, const std::string& zone) {
        _zone = zone;
        startEventAt(localTime, zone);
        describe("Lunch");
    }
    void openTyped(const std::string& description = "Lunch") {
        openAnother();
        describe(description);
    }
    void describe(const std::string& text) { typeInto(0, text); }
    void locate(const std::string& text) { typeInto(1, text); }

    /// The calendar chooser shows a calendar from its second opening on.
    void chooseCalendar(const std::string& title) {
        touchAndWait("Calendar");
        goBack();
        touchAndWait("Calendar");
        touchAndWait(title);
        goBack();
    }
    void chooseDates(const std::string& start, const std::string& end, bool turnAllDay = false) {
        touchAndWait("Date");
        if (turnAllDay) {
            toggle("All-day");
        }
        for (const auto& [row, time] : {std::pair{"Start", start}, {"End", end}}) {
            if (!time.empty()) {
                touchAndWait(row);
                pickDate(time);
                goBack();
            }
        }
        goBack();
    }
    void chooseInterval(const std::string& text) {
        const std::string row = ".//*[starts-with(@row, '1,')][.//UILabel[@text='" + text + "']]";
        touchAndWait("Repeat");
        if (!shown().select_node(row.c_str())) {
            touch(phone::Screen::Phase::Began, 160, 400);
            touch(phone::Screen::Phase::Moved, 160, 300);
            touch(phone::Screen::Phase::Moved, 160, 230);
            touch(phone::Screen::Phase::Ended, 160, 230);
            settle();
        }
        touchAndWait(shown().select_node(row.c_str()).node());
        goBack();
    }
    /// "" for never.
    void chooseRepeatEnd(const std::string& day) {
        touchAndWait("Repeat");
        touchAndWait("End Date");
        if (day.empty()) {
            toggle("Never");
        } else {
            pickDate(day);
        }
        goBack();
        goBack();
    }
    /// A reminder from the call screen on; "" leaves its alarm alone, "off" refuses one.
    void writeReminder(const std::string& alarm) {
        openSheet();
        openReminder();
        typeNote("milk");
        if (!alarm.empty()) {
            touchAndWait("Remind me");
            if (alarm == "off") {
                toggle("Remind Me");
            } else {
                pickDate(alarm);
            }
            goBack();
        }
        done();
    }

    std::vector<SavedEvent> all() {
        std::vector<SavedEvent> found;
        for (const auto& [calendar, item] : events()) {
            found.push_back({calendar, item.title, item.location.value_or(""), text(item.start), text(item.end),
                             text(item.recurrence)});
        }
        return found;
    }
    /// The event saved last.
    SavedEvent saved() { return events().empty() ? SavedEvent() : all().back(); }
    bool isBackOnTheCallScreen() { return !shown() && isVisible("mute"); }
    /// The messages of the last saving, from the making of its store on.
    std::vector<std::string> savingMessages() {
        const auto sent = logged("store", "message");
        const auto made = std::find(sent.rbegin(), sent.rend(), "init");
        return {made.base() - 1, sent.end()};
    }

private:
    void typeInto(int index, const std::string& text) {
        touchAndWait(field(index));
        type(text);
        key("enter");
        settle();
    }
    std::string text(const std::optional<phone::CalendarDate>& date) {
        if (!date) {
            return "";
        }
        const std::string moment = phone::iso8601(phone::momentOf(*date, _zone), _zone);
        return date->isDay ? moment.substr(0, 10) : moment;
    }
    std::string text(const std::optional<phone::Recurrence>& repeats) {
        if (!repeats) {
            return "";
        }
        constexpr const char* names[] = {"daily", "weekly", "monthly", "yearly"};
        return names[static_cast<int>(repeats->frequency)] + (" " + std::to_string(repeats->interval)) +
               (repeats->until ? " until " + text(repeats->until) : "");
    }

    std::string _zone = "UTC";
};
