#include "phone/device/Profile.h"

#include <algorithm>
#include <iterator>

namespace phone {

namespace {

constexpr DeviceProfile devices[] = {
    {.name = "iphone4", .width = 320, .height = 480, .model = "iPhone", .application = "older"},
    {.name = "iphone5", .width = 320, .height = 568, .model = "iPhone", .application = "newer"},
    {.name = "ipad", .width = 768, .height = 1024, .idiom = 1, .model = "iPad", .application = "newer"},
    {.name = "other", .width = 320, .height = 568, .idiom = 2, .model = "iPod touch", .application = "newer"},
};

constexpr SystemProfile systems[] = {
    {.name = usualSystem, .number = 7, .version = "7.0", .coreFoundation = 847.20},
    {.name = "8", .number = 8, .version = "8.0", .coreFoundation = 1140.10},
};

constexpr ApplicationProfile applications[] = {
    {.name = "newer", .bundle = "com.apple.InCallService", .executable = "InCallService"},
    {.name = "older", .bundle = "com.apple.mobilephone", .executable = "MobilePhone"},
};

template <class Profile, std::size_t N>
std::optional<Profile> named(const Profile (&all)[N], std::string_view name) {
    for (const Profile& one : all) {
        if (one.name == name) {
            return one;
        }
    }
    return std::nullopt;
}

template <class Profile, std::size_t N>
std::string names(const Profile (&all)[N]) {
    std::string written;
    for (const Profile& one : all) {
        written += (written.empty() ? "" : ", ") + std::string(one.name);
    }
    return written;
}

} // namespace

std::optional<DeviceProfile> deviceNamed(std::string_view name) { return named(devices, name); }

std::optional<SystemProfile> systemNamed(std::string_view name) { return named(systems, name); }

std::optional<ApplicationProfile> applicationNamed(std::string_view name) { return named(applications, name); }

std::string deviceNames() { return names(devices); }

std::string systemNames() { return names(systems); }

std::string applicationNames() { return names(applications); }

std::optional<ApplicationProfile> applicationOfBundle(std::string_view bundle) {
    const auto found = std::find_if(std::begin(applications), std::end(applications),
                                    [&](const ApplicationProfile& one) { return one.bundle == bundle; });
    return found == std::end(applications) ? std::nullopt : std::optional(*found);
}

} // namespace phone
