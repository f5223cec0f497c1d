#include "phone/flow/Records.h"

#include "phone/eventkit/CalendarFolder.h"
#include "phone/flow/InputError.h"
#include "phone/flow/LocalTime.h"
#include "phone/notes/NotesDatabase.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <vector>

namespace phone {

using nlohmann::ordered_json;

namespace {

/// The Notes store counts from the start of 2001.
constexpr double epoch2001 = 978307200;
constexpr std::size_t widestColumn = 40; // characters

template <class T>
ordered_json orNull(const std::optional<T>& value) {
    return value ? ordered_json(*value) : ordered_json();
}

ordered_json date(const std::optional<double>& since2001, const std::string& zone) {
    return since2001 ? ordered_json(iso8601(*since2001 + epoch2001, zone)) : ordered_json();
}

ordered_json notes(const std::string& root, const std::string& zone) {
    ordered_json all = ordered_json::array();
    const std::string path = root + NotesDatabase::devicePath;
    if (!std::filesystem::exists(path)) {
        return all;
    }
    try {
        for (const NoteRow& note : NotesDatabase(path).notes()) {
            all.push_back({{"store", note.store},
                           {"title", orNull(note.title)},
                           {"summary", orNull(note.summary)},
                           {"content", orNull(note.content)},
                           {"body", orNull(note.content)},
                           {"plainText", note.isPlainText},
                           {"id", note.integerId},
                           {"created", date(note.created, zone)},
                           {"modified", date(note.modified, zone)}});
        }
    } catch (const NotesDatabaseError& error) {
        throw InputError(error.what());
    }
    return all;
}

ordered_json date(const std::optional<CalendarDate>& fields, const std::string& zone) {
    return fields ? ordered_json(iso8601(momentOf(*fields, zone), zone)) : ordered_json();
}

/// The moments; an alarm that counts from a start that is missing has none.
ordered_json alarmDates(const ReminderItem& reminder, const std::string& zone) {
    ordered_json all = ordered_json::array();
    for (const CalendarAlarm& alarm : reminder.alarms) {
        if (alarm.moment) {
            all.push_back(iso8601(*alarm.moment, zone));
        } else if (reminder.start) {
            all.push_back(iso8601(momentOf(*reminder.start, zone) + alarm.offset, zone));
        }
    }
    return all;
}

ordered_json reminders(const std::string& root, const std::string& zone) {
    ordered_json all = ordered_json::array();
    for (const ReminderRow& row : CalendarFolder(root, EntityType::Reminder).reminders()) {
        const ReminderItem& reminder = row.item;
        all.push_back({{"list", row.list},
                       {"title", reminder.title},
                       {"priority", reminder.priority},
                       {"start", date(reminder.start, zone)},
                       {"due", date(reminder.due, zone)},
                       {"alarms", alarmDates(reminder, zone)}});
    }
    return all;
}

/// Whole days stand as days.
ordered_json eventDate(const std::optional<CalendarDate>& fields, const std::string& zone) {
    if (!fields || !fields->isDay) {
        return date(fields, zone);
    }
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", fields->year, fields->month, fields->day);
    return text.data();
}

/// In seconds from the start; an alarm at a moment has no such distance where the start is missing.
ordered_json alarmOffsets(const EventItem& event, const std::string& zone) {
    ordered_json all = ordered_json::array();
    for (const CalendarAlarm& alarm : event.alarms) {
        if (!alarm.moment) {
            all.push_back(static_cast<long>(alarm.offset));
        } else if (event.start) {
            all.push_back(static_cast<long>(*alarm.moment - momentOf(*event.start, zone)));
        }
    }
    return all;
}

const char* name(Frequency frequency) {
    switch (frequency) {
    case Frequency::Daily:
        return "daily";
    case Frequency::Weekly:
        return "weekly";
    case Frequency::Monthly:
        return "monthly";
    case Frequency::Yearly:
        return "yearly";
    }
}

ordered_json recurrence(const std::optional<Recurrence>& given, const std::string& zone) {
    if (!given) {
        return nullptr;
    }
    return {{"frequency", name(given->frequency)}, {"interval", given->interval}, {"until", date(given->until, zone)}};
}

ordered_json events(const std::string& root, const std::string& zone) {
    ordered_json all = ordered_json::array();
    for (const EventRow& row : CalendarFolder(root, EntityType::Event).events()) {
        const EventItem& event = row.item;
        all.push_back({{"calendar", row.calendar},
                       {"title", event.title},
                       {"location", orNull(event.location)},
                       {"start", eventDate(event.start, zone)},
                       {"end", eventDate(event.end, zone)},
                       {"allDay", event.isAllDay()},
                       {"alarms", alarmOffsets(event, zone)},
                       {"recurrence", recurrence(event.recurrence, zone)}});
    }
    return all;
}

/// "weekly", "every 2 weeks"; "" for none.
std::string repeats(const ordered_json& recurrence) {
    if (recurrence.is_null()) {
        return "";
    }
    const long interval = recurrence["interval"];
    const std::string frequency = recurrence["frequency"];
    if (interval == 1) {
        return frequency;
    }
    const std::string unit = frequency == "daily" ? "day" : frequency.substr(0, frequency.size() - 2);
    return "every " + std::to_string(interval) + " " + unit + "s";
}

std::size_t characterCount(const std::string& utf8) {
    return static_cast<std::size_t>(
        std::count_if(utf8.begin(), utf8.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

/// On one line, and not wider than a column.
std::string cell(const ordered_json& value) {
    std::string text = value.is_string() ? value.get<std::string>() : "";
    std::string shown;
    std::size_t count = 0;
    for (char c : text) {
        const bool begins = (static_cast<unsigned char>(c) & 0xC0) != 0x80;
        if (begins && ++count == widestColumn && characterCount(text) > widestColumn) {
            return shown + "…";
        }
        shown += c == '\n' ? std::string("⏎") : std::string(1, c);
    }
    return shown;
}

using Rows = std::vector<std::array<std::string, 4>>; // the headings first

std::string table(const std::string& name, const Rows& rows) {
    if (rows.size() == 1) {
        return "No " + name + ".\n";
    }
    std::array<std::size_t, 4> widths{};
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], characterCount(row[i]));
        }
    }
    std::string text = name + "\n";
    text.front() = static_cast<char>(std::toupper(text.front()));
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            line += "  " + row[i] + std::string(widths[i] - characterCount(row[i]), ' ');
        }
        text += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
    }
    return text;
}

} // namespace

