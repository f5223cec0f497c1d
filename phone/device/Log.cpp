#include "phone/device/Log.h"

#include "phone/device/RunLoop.h"

#include <algorithm>
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

} // namespace

Log& Log::shared() {
    static Log log;
    return log;
}

void Log::add(const char* what, nlohmann::ordered_json fields) {
    nlohmann::ordered_json entry = {{"t", RunLoop::main().now()}, {"what", what}};
    entry.update(fields);
    std::lock_guard lock(storage().mutex);
    storage().entries.push_back(std::move(entry));
}

std::string Log::lines() const {
    std::string all;
    for (const auto& entry : entries()) {
        all += entry.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
        all += '\n';
    }
    return all;
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

} // namespace phone
