#include "phone/flow/WheelTurn.h"

#include <array>

namespace phone {

namespace {

constexpr long ringOfHours = 24;
constexpr long ringOfMinutes = 60;
constexpr long ringOfDays = 31;
constexpr long ringOfMonths = 12;

/// The shorter way from one row of a ring to another.
long around(long rows, long ring) {
    const long forward = ((rows % ring) + ring) % ring;
    return forward > ring / 2 ? forward - ring : forward;
}

long daysBetween(std::tm from, std::tm to) {
    constexpr long day = 24 * 60 * 60;
    for (std::tm* time : {&from, &to}) {
        time->tm_hour = 0;
        time->tm_min = 0;
        time->tm_sec = 0;
    }
    return static_cast<long>(timegm(&to) - timegm(&from)) / day;
}

} // namespace

std::optional<WheelTurn> nextWheelTurn(const std::string& mode, const std::tm& shown, const std::tm& wanted) {
    const WheelTurn year{"year", wanted.tm_year - shown.tm_year};
    const WheelTurn month{"month", around(wanted.tm_mon - shown.tm_mon, ringOfMonths)};
    const WheelTurn dayOfMonth{"dayOfMonth", around(wanted.tm_mday - shown.tm_mday, ringOfDays)};
    const WheelTurn day{"day", daysBetween(shown, wanted)};
    const WheelTurn hour{"hour", around(wanted.tm_hour - shown.tm_hour, ringOfHours)};
    const WheelTurn minute{"minute", around(wanted.tm_min - shown.tm_min, ringOfMinutes)};
    const auto first = [](const std::array<WheelTurn, 3>& turns) -> std::optional<WheelTurn> {
        for (const WheelTurn& turn : turns) {
            if (turn.rows != 0) {
                return turn;
            }
        }
        return std::nullopt;
    };
    if (mode == "date") {
        return first({year, month, dayOfMonth});
    }
    return first({mode == "time" ? WheelTurn() : day, hour, minute});
}

} // namespace phone
