/// The folder of the calendar store: one folder per list or calendar, one iCalendar file per item. Knows
/// nothing of Foundation, so that the phone application and the driver share it.
#pragma once

#include "phone/eventkit/CalendarItems.h"

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace phone {

/// The folder could not be read or written. The text says what and where.
class CalendarFolderError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What lies under `events` or `reminders`. Everything is read anew at each question: other programs, and
/// another process of the phone, may change it at any moment. A folder that is missing holds nothing.
///
/// Beside the lists lie the store's own small files, hidden from other programs: `.access`, what the
/// person has decided, and `.lists`, the order of the lists, the default, which are read-only and which take only so
/// many alarms.
class CalendarFolder {
public:
    /// Where the store lies on the device.
    static constexpr const char* devicePath = "/var/mobile/Library/Calendar";

    /// `root` is the phone's root folder, a path of the host.
    CalendarFolder(const std::string& root, EntityType type);

    /// Makes the folder with these lists, in this order, and nothing in them.
    void create(Access access, const std::vector<CalendarStore>& calendars) const;

    /// `Ask` where nothing is remembered.
    Access access() const;
    void setAccess(Access access) const;

    /// In the store's order; those that other programs have added come last, by the names of their folders.
    std::vector<CalendarRow> calendars() const;

    /// In the order of creation; of those that other programs have made the earliest comes first, after
    /// the phone's own. Files that hold no reminder, or no event, are passed over.
    std::vector<ReminderRow> reminders() const;
    std::vector<EventRow> events() const;
    /// The files among the items that are no iCalendar, such as one that was cut off. They stay as they are.
    std::vector<std::filesystem::path> brokenFiles() const;

    /// Writes the item into the list, over what was there under its id; a new one gets its place in the
    /// order of creation. The list has to exist.
    void write(const std::string& list, ReminderItem& reminder) const;
    void write(const std::string& list, EventItem& event) const;
    /// Removes the item from the list, if it is there.
    void remove(const std::string& list, const std::string& item) const;

private:
    std::filesystem::path itemPath(const std::string& calendar, const std::string& item) const;
    std::vector<std::filesystem::path> itemFiles(const std::string& calendar) const;
    template <class Row, class Read>
    std::vector<Row> rows(const Read& read) const;
    template <class Item>
    void writeItem(const std::string& list, Item& item) const;
    long nextOrder() const;
    long lastOrder() const;

    std::filesystem::path _folder;
    EntityType _type;
};

/// A new identifier, such as nothing else in the world has.
std::string newIdentifier();

} // namespace phone
