#include "phone/server/PageState.h"

#include "phone/device/Profile.h"
#include "phone/elements/AccessibilityTree.h"
#include "phone/eventkit/CalendarFolder.h"
#include "phone/flow/LocalTime.h"
#include "phone/server/SettingsPane.h"

namespace phone {

using nlohmann::json;

namespace {

const char* nameOf(LivePhone::Life life) {
    switch (life) {
    case LivePhone::Life::Running:
        return "running";
    case LivePhone::Life::Died:
        return "died";
    case LivePhone::Life::Ended:
        return "ended";
    }
}

void collect(const webdriver::Element& element, json& into) {
    const auto point = element.touchPoint();
    if (element.isAccessible() && element.isVisible() && point) {
        const webdriver::Rect rect = element.rect();
        into.push_back({{"identity", element.identity()},
                        {"type", element.type().substr(std::string_view("XCUIElementType").size())},
                        {"label", element.label().value_or("")},
                        {"value", element.value().value_or("")},
                        {"enabled", element.isEnabled()},
                        {"selected", element.isSelected()},
                        {"rect", {rect.x, rect.y, rect.width, rect.height}},
                        {"point", {point->x, point->y}}});
    }
    for (const webdriver::Element& child : element.children()) {
        collect(child, into);
    }
}

} // namespace

json pageState(PageDesk& desk) {
    const LivePhone::Status status = desk.phone.status();
    const LaunchSettings& settings = status.settings;
    const auto profile = deviceNamed(settings.device);
    json state = {{"life", nameOf(status.life)},
                  {"epitaph", status.epitaph},
                  {"launch", status.launch},
                  {"settings",
                   {{"device", settings.device},
                    {"app", settings.application},
                    {"language", settings.language},
                    {"region", settings.region},
                    {"hours", settings.hours},
                    {"system", settings.system},
                    {"zone", settings.zone}}},
                  {"screen", {profile->width, profile->height}},
                  {"clockStands", status.clockStands},
                  {"loader", status.loaderLines},
                  {"recording", {{"on", desk.recording.isOn()}, {"count", desk.recording.count()}}},
                  {"play", desk.player.state()}};
    if (status.life != LivePhone::Life::Running) {
        return state;
    }
    json now = desk.phone.state();
    if (status.clockStands) {
        state["localTime"] = iso8601(now.at("clock"), settings.zone).substr(0, 19);
    }
    state["moving"] = desk.phone.isMoving();
    for (const char* key : {"orientation", "call", "keyboard", "logged"}) {
        state[key] = now.at(key);
    }
    return state;
}

json pageSettings(const PageDesk& desk) {
    const std::string& root = desk.phone.root();
    json switches = json::array();
    for (const SettingsSwitch& one : settingsSwitches(root)) {
        switches.push_back({{"key", one.key}, {"label", one.label}, {"footer", one.footer}, {"on", one.isOn()}});
    }
    return {{"switches", switches},
            {"permissions",
             {{"reminders", phone::nameOf(CalendarFolder(root, EntityType::Reminder).access())},
              {"events", phone::nameOf(CalendarFolder(root, EntityType::Event).access())}}},
            {"languages", libraryLanguages(root)}};
}

json pageElements(LivePhone& phone) {
    const webdriver::AccessibilityTree tree(phone.tree(true), "Phone");
    json all = json::array();
    collect(tree.application(), all);
    return all;
}

} // namespace phone
