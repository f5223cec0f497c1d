#include "phone/flow/PhoneOptions.h"

#include "phone/device/Profile.h"
#include "phone/flow/LocalTime.h"

#include <regex>

namespace phone {

namespace {

bool isLanguageTag(const std::string& text) {
    static const std::regex tag("[A-Za-z]{2,8}([-_][A-Za-z0-9]{1,8})*");
    return text.size() <= 64 && std::regex_match(text, tag);
}

} // namespace

std::optional<std::string> whatIsWrongWith(const std::string& key, const std::string& value) {
    if (key == "device" && !deviceNamed(value)) {
        return "unknown device `" + value + "`; known: iphone4, iphone5, ipad, other";
    }
    if (key == "app" && !applicationNamed(value)) {
        return "unknown app `" + value + "`; known: newer, older";
    }
    if (key == "language" && !isLanguageTag(value)) {
        return "`" + value + "` is no language tag; write it like de or pt-BR";
    }
    if (key == "now" && !isLocalTime(value)) {
        return "`" + value + "` is no local time; write it like 2026-03-05T14:37:12";
    }
    if (key == "zone" && !isZone(value)) {
        return "unknown time zone `" + value + "`; write it like Europe/Berlin";
    }
    return std::nullopt;
}

LaunchSettings launchSettings(const PhoneOptions& first, const PhoneOptions& second) {
    const auto chosen = [&](std::optional<std::string> PhoneOptions::* option, std::string_view otherwise) {
        return (first.*option).value_or((second.*option).value_or(std::string(otherwise)));
    };
    LaunchSettings settings;
    settings.device = chosen(&PhoneOptions::device, "iphone5");
    settings.application = chosen(&PhoneOptions::application, deviceNamed(settings.device)->application);
    settings.language = chosen(&PhoneOptions::language, "en");
    settings.zone = chosen(&PhoneOptions::zone, "UTC");
    return settings;
}

} // namespace phone
