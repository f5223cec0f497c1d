#include "phone/webdriver/MobileCommands.h"

#include <algorithm>
#include <array>

namespace phone::webdriver {

namespace {

struct Entry {
    const char* name;
    json (*command)(Session&, const Call&);
};

constexpr std::array entries = {
    Entry{"tap", tap},
    Entry{"doubleTap", doubleTap},
    Entry{"touchAndHold", touchAndHold},
    Entry{"swipe", swipe},
    Entry{"scroll", scroll},
    Entry{"dragFromToForDuration", dragFromToForDuration},
    Entry{"selectPickerWheelValue", selectPickerWheelValue},
    Entry{"keys", sendKeys},
    Entry{"hideKeyboard", hideKeyboard},
    Entry{"isKeyboardShown", isKeyboardShown},
    Entry{"setPasteboard", setPasteboard},
    Entry{"getPasteboard", getPasteboard},
    // As clients name the same for phones of every make.
    Entry{"setClipboard", setPasteboard},
    Entry{"getClipboard", getPasteboard},
    Entry{"getContexts", describeContexts},
    Entry{"source", source},
    Entry{"deviceScreenInfo", screenInfo},
    Entry{"deviceInfo", deviceInfo},
    Entry{"alert", alert},
    Entry{"launchApp", launchApp},
    Entry{"activateApp", activateApp},
    Entry{"terminateApp", terminateApp},
    Entry{"queryAppState", queryAppState},
    Entry{"activeAppInfo", activeAppInfo},
    Entry{"setPermission", setPermission},
    Entry{"resetPermission", resetPermission},
    Entry{"unlock", unlock},
    Entry{"isLocked", isLocked},
    Entry{"gsmCall", gsmCall},
    Entry{"setClock", setClock},
    Entry{"setPreferences", setPreferences},
    Entry{"lock", unsupported},
    Entry{"pressButton", unsupported},
    Entry{"shake", unsupported},
    Entry{"pinch", unsupported},
    Entry{"backgroundApp", unsupported},
};

} // namespace

json perform(const std::string& name, Session& session, const Call& call) {
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const Entry& one) { return one.name == name; });
    if (found == entries.end()) {
        std::string names;
        for (const Entry& one : entries) {
            if (one.command != unsupported) {
                names += (names.empty() ? "" : ", ") + std::string(one.name);
            }
        }
        throw Refusal(Error::UnknownCommand, "no command \"mobile: " + name + "\"; there are " + names);
    }
    return found->command(session, call);
}

} // namespace phone::webdriver
