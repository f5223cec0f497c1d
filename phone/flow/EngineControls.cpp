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
        for (const ScreenElement& toggle : tree.visibleWith("on")) {
            const double distance = std::abs(label.rect().center().x - toggle.rect().center().x);
            const bool better = found && found->touchPoint().has_value() != toggle.touchPoint().has_value()
                                    ? toggle.touchPoint().has_value()
                                    : distance < nearest;
            if (isOnLine(label.rect(), toggle.rect()) && better) {
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
    /// Where a finger reaches the wheel.
    std::optional<ScreenPoint> wheel(const std::string& name) const {
        const auto found = _node.find_node([&](pugi::xml_node node) { return name == node.attribute("id").value(); });
        return ScreenElement(found).touchPoint();
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
    std::string before; // the date before the last turn
    for (int turns = 0;; ++turns) {
        const ScreenTree tree(_screen.tree(true));
        const auto picker = pickerOn(tree);
        if (!picker) {
            throw CommandFailure("the date picker has gone");
        }
        const std::tm shown = picker->fields();
        const auto turn = nextWheelTurn(picker->mode(), shown, wanted);
        if (!turn) {
            const bool isExact =
                picker->mode() == "date" || (sameMinute(shown, wanted) && (turns == 0 || shown.tm_sec == 0));
            if (!isExact) {
                throw CommandFailure("the picker shows " + picker->date() + ", and no wheel can make that " +
                                     localTime);
            }
            return;
        }
        if (picker->date() == before || turns == mostTurns) {
            throw CommandFailure("the picker does not turn to " + localTime + "; it stays at " + picker->date());
        }
        before = picker->date();
        const auto finger = picker->wheel(turn->wheel);
        if (!finger) {
            throw CommandFailure("no finger reaches the picker's wheel \"" + turn->wheel + "\"");
        }
        turnWheel(tree, *finger, turn->rows);
    }
}

void Engine::turnWheel(const ScreenTree& tree, const ScreenPoint& finger, long rows) {
    // Later rows lie below: the finger goes up for them.
    const double room = rows > 0 ? finger.y : tree.height() - finger.y - 1;
    const long reach = std::max(1L, static_cast<long>(room / wheelRowHeight));
    const long turned = std::clamp(rows, -reach, reach);
    const double to = finger.y - static_cast<double>(turned) * wheelRowHeight;
    drag(finger, {finger.x, to}, static_cast<double>(std::abs(turned)) * rowSeconds);
    _screen.settle();
}

} // namespace phone
