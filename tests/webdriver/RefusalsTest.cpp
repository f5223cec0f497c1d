// What each route and each command refuses of what it is given.

#include "phone/webdriver/Routes.h"
#include "tests/webdriver/LiveSession.h"

#include <set>

using namespace phone;
using namespace phone::webdriver;

namespace {

struct Refused {
    const char* path; // of a route; {label} is an element that takes no text, {hidden} one that nothing reaches
    json body;
    const char* error;
};

const json point = {{"x", 1}, {"y", 1}};
const json far = {{"x", 1}, {"y", 5000}};

std::vector<Refused> refusedBodies() {
    const char* argument = "invalid argument";
    const char* selector = "invalid selector";
    const char* state = "invalid element state";
    const char* beyond = "invalid coordinates";
    return {
        {"timeouts", {{"implicit", -1}}, argument},
        {"timeouts", {{"implicit", "soon"}}, argument},
        {"appium/settings", json::object(), argument},
        {"appium/settings", {{"settings", {{"defaultAlertAction", "maybe"}}}}, argument},
        {"appium/settings", {{"settings", {{"waitForIdleTimeout", "long"}}}}, argument},
        {"context", {{"name", "WEBVIEW_1"}}, argument},
        {"context", json::object(), argument},
        {"execute", json::object(), argument},
        {"execute/sync", json::object(), argument},
        {"execute/sync", {{"script", "mobile: tap"}, {"args", 5}}, argument},
        {"execute/sync", {{"script", "mobile: tap"}, {"args", {5}}}, argument},
        {"execute/sync", {{"script", "/* isDisplayed */"}, {"args", {{{"a", 1}}}}}, argument},
        {"execute/sync", {{"script", "mobile: "}, {"args", json::array()}}, "unknown command"},

        {"element", json::object(), argument},
        {"element", {{"using", "id"}}, argument},
        {"element", {{"using", "tag name"}, {"value", "x"}}, argument},
        {"element", {{"using", "xpath"}, {"value", "//["}}, selector},
        {"element", {{"using", "predicate string"}, {"value", "label =="}}, selector},
        {"element", {{"using", "class chain"}, {"value", "**/"}}, selector},
        {"element", {{"using", "css selector"}, {"value", "a > b"}}, selector},
        {"element", {{"using", "id"}, {"value", "no such thing"}}, "no such element"},
        {"elements", {{"using", 5}, {"value", "x"}}, argument},
        {"element/{label}/element", {{"using", "id"}}, argument},
        {"element/{label}/elements", {{"value", "x"}}, argument},

        {"element/{hidden}/click", json::object(), state},
        {"element/{label}/clear", json::object(), state},
        {"element/{label}/value", {{"text", "x"}}, state},
        {"element/{label}/value", json::object(), argument},
        {"element/{label}/value", {{"value", {1, 2}}}, argument},
        {"actions", json::object(), argument},
        {"actions", {{"actions", 5}}, argument},
        {"wda/keys", json::object(), argument},
        {"wda/keys", {{"value", {"x"}}}, state},                              // nothing is being edited
        {"wda/keys", {{"value", {"\xEE\x80\x8C"}}}, "unsupported operation"}, // Escape
        {"wda/tap", {{"x", 1}}, argument},
        {"wda/tap", far, beyond},
        {"wda/doubleTap", far, beyond},
        {"wda/doubleTap", json::object(), argument},
        {"wda/touchAndHold", {{"x", 1}, {"y", 1}, {"duration", 61}}, argument},
        {"wda/touchAndHold", far, beyond},
        {"wda/swipe", json::object(), argument},
        {"wda/swipe", {{"direction", "sideways"}}, argument},
        {"wda/scroll", {{"direction", "sideways"}}, argument},
        {"wda/scroll", json::object(), argument},
        {"wda/dragfromtoforduration", point, argument},
        {"wda/dragfromtoforduration", {{"fromX", 1}, {"fromY", 1}, {"toX", 1}, {"toY", 5000}}, beyond},
        {"wda/dragfromtoforduration", {{"fromX", 1}, {"fromY", 1}, {"toX", 1}, {"toY", 1}, {"duration", -1}}, argument},
        {"wda/element/{hidden}/tap", json::object(), state},
        {"wda/element/{hidden}/doubleTap", json::object(), state},
        {"wda/element/{hidden}/touchAndHold", json::object(), state},
        {"wda/element/{label}/touchAndHold", {{"duration", "long"}}, argument},
        {"wda/element/{label}/swipe", json::object(), argument},
        {"wda/element/{label}/scroll", json::object(), argument},
        {"wda/element/{label}/dragfromtoforduration", json::object(), argument},
        {"wda/pickerwheel/{label}/select", json::object(), argument},
        {"wda/pickerwheel/{label}/select", {{"order", "around"}}, argument},

        {"orientation", {{"orientation", "SIDEWAYS"}}, argument},
        {"orientation", json::object(), argument},
        {"rotation", {{"z", 45}}, argument},
        {"rotation", {{"x", 1}, {"y", 0}, {"z", 90}}, argument},
        {"alert/accept", json::object(), "no such alert"},
        {"alert/dismiss", json::object(), "no such alert"},
        {"appium/device/hide_keyboard", json::object(), state},
        {"wda/keyboard/dismiss", json::object(), state},
        {"wda/setPasteboard", json::object(), argument},
        {"wda/setPasteboard", {{"content", "§"}}, argument},
        {"wda/setPasteboard", {{"content", "eA=="}, {"contentType", "image"}}, argument},

        {"appium/device/activate_app", {{"appId", "com.example.none"}}, argument},
        {"appium/device/activate_app", {{"appId", 5}}, argument},
        {"appium/device/terminate_app", {{"appId", 5}}, argument},
        {"appium/device/app_state", {{"appId", 5}}, argument},
        {"wda/apps/launch", {{"bundleId", "com.example.none"}}, argument},
        {"wda/apps/activate", {{"bundleId", "com.example.none"}}, argument},
        {"wda/apps/terminate", {{"bundleId", 5}}, argument},
        {"wda/apps/state", {{"bundleId", 5}}, argument},
    };
}

struct RefusedCommand {
    const char* name;
    json arguments;
    const char* error;
};

std::vector<RefusedCommand> refusedCommands() {
    const char* argument = "invalid argument";
    return {
        {"gsmCall", {{"action", "sing"}}, argument},
        {"gsmCall", {{"action", "call"}}, argument},
        {"gsmCall", {{"action", "accept"}}, argument}, // nobody calls
        {"setClock", {{"localTime", "noon"}}, argument},
        {"setClock", {{"localTime", "2026-03-29T02:30:00"}}, argument}, // clocks go past it
        {"setPermission", json::object(), argument},
        {"setPermission", {{"access", {{"camera", "yes"}}}}, argument},
        {"setPermission", {{"access", {{"reminders", "perhaps"}}}}, argument},
        {"resetPermission", {{"service", "camera"}}, argument},
        {"resetPermission", json::object(), argument},
        {"setPreferences", json::object(), argument},
        {"setPreferences", {{"values", {{"SwitchCell1", json::array()}}}}, argument},
        {"source", {{"format", "yaml"}}, argument},
        {"alert", {{"action", "ignore"}}, argument},
        {"selectPickerWheelValue", {{"order", "next"}}, "no such element"},
        {"tap", {{"elementId", 5}}, argument},
        {"scroll", {{"toVisible", "yes"}}, argument},
    };
}

class RefusalsTest : public LiveSession {
protected:
    std::string pathOf(std::string path) {
        const auto put = [&](const std::string& mark, const std::string& element) {
            if (const auto at = path.find(mark); at != std::string::npos) {
                path.replace(at, mark.size(), element);
            }
        };
        put("{label}", label);
        put("{hidden}", hidden);
        return session + "/" + path;
    }

