/// What a play did, command by command.
#pragma once

#include <nlohmann/json.hpp>

#include <chrono>
#include <string>

namespace phone {

/// `{"flows": [{"name", "file", "ok", "commands": [{"line", "command", "ok", "message", "milliseconds"}]}]}`.
/// Commands stand in the order in which they began; the message is "" when a command held.
class PlayReport {
public:
    void beginFlow(const std::string& name, const std::string& file);
    /// Gives the number to end the command with.
    std::size_t beginCommand(int line, const std::string& command);
    void endCommand(std::size_t number, bool ok, const std::string& message, std::chrono::duration<double> taken);
    void endFlow(bool ok);

    const nlohmann::ordered_json& json() const { return _json; }

private:
    nlohmann::ordered_json& flow() { return _json["flows"].back(); }

    nlohmann::ordered_json _json = {{"flows", nlohmann::ordered_json::array()}};
};

} // namespace phone
