#include "phone/eventkit/CalendarFolder.h"

#include "phone/eventkit/DurableFile.h"
#include "phone/eventkit/EventText.h"
#include "phone/eventkit/ICalendar.h"
#include "phone/eventkit/ReminderText.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <limits>
#include <map>
#include <random>
#include <tuple>

namespace phone {

namespace fs = std::filesystem;
using nlohmann::json;

namespace {

constexpr const char* accessFile = ".access";
constexpr const char* listsFile = ".lists";
constexpr const char* orderFile = ".order";
constexpr const char* lockFile = ".lock";
constexpr const char* titleFile = "displayname";
constexpr const char* colorFile = "color";
constexpr const char* itemEnding = ".ics";

/// Given to lists in turn, as the platform does.
constexpr std::array<const char*, 6> colors = {"#1badf8", "#63da38", "#ff9500", "#cc73e1", "#ff2968", "#a2845e"};

constexpr std::array<const char*, 3> accessWords = {"ask", "allow", "deny"}; // in the order of Access

std::string trimmed(std::string text) {
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) {
        text.pop_back();
    }
    return text;
}

/// What `.lists` says; with the right shape whatever lies there.
struct Lists {
    std::vector<std::string> order;
    std::string standard; // the default's id; "" for none
    std::vector<std::string> readOnly;
    std::map<std::string, std::size_t> mostAlarms;

    static Lists read(const fs::path& folder) {
        const json given = json::parse(contentOf(folder / listsFile).value_or(""), nullptr, false);
        Lists lists;
        if (!given.is_object()) {
            return lists;
        }
        const auto names = [&](const char* key) {
            std::vector<std::string> all;
            for (const json& name : given.value(key, json::array())) {
                if (name.is_string()) {
                    all.push_back(name);
                }
            }
            return all;
        };
        lists.order = names("order");
        lists.readOnly = names("readOnly");
        if (const auto found = given.find("default"); found != given.end() && found->is_string()) {
            lists.standard = *found;
        }
        const json limits = given.value("mostAlarms", json::object());
        for (const auto& [id, most] : limits.items()) {
            if (most.is_number_unsigned()) {
                lists.mostAlarms[id] = most;
            }
        }
        return lists;
    }
    std::string text() const {
        json all = {{"order", order}, {"default", standard}, {"readOnly", readOnly}};
        if (!mostAlarms.empty()) {
            all["mostAlarms"] = mostAlarms;
        }
        return all.dump(2) + "\n";
    }
    std::optional<std::size_t> alarmsOf(const std::string& id) const {
        const auto found = mostAlarms.find(id);
        return found == mostAlarms.end() ? std::nullopt : std::optional(found->second);
    }
};

bool isIn(const std::vector<std::string>& all, const std::string& one) {
    return std::find(all.begin(), all.end(), one) != all.end();
}

/// What lies in the folder and is not hidden, by name.
std::vector<fs::path> inside(const fs::path& folder, bool folders) {
    std::vector<fs::path> all;
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(folder, ignored)) {
        const bool isHidden = entry.path().filename().string().starts_with('.');
        if (!isHidden && entry.is_directory(ignored) == folders) {
            all.push_back(entry.path());
        }
    }
    std::sort(all.begin(), all.end());
    return all;
}

/// Says what went wrong in the store's own terms.
template <class Work>
auto checked(const Work& work) {
    try {
        return work();
    } catch (const fs::filesystem_error& error) {
        throw CalendarFolderError(error.path1().string() + ": " + error.code().message());
    }
}

} // namespace

CalendarFolder::CalendarFolder(const std::string& root, EntityType type)
    : _folder(fs::path(root + devicePath) / (type == EntityType::Event ? "events" : "reminders")), _type(type) {}

void CalendarFolder::create(Access access, const std::vector<CalendarStore>& calendars) const {
    checked([&] {
        fs::create_directories(_folder);
        Lists lists;
        for (const CalendarStore& calendar : calendars) {
            const std::string id = newIdentifier();
            fs::create_directory(_folder / id);
            replaceFile(_folder / id / titleFile, calendar.title);
            replaceFile(_folder / id / colorFile, colors[lists.order.size() % colors.size()]);
            lists.order.push_back(id);
            if (calendar.isDefault) {
                lists.standard = id;
            }
            if (calendar.isReadOnly) {
                lists.readOnly.push_back(id);
            }
            if (calendar.mostAlarms) {
                lists.mostAlarms[id] = *calendar.mostAlarms;
            }
        }
        replaceFile(_folder / listsFile, lists.text());
    });
    setAccess(access);
}

Access CalendarFolder::access() const {
    const std::string word = trimmed(contentOf(_folder / accessFile).value_or(""));
    const auto found = std::find(accessWords.begin(), accessWords.end(), word);
    return found == accessWords.end() ? Access::Ask : static_cast<Access>(found - accessWords.begin());
}

