#include "phone/webdriver/Capabilities.h"

#include "phone/device/Profile.h"
#include "phone/elements/Refusal.h"
#include "phone/webdriver/Call.h"

#include <array>

namespace phone::webdriver {

namespace {

using nlohmann::json;

constexpr std::string_view vendor = "appium:";

/// What every match has to have, with the first of the alternatives; names without the vendor's prefix.
json merged(const json& body) {
    if (!body.contains("capabilities") || !body.at("capabilities").is_object()) {
        throw Refusal(Error::SessionNotCreated, "the request has no \"capabilities\"; an empty object will do");
    }
    const json& given = body.at("capabilities");
    json all = json::object();
    const auto add = [&](const json& some) {
        if (!some.is_object()) {
            throw Refusal(Error::InvalidArgument, "alwaysMatch is an object, firstMatch a list of objects");
        }
        for (const auto& [name, value] : some.items()) {
            all[name.starts_with(vendor) ? name.substr(vendor.size()) : name] = value;
        }
    };
    if (given.contains("alwaysMatch")) {
        add(given.at("alwaysMatch"));
    }
    if (given.contains("firstMatch")) {
        if (!given.at("firstMatch").is_array()) {
            throw Refusal(Error::InvalidArgument, "firstMatch is a list of objects");
        }
        if (!given.at("firstMatch").empty()) {
            add(given.at("firstMatch").front());
        }
    }
    return all;
}

/// The language in `-AppleLanguages (de)`, as applications are told of it; "" where the arguments name none.
std::string languageIn(const json& arguments) {
    for (std::size_t index = 0; arguments.is_array() && index + 1 < arguments.size(); ++index) {
        if (arguments[index] == "-AppleLanguages" && arguments[index + 1].is_string()) {
            const std::string list = arguments[index + 1];
            const auto start = list.find_first_not_of("( \"");
            const auto end = list.find_first_of("), \"", start == std::string::npos ? 0 : start);
            return start == std::string::npos ? "" : list.substr(start, end - start);
        }
    }
    return "";
}

} // namespace

Capabilities readCapabilities(const json& body, const LaunchSettings& now) {
    Call given;
    given.body = merged(body);
    if (given.has("platformName") && given.text("platformName") != "iOS" && given.text("platformName") != "ios") {
        throw Refusal(Error::SessionNotCreated, "the phone's platformName is iOS, not " + given.text("platformName"));
    }

    Capabilities wanted;
    wanted.phone = now;
    if (given.has("bundleId")) {
        const auto application = applicationOfBundle(given.text("bundleId"));
        if (!application) {
            throw Refusal(Error::SessionNotCreated, "no application \"" + given.text("bundleId") + "\" is installed");
        }
        wanted.phone.application = application->name;
        wanted.startsAfresh = given.flag("forceAppLaunch", true);
    }
    std::string language = given.text("language", "");
    if (given.has("arguments")) {
        language = languageIn(given.body.at("arguments"));
    } else if (given.has("processArguments") && given.body.at("processArguments").is_object()) {
        language = languageIn(given.body.at("processArguments").value("args", json::array()));
    }
    if (!language.empty()) {
        if (const auto wrong = whatIsWrongWith("language", language)) {
            throw Refusal(Error::InvalidArgument, *wrong);
        }
        wanted.phone.language = language;
    }
    wanted.launchesOther = wanted.phone.language != now.language || wanted.phone.application != now.application;

    for (const char* name : {"defaultAlertAction", "waitForIdleTimeout"}) {
        if (given.has(name)) {
            wanted.settings[name] = given.body.at(name);
        }
    }
    if (given.flag("autoAcceptAlerts", false)) {
        wanted.settings["defaultAlertAction"] = "accept";
    } else if (given.flag("autoDismissAlerts", false)) {
        wanted.settings["defaultAlertAction"] = "dismiss";
    }
    if (given.has("shouldWaitForQuiescence") && !given.flag("shouldWaitForQuiescence", true)) {
        wanted.settings["waitForIdleTimeout"] = 0;
    }
    return wanted;
}

} // namespace phone::webdriver