    std::string label;
    std::string hidden;
};

bool fits(const Route& route, const std::string& path) {
    Call call;
    return std::string(route.method) == "POST" && matches(route, pathParts(path), call);
}

} // namespace

TEST_F(RefusalsTest, RoutesRefuseWhatTheyCannotUse) {
    begin();
    label = pathParts(find("accessibility id", "No call")).back();
    hidden = pathParts(find("class name", "XCUIElementTypeApplication")).back();

    for (const Refused& refused : refusedBodies()) {
        if (std::string(refused.path).find("{hidden}") == std::string::npos) {
            EXPECT_EQ(error("POST", pathOf(refused.path), refused.body), refused.error)
                << refused.path << " " << refused.body;
        }
    }
}

TEST_F(RefusalsTest, RoutesRefuseElementsThatNothingReaches) {
    openSheet();
    label = pathParts(find("accessibility id", "Note")).back();
    hidden = pathParts(find("accessibility id", "mute")).back(); // behind the sheet

    for (const Refused& refused : refusedBodies()) {
        if (std::string(refused.path).find("{hidden}") != std::string::npos) {
            EXPECT_EQ(error("POST", pathOf(refused.path), refused.body), refused.error)
                << refused.path << " " << refused.body;
        }
    }
}

TEST_F(RefusalsTest, EveryRouteThatTakesSomethingIsAmongThem) {
    const auto all = refusedBodies();
    // These take nothing that could be wrong.
    const std::set<std::string> without = {"wda/getPasteboard", "wda/unlock"};

    for (const Route& route : routes()) {
        const bool counts =
            std::string(route.method) == "POST" && route.command != unsupported && !without.contains(route.path);
        const bool is = std::any_of(all.begin(), all.end(), [&](const Refused& one) { return fits(route, one.path); });
        EXPECT_EQ(is, counts) << route.path;
    }
}

TEST_F(RefusalsTest, CommandsRefuseWhatTheyCannotUse) {
    begin();

    for (const RefusedCommand& refused : refusedCommands()) {
        EXPECT_EQ(mobileError(refused.name, refused.arguments), refused.error)
            << refused.name << " " << refused.arguments;
    }
}

TEST_F(RefusalsTest, QuestionsRefuseWhatThereIsNot) {
    begin();
    const std::string title = find("accessibility id", "No call");

    EXPECT_EQ(error("GET", session + "/alert/text"), "no such alert");
    EXPECT_EQ(error("GET", session + "/wda/alert/buttons"), "no such alert");
    EXPECT_EQ(error("GET", session + "/element/active"), "no such element");
    EXPECT_EQ(error("GET", session + title + "/attribute/colour"), "invalid argument");
}