void CalendarFolder::setAccess(Access access) const {
    checked([&] {
        fs::create_directories(_folder);
        replaceFile(_folder / accessFile, std::string(accessWords[static_cast<std::size_t>(access)]) + "\n");
    });
}

std::vector<CalendarRow> CalendarFolder::calendars() const {
    const Lists lists = Lists::read(_folder);
    std::vector<CalendarRow> all;
    for (const fs::path& folder : inside(_folder, true)) {
        const std::string id = folder.filename();
        const std::string title = trimmed(contentOf(folder / titleFile).value_or(""));
        all.push_back(
            {id, title.empty() ? id : title, id == lists.standard, isIn(lists.readOnly, id), lists.alarmsOf(id)});
    }
    std::sort(all.begin(), all.end(), [&](const CalendarRow& a, const CalendarRow& b) {
        const auto place = [&](const CalendarRow& row) {
            return std::pair(std::find(lists.order.begin(), lists.order.end(), row.id), row.id);
        };
        return place(a) < place(b);
    });
    return all;
}

std::vector<fs::path> CalendarFolder::itemFiles(const std::string& calendar) const {
    std::vector<fs::path> all = inside(_folder / calendar, false);
    std::erase_if(all, [](const fs::path& file) { return file.extension() != itemEnding; });
    return all;
}

template <class Row, class Read>
std::vector<Row> CalendarFolder::rows(const Read& read) const {
    std::vector<Row> all;
    for (const CalendarRow& calendar : calendars()) {
        for (const fs::path& file : itemFiles(calendar.id)) {
            if (auto item = read(contentOf(file).value_or(""))) {
                all.push_back({calendar.title, std::move(*item)});
            }
        }
    }
    const auto place = [](const Row& row) {
        const StoredItem& item = row.item;
        const long order = item.order > 0 ? item.order : std::numeric_limits<long>::max();
        return std::tuple(order, item.created.value_or(item.modified.value_or(0)), item.id);
    };
    std::sort(all.begin(), all.end(), [&](const Row& a, const Row& b) { return place(a) < place(b); });
    return all;
}

std::vector<ReminderRow> CalendarFolder::reminders() const { return rows<ReminderRow>(reminderFrom); }

std::vector<EventRow> CalendarFolder::events() const { return rows<EventRow>(eventFrom); }

std::vector<fs::path> CalendarFolder::brokenFiles() const {
    std::vector<fs::path> all;
    for (const CalendarRow& calendar : calendars()) {
        for (const fs::path& file : itemFiles(calendar.id)) {
            if (ical::parse(contentOf(file).value_or("")) == nullptr) {
                all.push_back(file);
            }
        }
    }
    return all;
}

void CalendarFolder::write(const std::string& list, ReminderItem& reminder) const { writeItem(list, reminder); }

void CalendarFolder::write(const std::string& list, EventItem& event) const { writeItem(list, event); }

template <class Item>
void CalendarFolder::writeItem(const std::string& list, Item& item) const {
    checked([&] {
        if (item.order == 0) {
            item.order = nextOrder();
        }
        replaceFile(itemPath(list, item.id), textOf(item));
    });
}

void CalendarFolder::remove(const std::string& list, const std::string& item) const {
    checked([&] { fs::remove(itemPath(list, item)); });
}

fs::path CalendarFolder::itemPath(const std::string& calendar, const std::string& item) const {
    return _folder / calendar / (item + itemEnding);
}

/// A number that no other item gets, whichever process asks. After a crash one may be missing.
long CalendarFolder::nextOrder() const {
    const FileLock lock(_folder / lockFile);
    long last = 0;
    if (const auto kept = contentOf(_folder / orderFile)) {
        last = std::strtol(kept->c_str(), nullptr, 10);
    } else {
        last = lastOrder(); // somebody has removed the file
    }
    replaceFile(_folder / orderFile, std::to_string(last + 1) + "\n");
    return last + 1;
}

long CalendarFolder::lastOrder() const {
    const auto last = [](const auto& rows) {
        long order = 0;
        for (const auto& row : rows) {
            order = std::max(order, row.item.order);
        }
        return order;
    };
    return _type == EntityType::Event ? last(events()) : last(reminders());
}

std::string newIdentifier() {
    static constexpr char digits[] = "0123456789ABCDEF";
    std::random_device chance;
    std::uniform_int_distribution<int> digit(0, 15);
    std::string id = "xxxxxxxx-xxxx-4xxx-yxxx-xxxxxxxxxxxx";
    for (char& c : id) {
        if (c == 'x') {
            c = digits[digit(chance)];
        } else if (c == 'y') {
            c = digits[8 + digit(chance) % 4]; // the variant, as the standard has it
        }
    }
    return id;
}

} // namespace phone
