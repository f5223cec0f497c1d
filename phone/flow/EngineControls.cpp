// What an engine does to switches and date pickers.

#include "phone/device/WheelRow.h"
#include "phone/flow/Engine.h"
#include "phone/flow/EngineWait.h"
#include "phone/flow/LocalTime.h"
#include "phone/flow/WheelTurn.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace phone {

namespace {

bool isSwitch(const ScreenElement& element) { return !element.node().attribute("on").empty(); }

/// Both as their line runs, from left to right.
bool isOnLine(const ScreenRect& label, const ScreenRect& toggle) {
    const double labelY = label.center().y;
    const double switchY = toggle.center().y;
    return (labelY >= toggle.y && labelY < toggle.y + toggle.height) ||
           (switchY >= label.y && switchY < label.y + label.height);
}

/// The nearest switch on the line of what the selector names; one that can be touched comes first.
std::optional<ScreenElement> switchBeside(const ScreenTree& tree, const Selector& selector) {
    std::optional<ScreenElement> found;
    double nearest = std::numeric_limits<double>::infinity();
    for (const ScreenElement& label : tree.visible(selector)) {
        if (isSwitch(label)) {
            return label;
        }
        const int upright = (4 - label.quarterTurns()) % 4;
        const ScreenRect line = label.rect().turned(upright);
        for (const ScreenElement& toggle : tree.visibleWith("on")) {
            const ScreenRect rect = toggle.rect().turned(upright);
            const double distance = std::abs(line.center().x - rect.center().x);
            const bool better = found && found->touchPoint().has_value() != toggle.touchPoint().has_value()
                                    ? toggle.touchPoint().has_value()
                                    : distance < nearest;
            if (isOnLine(line, rect) && better) {
                found = toggle;
                nearest = distance;
            }
        }
    }
    return found;
}

/// A date picker as the screen shows it.
class PickerElement {
public:
    explicit PickerElement(pugi::xml_node node) : _node(node) {}

    std::string mode() const { return _node.attribute("mode").value(); }
    /// With the zone.
    std::string date() const { return _node.attribute("date").value(); }
    std::tm fields() const {
        constexpr std::size_t length = std::string_view("2026-03-05T14:37:12").size();
        const auto read = localFields(date().substr(0, length));
        if (!read) {
            throw CommandFailure("the picker shows no date: \"" + date() + "\"");
        }
        return *read;
    }
    ScreenElement wheel(const std::string& name) const {
        return ScreenElement(_node.find_node([&](auto node) { return name == node.attribute("id").value(); }));
    }

private:
    pugi::xml_node _node;
};

std::optional<PickerElement> pickerOn(const ScreenTree& tree) {
    const auto all = tree.visibleWith("mode");
    const auto reachable =
        std::find_if(all.begin(), all.end(), [](const ScreenElement& picker) { return picker.touchPoint(); });
    return reachable == all.end() ? std::nullopt : std::optional(PickerElement(reachable->node()));
}

bool sameMinute(const std::tm& a, const std::tm& b) {
    return a.tm_year == b.tm_year && a.tm_mon == b.tm_mon && a.tm_mday == b.tm_mday && a.tm_hour == b.tm_hour &&
           a.tm_min == b.tm_min;
}

/// A straight way from a point to the edge of the screen.
struct WayOut {
    ScreenPoint step; // of one point's length
    double length = 0;
};

/// Towards what is up in content that is turned by so many quarters.
WayOut wayUp(const ScreenTree& tree, const ScreenPoint& from, int quarters) {
    switch (quarters % 4) {
    case 1:
        return {{1, 0}, tree.width() - from.x - 1};
    case 2:
        return {{0, 1}, tree.height() - from.y - 1};
    case 3:
        return {{-1, 0}, from.x};
    default:
        return {{0, -1}, from.y};
    }
}

} // namespace

void Engine::toggle(const Selector& selector) {
    std::optional<ScreenPoint> point;
    const auto find = [&] {
        const ScreenTree tree(_screen.tree(true));
        const auto found = switchBeside(tree, selector);
        point = found ? found->touchPoint() : std::nullopt;
        return point.has_value();
    };
    if (waitUntil(find)) {
        press(*point, tapSeconds);
        return;
    }
    const ScreenTree tree(_screen.tree(true));
    if (switchBeside(tree, selector)) {
        throw CommandFailure("the switch on the line of " + selector.description() + " cannot be touched");
    }
    throw CommandFailure(tree.visible(selector).empty() ? selector.description() + " is not on the screen"
                                                        : "no switch is on the line of " + selector.description());
}

void Engine::pickDate(const std::string& localTime) {
    const std::tm wanted = localFields(localTime).value();
    if (!waitUntil([&] { return pickerOn(ScreenTree(_screen.tree(true))).has_value(); })) {
        throw CommandFailure("no date picker that can be touched is on the screen");
    }
    std::optional<WheelTurn> last;
    long most = rowsAtFirst;
    for (bool untouched = true;; untouched = false) {
        const ScreenTree tree(_screen.tree(true));
        const auto picker = pickerOn(tree);
        if (!picker) {
            throw CommandFailure("the date picker has gone");
        }
        const std::tm shown = picker->fields();
        const auto turn = nextWheelTurn(picker->mode(), shown, wanted);
        if (!turn) {
            const bool isExact =
                picker->mode() == "date" || (sameMinute(shown, wanted) && (untouched || shown.tm_sec == 0));
            if (!isExact) {
                throw CommandFailure("the picker shows " + picker->date() + ", and no wheel can make that " +
                                     localTime);
            }
            return;
        }
        if (last && turn->wheel == last->wheel && std::abs(turn->rows) >= std::abs(last->rows)) {
            const bool stays = turn->rows == last->rows;
            throw CommandFailure("the picker does not turn to " + localTime + "; it " +
                                 (stays ? "stays at " : "goes away from it, to ") + picker->date());
        }
        const ScreenElement wheel = picker->wheel(turn->wheel);
        if (!wheel.touchPoint()) {
            throw CommandFailure("no finger reaches the picker's wheel \"" + turn->wheel + "\"");
        }
        turnWheel(tree, wheel, std::clamp(turn->rows, -most, most));
        last = turn;
        most *= 2;
    }
}

void Engine::turnWheel(const ScreenTree& tree, const ScreenElement& wheel, long rows) {
    // Later rows lie below: the finger goes up for them.
    const ScreenPoint finger = wheel.touchPoint().value();
    const WayOut way = wayUp(tree, finger, wheel.quarterTurns() + (rows > 0 ? 0 : 2));
    const long reach = std::max(1L, static_cast<long>(way.length / wheelRowHeight));
    for (long left = std::abs(rows); left > 0; left -= reach) {
        const auto turned = static_cast<double>(std::min(left, reach));
        const double length = turned * wheelRowHeight;
        drag(finger, {finger.x + way.step.x * length, finger.y + way.step.y * length}, turned * rowSeconds);
    }
    _screen.settle();
}

} // namespace phone
