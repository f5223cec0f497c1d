#include "phone/flow/Records.h"

#include "phone/eventkit/CalendarFolder.h"
#include "phone/flow/InputError.h"
#include "phone/flow/LocalTime.h"
#include "phone/notes/NotesDatabase.h"

#include <algorithm>
#include <array>
#include <cctype>
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
                           {"body", orNull(note.body)},
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
    return {{"notes", notes(root, zone)}, {"reminders", reminders(root, zone)}, {"events", ordered_json::array()}};
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
    return table("notes", notes) + table("reminders", reminders);
}

} // namespace phone
