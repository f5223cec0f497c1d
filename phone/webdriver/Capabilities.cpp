#include "phone/webdriver/Capabilities.h"

#include "phone/device/Profile.h"
#include "phone/device/Region.h"
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

/// The first value of `-AppleLanguages (de)` or `-AppleLocale de_AT`, as applications are told of a person's choices;
/// "" where the arguments do not name it.
std::string valueIn(const json& arguments, const char* name) {
    for (std::size_t index = 0; arguments.is_array() && index + 1 < arguments.size(); ++index) {
        if (arguments[index] == name && arguments[index + 1].is_string()) {
            const std::string list = arguments[index + 1];
            const auto start = list.find_first_not_of("( \"");
            const auto end = list.find_first_of("), \"", start == std::string::npos ? 0 : start);
            return start == std::string::npos ? "" : list.substr(start, end - start);
        }
    }
    return "";
}

/// The arguments that the application is to be started with; null where there are none.
json argumentsIn(const Call& given) {
    if (given.has("arguments")) {
        return given.body.at("arguments");
    }
    const json process = given.body.value("processArguments", json());
    return process.is_object() ? process.value("args", json()) : json();
}

void take(std::string& into, std::string_view option, const std::string& value) {
    if (const auto wrong = whatIsWrongWith(option, value)) {
        throw Refusal(Error::InvalidArgument, *wrong);
    }
    into = value;
}

/// What the client says of the person.
void readPerson(const Call& given, LaunchSettings& phone) {
    const json arguments = argumentsIn(given);
    const auto said = [&](const char* capability, const char* argument) {
        const std::string value = valueIn(arguments, argument);
        return value.empty() ? given.text(capability, "") : value;
    };
    if (const std::string language = said("language", "-AppleLanguages"); !language.empty()) {
        take(phone.language, "language", language);
    }
    if (const std::string locale = said("locale", "-AppleLocale"); !locale.empty()) {
        take(phone.region, "region", isRegion(locale) ? locale : regionOf(locale)); // "AT" or "de_AT"
    }
    if (given.has("hours")) {
        const json& hours = given.body.at("hours");
        take(phone.hours, "hours", hours.is_number_integer() ? hours.dump() : given.text("hours"));
    }
}

/// The system of the generation that the client names: "8" and "8.1" alike.
void readSystem(const Call& given, LaunchSettings& phone) {
    const std::string version = given.text("platformVersion");
    const std::string system = version.substr(0, version.find('.'));
    if (const auto wrong = whatIsWrongWith("system", system)) {
        throw Refusal(Error::SessionNotCreated, *wrong);
    }
    phone.system = system;
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
    readPerson(given, wanted.phone);
    if (given.has("platformVersion")) {
        readSystem(given, wanted.phone);
    }
    wanted.launchesOther = wanted.phone != now;

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
