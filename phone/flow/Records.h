/// What stands in a phone's stores.
#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace phone {

/// `{"notes": [...], "reminders": [...], "events": [...]}`, each in order of creation, dates with the
/// zone's offset. A store that is missing has no records; throws InputError when one cannot be read.
nlohmann::ordered_json records(const std::string& root, const std::string& zone);

/// What could not be read, and why: one line a file. The other records are there all the same.
std::vector<std::string> brokenRecords(const std::string& root);

/// The same as `records` for a person: one line a record.
std::string recordsTable(const nlohmann::ordered_json& records);

} // namespace phone
