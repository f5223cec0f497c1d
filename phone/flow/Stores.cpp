#include "phone/flow/Stores.h"

#include "phone/flow/Yaml.h"

namespace phone {

namespace {

/// Whether this one is the default; refuses a second one.
bool isDefault(const YamlMap& keys, bool& taken) {
    const auto given = keys.find("default");
    const bool chosen = given && given->boolean("default");
    if (chosen && taken) {
        given->fail("there can be one default only");
    }
    taken = taken || chosen;
    return chosen;
}

std::string title(const YamlMap& keys, const char* key) {
    const Yaml node = keys.require(key);
    std::string text = node.text(key);
    if (text.empty()) {
        node.fail(std::string(key) + " has to be a text that is not empty");
    }
    return text;
}

Access access(const Yaml& node) {
    const std::string word = node.text("access");
    if (word == "ask") {
        return Access::Ask;
    }
    if (word == "allow") {
        return Access::Allow;
    }
    if (word != "deny") {
        node.fail("access \"" + word + "\" is not one of ask, allow, deny");
    }
    return Access::Deny;
}

void readNotes(const Yaml& node, std::vector<NotesAccount>& accounts) {
    const auto list = node.map("notes", {"accounts"}).find("accounts");
    if (!list) {
        return;
    }
    accounts.clear();
    bool taken = false;
    for (const Yaml& item : list->list("accounts")) {
        const YamlMap keys = item.map("an account", {"name", "default"});
        accounts.push_back({title(keys, "name"), isDefault(keys, taken)});
    }
}

/// `kind` is "a calendar" or "a list".
std::vector<CalendarStore> readCalendars(const std::vector<Yaml>& items, const char* kind) {
    std::vector<CalendarStore> all;
    bool taken = false;
    for (const Yaml& item : items) {
        const YamlMap keys = item.map(kind, {"title", "default", "readOnly"});
        CalendarStore calendar = {title(keys, "title"), isDefault(keys, taken), false};
        if (const auto readOnly = keys.find("readOnly")) {
            calendar.isReadOnly = readOnly->boolean("readOnly");
        }
        all.push_back(std::move(calendar));
    }
    return all;
}

} // namespace

Stores Stores::read(const std::string& file) {
    Stores stores;
    const std::vector<Yaml> documents = Yaml::documents(file);
    if (documents.empty() || (documents.size() == 1 && documents.front().isNull())) {
        return stores;
    }
    if (documents.size() > 1) {
        throw InputError({file, 0}, "has to be one document");
    }
    const YamlMap keys = documents.front().map("the stores", {"notes", "reminders", "events"});
    if (const auto notes = keys.find("notes")) {
        readNotes(*notes, stores.notes);
    }
    const auto readPart = [&](const char* name, const char* list, const char* kind, Access& permission,
                              std::vector<CalendarStore>& calendars) {
        const auto part = keys.find(name);
        if (!part) {
            return;
        }
        const YamlMap partKeys = part->map(name, {"access", list});
        if (const auto given = partKeys.find("access")) {
            permission = access(*given);
        }
        if (const auto given = partKeys.find(list)) {
            calendars = readCalendars(given->list(list), kind);
        }
    };
    readPart("reminders", "lists", "a list", stores.reminderAccess, stores.reminders);
    readPart("events", "calendars", "a calendar", stores.eventAccess, stores.events);
    return stores;
}

} // namespace phone
