#include "phone/flow/LocalTime.h"

#include "phone/flow/EnvironmentLock.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <regex>

namespace phone {

namespace {

constexpr const char* zoneFolder = "/usr/share/zoneinfo";

/// The process's time zone for a scope.
class Zone {
public:
    explicit Zone(const std::string& name) {
        if (const char* before = std::getenv("TZ")) {
            _before = before;
        }
        setenv("TZ", name.c_str(), 1);
        tzset();
    }
    ~Zone() {
        if (_before) {
            setenv("TZ", _before->c_str(), 1);
        } else {
            unsetenv("TZ");
        }
        tzset();
    }
    Zone(const Zone&) = delete;
    Zone& operator=(const Zone&) = delete;

private:
    EnvironmentLock _lock;
    std::optional<std::string> _before;
};

bool sameFields(const std::tm& a, const std::tm& b) {
    return a.tm_year == b.tm_year && a.tm_mon == b.tm_mon && a.tm_mday == b.tm_mday && a.tm_hour == b.tm_hour &&
           a.tm_min == b.tm_min && a.tm_sec == b.tm_sec;
}

} // namespace

std::optional<std::tm> localFields(const std::string& text) {
    static const std::regex shape(R"((\d{4})-(\d\d)-(\d\d)T(\d\d):(\d\d)(?::(\d\d))?)");
    std::smatch found;
    if (!std::regex_match(text, found, shape)) {
        return std::nullopt;
    }
    const auto number = [&](int group) { return found[group].matched ? std::stoi(found[group]) : 0; };
    std::tm time{};
    time.tm_year = number(1) - 1900;
    time.tm_mon = number(2) - 1;
    time.tm_mday = number(3);
    time.tm_hour = number(4);
    time.tm_min = number(5);
    time.tm_sec = number(6);
    std::tm normal = time;
    timegm(&normal); // moves fields that are out of range
    return sameFields(time, normal) ? std::optional(time) : std::nullopt;
}

bool isZone(const std::string& name) {
    if (name == "UTC") {
        return true;
    }
    if (name.empty() || name.front() == '/' || name.find("..") != std::string::npos) {
        return false;
    }
    const auto path = std::filesystem::path(zoneFolder) / name;
    std::array<char, 4> magic{};
    std::error_code ignored;
    return std::filesystem::is_regular_file(path, ignored) &&
           std::ifstream(path, std::ios::binary).read(magic.data(), magic.size()) &&
           std::string_view(magic.data(), magic.size()) == "TZif";
}

bool isLocalTime(const std::string& text) { return localFields(text).has_value(); }

std::optional<double> momentOf(const std::string& localTime, const std::string& zone) {
    const auto wanted = localFields(localTime);
    if (!wanted) {
        return std::nullopt;
    }
    const Zone scope(zone);
    for (int summer : {1, 0, -1}) { // summer time first: it is the earlier one of an hour that comes twice
        std::tm time = *wanted;
        time.tm_isdst = summer;
        const std::time_t moment = std::mktime(&time);
        std::tm shown{};
        if (localtime_r(&moment, &shown) && sameFields(shown, *wanted)) {
            return static_cast<double>(moment);
        }
    }
    return std::nullopt;
}

std::string iso8601(double moment, const std::string& zone) {
    const Zone scope(zone);
    const auto seconds = static_cast<std::time_t>(std::floor(moment));
    std::tm shown{};
    localtime_r(&seconds, &shown);
    const long minutes = std::labs(shown.tm_gmtoff) / 60;
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02d%c%02ld:%02ld", shown.tm_year + 1900,
                  shown.tm_mon + 1, shown.tm_mday, shown.tm_hour, shown.tm_min, shown.tm_sec,
                  shown.tm_gmtoff < 0 ? '-' : '+', minutes / 60, minutes % 60);
    return text.data();
}

} // namespace phone
