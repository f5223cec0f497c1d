#include "phone/server/FlowRecorder.h"

#include "phone/server/FlowText.h"
#include "phone/server/TouchedElement.h"

#include <algorithm>
#include <cmath>

namespace phone {

namespace {

std::string permissionsLine(Access reminders, Access events) {
    return std::string("setPermissions: {reminders: ") + nameOf(reminders) + ", events: " + nameOf(events) + "}";
}

std::string valueOf(std::optional<bool> value) { return !value ? "null" : *value ? "true" : "false"; }

/// Flows know no points beyond the edges.
std::string pointText(const ScreenPoint& point) {
    return flowQuoted(flowNumber(std::max(0.0, point.x)) + "," + flowNumber(std::max(0.0, point.y)));
}

} // namespace

const char* nameOf(Access access) {
    return access == Access::Allow ? "allow" : access == Access::Deny ? "deny" : "ask";
}

FlowRecorder::FlowRecorder(const Beginning& beginning) : _beginning(beginning) {
    std::string values;
    for (const auto& [key, value] : beginning.switches) {
        values += (values.empty() ? "" : ", ") + key + ": " + valueOf(value);
    }
    if (!values.empty()) {
        write("setPreferences: {" + values + "}");
    }
    write(permissionsLine(beginning.reminders, beginning.events));
    write("launchApp");
    _opening = _commands.size();
}

void FlowRecorder::waitFor(const Moment& moment) {
    const double waited = moment.seconds - _lastEnd;
    _lastEnd = moment.seconds;
    if (waited < shortestWait || count() == 0) {
        return;
    }
    if (moment.moving) {
        write("advance: " + flowNumber(waited));
    } else if (lastKind() != Kind::Wait) {
        write("waitForAnimationToEnd", Kind::Wait);
    }
}

void FlowRecorder::add(const Moment& moment, const std::string& line) {
    waitFor(moment);
    write(line);
}

void FlowRecorder::fingerDown(const Moment& moment, const ScreenPoint& point, const std::string& xml) {
    const ScreenTree tree(xml);
    waitFor(moment);
    _finger = Finger{moment, point, nameOfTouched(tree, point), dateOfPicker(tree, point), 0};
}

void FlowRecorder::fingerMoved(const ScreenPoint& point) {
    if (_finger) {
        const ScreenPoint& start = _finger->start;
        _finger->farthest = std::max(_finger->farthest, std::hypot(point.x - start.x, point.y - start.y));
    }
}

void FlowRecorder::fingerUp(const Moment& moment, const ScreenPoint& point) {
    fingerMoved(point);
    if (!_finger) {
        return;
    }
    const Finger finger = *std::exchange(_finger, std::nullopt);
    const double seconds = moment.seconds - finger.began.seconds;
    _lastEnd = moment.seconds;
    if (finger.farthest > farthestTap) {
        const long milliseconds = std::clamp(std::lround(seconds * 1000), 50L, 10000L);
        write("swipe: {start: " + pointText(finger.start) + ", end: " + pointText(point) +
              ", duration: " + std::to_string(milliseconds) + "}");
    } else {
        write((seconds >= longPress ? "longPressOn: " : "tapOn: ") + finger.name);
    }
    if (finger.date) {
        _wheel = Wheel{finger.start, *finger.date};
    }
}

void FlowRecorder::look(const std::string& xml) {
    if (!_wheel) {
        return;
    }
    const Wheel wheel = *std::exchange(_wheel, std::nullopt);
    const auto date = dateOfPicker(ScreenTree(xml), wheel.point);
    if (!date || *date == wheel.date) {
        return;
    }
    _commands.pop_back(); // the touch itself: where the wheels come to stand is what counts
    // The last date alone counts of those that were picked one after the other.
    while (count() > 0 && (lastKind() == Kind::Date ||
                           (lastKind() == Kind::Wait && count() > 1 && _commands.end()[-2].kind == Kind::Date))) {
        _commands.pop_back();
    }
    write("pickDate: " + flowQuoted(*date), Kind::Date);
}

void FlowRecorder::type(const Moment& moment, const std::string& text) {
    if (lastKind() == Kind::Text) {
        _commands.back().text += text;
        _lastEnd = moment.seconds;
        return;
    }
    waitFor(moment);
    _commands.push_back({Kind::Text, "", text, 0});
}

void FlowRecorder::key(const Moment& moment, const std::string& name) {
    if (name != "backspace") {
        add(moment, "pressKey: " + name);
        return;
    }
    if (lastKind() == Kind::Erase) {
        ++_commands.back().count;
        _lastEnd = moment.seconds;
        return;
    }
    waitFor(moment);
    _commands.push_back({Kind::Erase, "", "", 1});
}

void FlowRecorder::paste(const Moment& moment, const std::string& text) {
    add(moment, "setClipboard: " + flowQuoted(text));
    write("pasteText");
}

void FlowRecorder::call(const Moment& moment, const std::string& action, const std::string& number) {
    add(moment,
        "phoneCall: {" + (number.empty() ? "" : "number: " + flowQuoted(number) + ", ") + "action: " + action + "}");
}

void FlowRecorder::turn(const Moment& moment, const std::string& orientation) {
    add(moment, "setOrientation: " + orientation);
}

void FlowRecorder::setClock(const Moment& moment, const std::string& localTime) {
    add(moment, "setClock: " + flowQuoted(localTime));
}

void FlowRecorder::setSwitch(const Moment& moment, const std::string& key, std::optional<bool> value) {
    add(moment, "setPreferences: {" + key + ": " + valueOf(value) + "}");
}

void FlowRecorder::setPermissions(const Moment& moment, Access reminders, Access events) {
    add(moment, permissionsLine(reminders, events));
}

void FlowRecorder::launch(const Moment& moment) { add(moment, "launchApp"); }

std::string FlowRecorder::text() const {
    PhoneOptions options = optionsFor(_beginning.settings);
    options.now = _beginning.localTime;
    std::string phone;
    for (const PhoneOption& option : phoneOptions) {
        if (const auto& value = options.*option.value) {
            phone += (phone.empty() ? "" : ", ") + std::string(option.name) + ": " + flowQuoted(*value);
        }
    }
    std::string all = "name: Recorded " + _beginning.localTime + "\nphone: {" + phone + "}\n---\n";
    for (const Written& command : _commands) {
        all += "- ";
        all += command.kind == Kind::Text    ? "inputText: " + flowQuoted(command.text)
               : command.kind == Kind::Erase ? "eraseText: " + std::to_string(command.count)
                                             : command.line;
        all += "\n";
    }
    // What the last touch has set off comes to its end before the play does.
    return lastKind() == Kind::Wait ? all : all + "- waitForAnimationToEnd\n";
}

} // namespace phone
