#include "phone/webdriver/Routes.h"

#include <algorithm>

namespace phone::webdriver {

const std::vector<Route>& routes() {
    static const std::vector<Route> all = {
        {"GET", "timeouts", timeouts},
        {"POST", "timeouts", setTimeouts},
        {"GET", "appium/settings", settings},
        {"POST", "appium/settings", changeSettings},
        {"GET", "context", context},
        {"POST", "context", setContext},
        {"GET", "contexts", contexts},
        {"POST", "execute", execute},
        {"POST", "execute/sync", execute},

        {"POST", "element", findElement},
        {"POST", "elements", findElements},
        {"GET", "element/active", activeElement},
        {"POST", "element/{element}/element", findElement},
        {"POST", "element/{element}/elements", findElements},
        {"GET", "element/{element}/text", text},
        {"GET", "element/{element}/name", name},
        {"GET", "element/{element}/rect", rect},
        {"GET", "element/{element}/attribute/{name}", attribute},
        {"GET", "element/{element}/property/{name}", attribute},
        {"GET", "element/{element}/displayed", isDisplayed},
        {"GET", "element/{element}/enabled", isEnabled},
        {"GET", "element/{element}/selected", isSelected},
        {"GET", "element/{element}/screenshot", elementScreenshot},
        {"GET", "wda/element/{element}/accessible", isAccessible},

        {"POST", "element/{element}/click", click},
        {"POST", "element/{element}/clear", clear},
        {"POST", "element/{element}/value", sendValue},
        {"POST", "actions", performActions},
        {"DELETE", "actions", releaseActions},
        {"POST", "wda/keys", sendKeys},
        {"POST", "wda/tap", tap},
        {"POST", "wda/doubleTap", doubleTap},
        {"POST", "wda/touchAndHold", touchAndHold},
        {"POST", "wda/swipe", swipe},
        {"POST", "wda/scroll", scroll},
        {"POST", "wda/dragfromtoforduration", dragFromToForDuration},
        {"POST", "wda/element/{element}/tap", tap},
        {"POST", "wda/element/{element}/doubleTap", doubleTap},
        {"POST", "wda/element/{element}/touchAndHold", touchAndHold},
        {"POST", "wda/element/{element}/swipe", swipe},
        {"POST", "wda/element/{element}/scroll", scroll},
        {"POST", "wda/element/{element}/dragfromtoforduration", dragFromToForDuration},
        {"POST", "wda/pickerwheel/{element}/select", selectPickerWheelValue},

        {"GET", "source", source, true},
        {"GET", "screenshot", screenshot, true},
        {"GET", "window/rect", windowRect},
        {"GET", "window/size", windowSize, true},
        {"GET", "window/{window}/size", windowSize},
        {"GET", "wda/screen", screenInfo, true},
        {"GET", "wda/device/info", deviceInfo, true},
        {"GET", "orientation", orientation},
        {"POST", "orientation", setOrientation},
        {"GET", "rotation", rotation},
        {"POST", "rotation", setRotation},

        {"GET", "alert/text", alertText},
        {"POST", "alert/accept", acceptAlert},
        {"POST", "alert/dismiss", dismissAlert},
        {"GET", "wda/alert/buttons", alertButtons},

        {"POST", "appium/device/hide_keyboard", hideKeyboard},
        {"GET", "appium/device/is_keyboard_shown", isKeyboardShown},
        {"POST", "wda/keyboard/dismiss", hideKeyboard},
        {"POST", "wda/setPasteboard", setPasteboard},
        {"POST", "wda/getPasteboard", getPasteboard},

        {"POST", "appium/device/activate_app", activateApp},
        {"POST", "appium/device/terminate_app", terminateApp},
        {"POST", "appium/device/app_state", queryAppState},
        {"POST", "wda/apps/launch", launchApp},
        {"POST", "wda/apps/activate", activateApp},
        {"POST", "wda/apps/terminate", terminateApp},
        {"POST", "wda/apps/state", queryAppState},
        {"GET", "wda/apps/list", listApps},
        {"GET", "wda/activeAppInfo", activeAppInfo, true},
        {"GET", "wda/locked", isLocked, true},
        {"POST", "wda/unlock", unlock, true},

        {"POST", "back", unsupported},
        {"GET", "window", unsupported},
        {"POST", "url", unsupported},
        {"GET", "url", unsupported},
        {"POST", "wda/lock", unsupported},
        {"POST", "wda/homescreen", unsupported},
        {"POST", "wda/deactivateApp", unsupported},
        {"POST", "wda/pressButton", unsupported},
        {"POST", "appium/start_recording_screen", unsupported},
        {"POST", "appium/stop_recording_screen", unsupported},
    };
    return all;
}

std::vector<std::string> pathParts(const std::string& path) {
    std::vector<std::string> parts;
    for (std::size_t start = 0; start < path.size();) {
        const std::size_t end = std::min(path.find('/', start), path.size());
        if (end > start) {
            parts.push_back(path.substr(start, end - start));
        }
        start = end + 1;
    }
    return parts;
}

bool matches(const Route& route, const std::vector<std::string>& parts, Call& call) {
    const auto& wanted = route.parts;
    if (wanted.size() != parts.size()) {
        return false;
    }
    std::map<std::string, std::string> parameters;
    for (std::size_t index = 0; index < parts.size(); ++index) {
        if (wanted[index].front() == '{') {
            parameters[wanted[index].substr(1, wanted[index].size() - 2)] = parts[index];
        } else if (wanted[index] != parts[index]) {
            return false;
        }
    }
    call.parameters = std::move(parameters);
    return true;
}

} // namespace phone::webdriver