ordered_json records(const std::string& root, const std::string& zone) {
    return {{"notes", notes(root, zone)}, {"reminders", reminders(root, zone)}, {"events", events(root, zone)}};
}

std::vector<std::string> brokenRecords(const std::string& root) {
    std::vector<std::string> all;
    for (const EntityType type : {EntityType::Reminder, EntityType::Event}) {
        for (const std::filesystem::path& file : CalendarFolder(root, type).brokenFiles()) {
            all.push_back(file.string() + ": is no iCalendar file that can be read; passed over");
        }
    }
    return all;
}

std::string recordsTable(const ordered_json& records) {
    Rows notes = {{"CREATED", "STORE", "TITLE", "TEXT"}};
    for (const auto& note : records["notes"]) {
        notes.push_back({cell(note["created"]), cell(note["store"]), cell(note["title"]), cell(note["body"])});
    }
    Rows reminders = {{"DUE", "LIST", "TITLE", "PRIORITY"}};
    for (const auto& reminder : records["reminders"]) {
        reminders.push_back({cell(reminder["due"]), cell(reminder["list"]), cell(reminder["title"]),
                             std::to_string(reminder["priority"].get<long>())});
    }
    Rows events = {{"START", "CALENDAR", "TITLE", "REPEATS"}};
    for (const auto& event : records["events"]) {
        events.push_back(
            {cell(event["start"]), cell(event["calendar"]), cell(event["title"]), repeats(event["recurrence"])});
    }
    return table("notes", notes) + table("reminders", reminders) + table("events", events);
}

} // namespace phone
