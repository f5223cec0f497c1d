/// Which wheel of a date picker to turn next, and how far.
#pragma once

#include <ctime>
#include <optional>
#include <string>

namespace phone {

/// One wheel, by its name, and the rows by which it is to be turned: forward in time where positive.
struct WheelTurn {
    std::string wheel;
    long rows = 0;

    friend bool operator==(const WheelTurn&, const WheelTurn&) = default;
};

/// The larger units come first, so that a picker's limits stand in the way of no later turn. Rings are turned
/// the shorter way. nullopt when no wheel has to move. `mode` is as in the tree: "time", "date" or
/// "dateAndTime"; what its wheels do not turn is not looked at, nor are seconds.
std::optional<WheelTurn> nextWheelTurn(const std::string& mode, const std::tm& shown, const std::tm& wanted);

} // namespace phone
