#include "phone/device/Log.h"

#include "phone/device/RunLoop.h"

#include <algorithm>
#include <cmath>
#include <mutex>

namespace phone {

namespace {

struct Storage {
    std::mutex mutex;
    std::vector<nlohmann::ordered_json> entries;
};

Storage& storage() {
    static auto* all = new Storage; // entries may come until the very end of the process
    return *all;
}

/// Times are printed in full: what adding up fractions of a second leaves behind is cut off.
double wholeMicroseconds(double seconds) { return std::round(seconds * 1e6) / 1e6; }

} // namespace

Log& Log::shared() {
    static Log log;
    return log;
}

void Log::add(const char* what, nlohmann::ordered_json fields) {
    nlohmann::ordered_json entry = {{"t", wholeMicroseconds(RunLoop::main().now())}, {"what", what}};
    entry.update(fields);
    std::lock_guard lock(storage().mutex);
    storage().entries.push_back(std::move(entry));
}

std::string Log::lines(std::size_t from) const {
    std::string all;
    std::lock_guard lock(storage().mutex);
    for (std::size_t at = from; at < storage().entries.size(); ++at) {
        all += storage().entries[at].dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
        all += '\n';
    }
    return all;
}

std::size_t Log::size() const {
    std::lock_guard lock(storage().mutex);
    return storage().entries.size();
}

std::vector<nlohmann::ordered_json> Log::entries() const {
    std::lock_guard lock(storage().mutex);
    return storage().entries;
}

std::size_t Log::count(const std::string& what) const {
    const auto all = entries();
    return static_cast<std::size_t>(
        std::count_if(all.begin(), all.end(), [&](const auto& entry) { return entry.at("what") == what; }));
}

void Log::clear() {
    std::lock_guard lock(storage().mutex);
    storage().entries.clear();
}

} // namespace phone
