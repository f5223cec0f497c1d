#include "phone/webdriver/Session.h"

#include "phone/device/Profile.h"
#include "phone/device/Region.h"
#include "phone/webdriver/Commands.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace phone::webdriver {

namespace {

AlertAnswer alertAnswerNamed(const std::string& name) {
    if (name.empty()) {
        return AlertAnswer::None;
    }
    if (name != "accept" && name != "dismiss") {
        throw Refusal(Error::InvalidArgument, "defaultAlertAction has to be \"accept\", \"dismiss\" or \"\"");
    }
    return name == "accept" ? AlertAnswer::Accept : AlertAnswer::Dismiss;
}

/// The numbers of a reference: the launch in which it was given, and the view's identity. nullopt for another text.
std::optional<std::array<std::uint64_t, 2>> numbersIn(const std::string& reference) {
    std::array<std::uint64_t, 2> numbers{};
    const char* at = reference.data();
    const char* const end = at + reference.size();
    for (std::size_t index = 0; index < numbers.size(); ++index) {
        if (at == end || *at++ != (index == 0 ? 'E' : '-')) {
            return std::nullopt;
        }
        const auto read = std::from_chars(at, end, numbers[index]);
        if (read.ec != std::errc()) {
            return std::nullopt;
        }
        at = read.ptr;
    }
    return at == end ? std::optional(numbers) : std::nullopt;
}

} // namespace

AccessibilityTree Session::tree() {
    if (const AlertAnswer answer = alertAnswer(); answer != AlertAnswer::None) {
        answerAlert(*this, answer);
    }
    return seen();
}

AccessibilityTree Session::seen() const { return {_phone.tree(true), applicationName}; }

std::string Session::referenceTo(const Element& element, std::uint64_t launch) {
    return "E" + std::to_string(launch) + "-" + std::to_string(element.identity());
}

Element Session::element(const AccessibilityTree& tree, const std::string& reference) const {
    const auto numbers = numbersIn(reference);
    if (!numbers) {
        throw Refusal(Error::NoSuchElement, "\"" + reference + "\" is no element that was ever found; find it first");
    }
    const auto [launch, identity] = *numbers;
    const Element found = launch == _phone.status().launch ? tree.byIdentity(identity) : Element();
    if (!found) {
        throw Refusal(Error::StaleElementReference, "the element is no longer on the screen; find it again");
    }
    return found;
}

Session::Timeouts Session::timeouts() const {
    const std::lock_guard lock(_mutex);
    return _timeouts;
}

void Session::setTimeouts(const Timeouts& timeouts) {
    const std::lock_guard lock(_mutex);
    _timeouts = timeouts;
}

json Session::settings() const {
    const std::lock_guard lock(_mutex);
    return _settings;
}

void Session::change(const json& settings) {
    if (!settings.is_object()) {
        throw Refusal(Error::InvalidArgument, "settings are an object of names and values");
    }
    if (settings.contains("defaultAlertAction")) {
        const json& action = settings.at("defaultAlertAction");
        alertAnswerNamed(action.is_string() ? action.get<std::string>() : action.is_null() ? "" : "?");
    }
    const bool waits = settings.contains("waitForIdleTimeout");
    if (waits && !(settings.at("waitForIdleTimeout").is_number() && settings.at("waitForIdleTimeout") >= 0)) {
        throw Refusal(Error::InvalidArgument, "waitForIdleTimeout has to be a number of seconds, 0 for not waiting");
    }
    const std::lock_guard lock(_mutex);
    _settings.update(settings);
}

json Session::capabilities() const {
    const auto status = _phone.status();
    const auto device = deviceNamed(status.settings.device);
    const auto application = applicationNamed(status.settings.application);
    const LaunchSettings& settings = status.settings;
    json all = {{"platformName", "iOS"},
                {"automationName", "XCUITest"},
                {"platformVersion", systemNamed(settings.system)->version},
                {"deviceName", device->model},
                {"bundleId", application->bundle},
                {"language", settings.language},
                {"locale", localeIdentifier(settings.language, settings.region)},
                {"timeZone", settings.zone}};
    if (!settings.hours.empty()) {
        all["hours"] = settings.hours;
    }
    return all;
}

std::optional<Point> Session::pointer() const {
    const std::lock_guard lock(_mutex);
    return _pointer;
}

void Session::setPointer(const std::optional<Point>& at) {
    const std::lock_guard lock(_mutex);
    _pointer = at;
}

void Session::settle() const {
    if (const double longest = settings().value("waitForIdleTimeout", 0.0); longest > 0) {
        _phone.rest(longest);
    }
}

AlertAnswer Session::alertAnswer() const {
    const json settings = this->settings();
    const json& action = settings.at("defaultAlertAction");
    return alertAnswerNamed(action.is_string() ? action.get<std::string>() : "");
}

} // namespace phone::webdriver
