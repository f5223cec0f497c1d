#include "phone/server/PageCommands.h"

#include "phone/device/Orientation.h"
#include "phone/eventkit/CalendarFolder.h"
#include "phone/flow/InputError.h"
#include "phone/flow/LocalTime.h"
#include "phone/flow/Preferences.h"
#include "phone/server/SettingsPane.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace phone {

using nlohmann::json;

namespace {

using Moment = FlowRecorder::Moment;

std::string textIn(const json& body, const char* key) {
    if (!body.contains(key) || !body.at(key).is_string()) {
        throw PageRefusal(std::string("\"") + key + "\" has to be a text");
    }
    return body.at(key);
}

/// One of a few words.
std::string wordIn(const json& body, const char* key, const std::vector<std::string_view>& words) {
    const std::string given = textIn(body, key);
    if (std::find(words.begin(), words.end(), given) == words.end()) {
        std::string all;
        for (const std::string_view word : words) {
            all += (all.empty() ? "" : ", ") + std::string(word);
        }
        throw PageRefusal(std::string("\"") + key + "\" has to be one of " + all);
    }
    return given;
}

double coordinateIn(const json& body, const char* key) {
    constexpr double farthest = 10000;
    const json value = body.value(key, json());
    if (!value.is_number() || !(std::abs(value.get<double>()) <= farthest)) {
        throw PageRefusal(std::string("\"") + key + "\" has to be a number of points");
    }
    return value;
}

/// Does it and, where a recording runs, writes it down once it has been done.
template <class Do, class Note>
void act(PageDesk& desk, const Do& perform, const Note& note) {
    const std::lock_guard lock(desk.acting);
    const Moment moment = desk.recording.moment();
    perform();
    desk.recording.note([&](FlowRecorder& recorder) { note(recorder, moment); });
    desk.phone.announce(); // the number of the commands recorded
}

json touch(PageDesk& desk, const json& body) {
    const std::string page = textIn(body, "page");
    const std::string phase = wordIn(body, "phase", {"began", "moved", "ended", "cancelled"});
    const ScreenPoint point{coordinateIn(body, "x"), coordinateIn(body, "y")};
    if (phase == "began") {
        desk.hands.grasp(page); // may wait for another page's finger, which has to be able to go up
    } else if (!desk.hands.holds(page)) {
        return json::object(); // its touch was taken away, or the application is another one by now
    }
    try {
        const std::lock_guard lock(desk.acting);
        if (phase == "began") {
            const Moment moment = desk.recording.moment();
            const std::string tree = desk.recording.tree(point);
            desk.phone.touch(Screen::Phase::Began, point.x, point.y);
            desk.recording.note([&](FlowRecorder& recorder) { recorder.fingerDown(moment, point, tree); });
        } else if (phase == "moved") {
            desk.phone.touch(Screen::Phase::Moved, point.x, point.y);
            desk.recording.note([&](FlowRecorder& recorder) { recorder.fingerMoved(point); });
        } else if (phase == "ended") {
            const Moment moment = desk.recording.moment();
            desk.phone.touch(Screen::Phase::Ended, point.x, point.y);
            desk.recording.note([&](FlowRecorder& recorder) { recorder.fingerUp(moment, point); });
        } else {
            desk.phone.touch(Screen::Phase::Cancelled, point.x, point.y);
            desk.recording.note([](FlowRecorder& recorder) { recorder.fingerCancelled(); });
        }
    } catch (...) {
        desk.hands.letGo(page);
        throw;
    }
    if (phase == "ended" || phase == "cancelled") {
        desk.hands.letGo(page);
        desk.phone.announce();
    }
    return json::object();
}

json type(PageDesk& desk, const json& body) {
    const std::string text = textIn(body, "text");
    act(
        desk, [&] { desk.phone.type(text); },
        [&](FlowRecorder& recorder, const Moment& moment) { recorder.type(moment, text); });
    return json::object();
}

json key(PageDesk& desk, const json& body) {
    const std::string name = wordIn(body, "key", {"enter", "backspace", "delete", "left", "right"});
    act(
        desk, [&] { desk.phone.key(name); },
        [&](FlowRecorder& recorder, const Moment& moment) { recorder.key(moment, name); });
    return json::object();
}

json paste(PageDesk& desk, const json& body) {
    const std::string text = textIn(body, "text");
    const auto perform = [&] {
        desk.phone.setClipboard(text);
        desk.phone.pasteText();
    };
    act(desk, perform, [&](FlowRecorder& recorder, const Moment& moment) { recorder.paste(moment, text); });
    return json::object();
}

json call(PageDesk& desk, const json& body) {
    const std::string action = wordIn(body, "action", {"call", "accept", "hold", "cancel"});
    const std::string number = action == "call" ? textIn(body, "number") : "";
    act(
        desk, [&] { desk.phone.phoneCall(number, action); },
        [&](FlowRecorder& recorder, const Moment& moment) { recorder.call(moment, action, number); });
    return json::object();
}

json orientation(PageDesk& desk, const json& body) {
    const std::string name = wordIn(body, "orientation", {orientationNames.begin(), orientationNames.end()});
    act(
        desk, [&] { desk.phone.setOrientation(name); },
        [&](FlowRecorder& recorder, const Moment& moment) { recorder.turn(moment, name); });
    return json::object();
}

json clock(PageDesk& desk, const json& body) {
    if (!body.contains("localTime")) {
        if (desk.recording.isOn()) {
            throw PageRefusal("the clock stands while a flow is recorded; set it, or stop recording first");
        }
        desk.phone.chooseClock(std::nullopt);
        return json::object();
    }
    const std::string local = textIn(body, "localTime");
    const std::string zone = desk.phone.status().settings.zone;
    const auto moment = momentOf(local, zone);
    if (!moment) {
        throw PageRefusal("clocks in " + zone + " never show \"" + local + "\"; write it like 2026-03-05T14:37:12");
    }
    act(
        desk, [&] { desk.phone.chooseClock(moment); },
        [&](FlowRecorder& recorder, const Moment& at) { recorder.setClock(at, local); });
    return json::object();
}

void refuseWhile(bool busy, const char* what) {
    if (busy) {
        throw PageRefusal(what);
    }
}

json settings(PageDesk& desk, const json& body) {
    refuseWhile(desk.recording.isOn(), "a flow is of one device, application and language; stop recording first");
    refuseWhile(desk.player.state().at("running"), "a flow is being played; stop it first");
    PhoneOptions options;
    for (const PhoneOption& option : phoneOptions) {
        const std::string name(option.name);
        if (body.contains(name)) {
            options.*option.value = textIn(body, name.c_str());
        }
    }
    options = completed(options, desk.phone.status().settings);
    for (const PhoneOption& option : phoneOptions) {
        auto& value = options.*option.value;
        if (value && value->empty()) {
            value.reset(); // the choice of nothing in particular
        } else if (const auto wrong = value ? option.whatIsWrongWith(*value) : std::nullopt) {
            throw PageRefusal(*wrong);
        }
    }
    desk.phone.launch(launchSettings(options, {}));
    return json::object();
}

json preferences(PageDesk& desk, const json& body) {
    const std::string name = textIn(body, "key");
    const auto switches = settingsSwitches(desk.phone.root());
    if (std::none_of(switches.begin(), switches.end(), [&](const auto& one) { return one.key == name; })) {
        throw PageRefusal("the settings have no switch \"" + name + "\"");
    }
    if (!body.contains("on") || !body.at("on").is_boolean()) {
        throw PageRefusal("\"on\" has to be true or false");
    }
    const bool value = body.at("on");
    act(
        desk, [&] { writePreferences(desk.phone.root(), {{{name, value}}}); },
        [&](FlowRecorder& recorder, const Moment& moment) { recorder.setSwitch(moment, name, value); });
    return json::object();
}

json permissions(PageDesk& desk, const json& body) {
    static const std::map<std::string, Access> known = {
        {"ask", Access::Ask}, {"allow", Access::Allow}, {"deny", Access::Deny}};
    const Access reminders = known.at(wordIn(body, "reminders", {"ask", "allow", "deny"}));
    const Access events = known.at(wordIn(body, "events", {"ask", "allow", "deny"}));
    const auto perform = [&] {
        CalendarFolder(desk.phone.root(), EntityType::Reminder).setAccess(reminders);
        CalendarFolder(desk.phone.root(), EntityType::Event).setAccess(events);
    };
    act(desk, perform,
        [&](FlowRecorder& recorder, const Moment& moment) { recorder.setPermissions(moment, reminders, events); });
    return json::object();
}

json launch(PageDesk& desk, const json&) {
    refuseWhile(desk.player.state().at("running"), "a flow is being played; stop it first");
    act(
        desk, [&] { desk.phone.launch(); },
        [](FlowRecorder& recorder, const Moment& moment) { recorder.launch(moment); });
    return json::object();
}

json record(PageDesk& desk, const json& body) {
    refuseWhile(desk.player.state().at("running"), "a flow is being played; stop it first");
    const std::lock_guard lock(desk.acting);
    wordIn(body, "action", {"start", "stop"}) == "start" ? desk.recording.start() : desk.recording.stop();
    return json::object();
}

json play(PageDesk& desk, const json& body) {
    refuseWhile(desk.recording.isOn(), "stop recording before a flow is played");
    return desk.player.play(textIn(body, "text"), body.contains("name") ? textIn(body, "name") : "flow");
}

json stopPlay(PageDesk& desk, const json&) {
    desk.player.cancel();
    return json::object();
}

using Command = json (*)(PageDesk&, const json&);
const std::map<std::string, Command>& commandTable() {
    static const std::map<std::string, Command> all = {{"touch", touch},
                                                       {"type", type},
                                                       {"key", key},
                                                       {"paste", paste},
                                                       {"call", call},
                                                       {"orientation", orientation},
                                                       {"clock", clock},
                                                       {"settings", settings},
                                                       {"preferences", preferences},
                                                       {"launch", launch},
                                                       {"permissions", permissions},
                                                       {"record", record},
                                                       {"play", play},
                                                       {"stop-play", stopPlay}};
    return all;
}

} // namespace

bool isPageCommand(const std::string& name) { return commandTable().contains(name); }

json performPageCommand(PageDesk& desk, const std::string& name, const json& body) {
    if (!body.is_object()) {
        throw PageRefusal("a command's body is a JSON object");
    }
    return commandTable().at(name)(desk, body);
}

} // namespace phone
