#include "phone/flow/PhoneOptions.h"

#include "phone/device/Region.h"
#include "phone/flow/LocalTime.h"

#include <algorithm>
#include <regex>

namespace phone {

namespace {

using Wrong = std::optional<std::string>;

Wrong unless(bool usable, const std::string& what) { return usable ? std::nullopt : Wrong(what); }

bool isLanguageTag(const std::string& text) {
    static const std::regex tag("[A-Za-z]{2,8}([-_][A-Za-z0-9]{1,8})*");
    return text.size() <= 64 && std::regex_match(text, tag);
}

Wrong wrongDevice(const std::string& value) {
    return unless(deviceNamed(value).has_value(), "unknown device `" + value + "`; known: " + deviceNames());
}
Wrong wrongApplication(const std::string& value) {
    return unless(applicationNamed(value).has_value(), "unknown app `" + value + "`; known: " + applicationNames());
}
Wrong wrongLanguage(const std::string& value) {
    return unless(isLanguageTag(value), "`" + value + "` is no language tag; write it like de or pt-BR");
}
Wrong wrongRegion(const std::string& value) {
    return unless(isRegion(value), "`" + value + "` is no region; write it like DE or US");
}
Wrong wrongHours(const std::string& value) {
    return unless(hoursNamed(value).has_value(), "unknown hours `" + value + "`; known: " + hoursNames());
}
Wrong wrongSystem(const std::string& value) {
    return unless(systemNamed(value).has_value(), "unknown system `" + value + "`; known: " + systemNames());
}
Wrong wrongNow(const std::string& value) {
    return unless(isLocalTime(value), "`" + value + "` is no local time; write it like 2026-03-05T14:37:12");
}
Wrong wrongZone(const std::string& value) {
    return unless(isZone(value), "unknown time zone `" + value + "`; write it like Europe/Berlin");
}

} // namespace

const std::array<PhoneOption, 8> phoneOptions = {{{"device", &PhoneOptions::device, wrongDevice},
                                                  {"app", &PhoneOptions::application, wrongApplication},
                                                  {"language", &PhoneOptions::language, wrongLanguage},
                                                  {"region", &PhoneOptions::region, wrongRegion},
                                                  {"hours", &PhoneOptions::hours, wrongHours},
                                                  {"system", &PhoneOptions::system, wrongSystem},
                                                  {"now", &PhoneOptions::now, wrongNow},
                                                  {"zone", &PhoneOptions::zone, wrongZone}}};

std::optional<std::string> whatIsWrongWith(std::string_view option, const std::string& value) {
    const auto found = std::find_if(phoneOptions.begin(), phoneOptions.end(),
                                    [&](const PhoneOption& one) { return one.name == option; });
    return found->whatIsWrongWith(value);
}

LaunchSettings launchSettings(const PhoneOptions& first, const PhoneOptions& second) {
    LaunchSettings settings;
    const auto choose = [&](std::string& into, std::optional<std::string> PhoneOptions::* option) {
        into = (first.*option).value_or((second.*option).value_or(into));
    };
    choose(settings.device, &PhoneOptions::device);
    settings.application = deviceNamed(settings.device)->application;
    choose(settings.application, &PhoneOptions::application);
    choose(settings.language, &PhoneOptions::language);
    choose(settings.region, &PhoneOptions::region);
    choose(settings.hours, &PhoneOptions::hours);
    choose(settings.system, &PhoneOptions::system);
    choose(settings.zone, &PhoneOptions::zone);
    return settings;
}

PhoneOptions optionsFor(const LaunchSettings& settings) {
    const auto said = [](const std::string& value) { return value.empty() ? std::nullopt : std::optional(value); };
    PhoneOptions options;
    options.device = settings.device;
    options.application = settings.application;
    options.language = settings.language;
    options.region = said(settings.region);
    options.hours = said(settings.hours);
    options.system = settings.system;
    options.zone = settings.zone;
    return options;
}

PhoneOptions completed(PhoneOptions options, const LaunchSettings& now) {
    PhoneOptions before = optionsFor(now);
    if (options.device) {
        before.application.reset();
    }
    for (const PhoneOption& option : phoneOptions) {
        if (!(options.*option.value)) {
            options.*option.value = before.*option.value;
        }
    }
    return options;
}

} // namespace phone
