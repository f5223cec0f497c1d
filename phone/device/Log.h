/// What happened in the phone application, in order: the source of the dumped log.
#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace phone {

/// One per process; entries may come from any thread.
class Log {
public:
    static Log& shared();

    /// Adds {"t": animation time in whole microseconds, "what": what, ...fields}.
    void add(const char* what, nlohmann::ordered_json fields);
    /// All entries so far, or all after the first few, a JSON object a line.
    std::string lines(std::size_t from = 0) const;
    /// How many entries there are.
    std::size_t size() const;
    /// A copy of the entries so far.
    std::vector<nlohmann::ordered_json> entries() const;
    /// How many entries of this kind there are.
    std::size_t count(const std::string& what) const;
    /// Forgets all entries: for what runs longer than anyone reads its log.
    void clear();
};

} // namespace phone
