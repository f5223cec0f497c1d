#include "phone/flow/PlayReport.h"

#include <cmath>

namespace phone {

using nlohmann::ordered_json;

void PlayReport::beginFlow(const std::string& name, const std::string& file) {
    _json["flows"].push_back({{"name", name}, {"file", file}, {"ok", false}, {"commands", ordered_json::array()}});
}

std::size_t PlayReport::beginCommand(int line, const std::string& command) {
    ordered_json& commands = flow()["commands"];
    commands.push_back({{"line", line}, {"command", command}, {"ok", false}, {"message", ""}, {"milliseconds", 0}});
    return commands.size() - 1;
}

void PlayReport::endCommand(std::size_t number, bool ok, const std::string& message,
                            std::chrono::duration<double> taken) {
    ordered_json& command = flow()["commands"][number];
    command["ok"] = ok;
    command["message"] = message;
    command["milliseconds"] = std::lround(taken.count() * 1000);
}

void PlayReport::endFlow(bool ok) { flow()["ok"] = ok; }

} // namespace phone
