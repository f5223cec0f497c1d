/// The devices, systems and phone applications that the phone can be.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace phone {

/// One model of device. Sizes are in points, held upright.
struct DeviceProfile {
    std::string_view name; // as the command line gives it
    double width = 0;
    double height = 0;
    double scale = 2; // pixels per point
    long idiom = 0;   // 0 phone, 1 tablet, anything else another device
    bool answersIdiom = true;
    std::string_view model;       // as `UIDevice` answers it
    std::string_view application; // the phone application it runs unless told otherwise

    bool isTablet() const { return idiom == 1; }
};

/// One generation of the system.
struct SystemProfile {
    std::string_view name;    // as the command line gives it
    int number = 0;           // from which on it is that new: 7, 8
    std::string_view version; // as `UIDevice` answers it
    double coreFoundation = 0;
};

/// The system of a phone of which nothing else is said.
inline constexpr std::string_view usualSystem = "7";

/// One phone application.
struct ApplicationProfile {
    std::string_view name;       // "newer", "older"
    std::string_view bundle;     // its bundle identifier
    std::string_view executable; // the basename of its executable
};

/// nullopt for a name that is not known.
std::optional<DeviceProfile> deviceNamed(std::string_view name);
std::optional<SystemProfile> systemNamed(std::string_view name);
std::optional<ApplicationProfile> applicationNamed(std::string_view name);
/// All of them, for whoever has written another: "7, 8".
std::string deviceNames();
std::string systemNames();
std::string applicationNames();
/// By its bundle identifier.
std::optional<ApplicationProfile> applicationOfBundle(std::string_view bundle);

} // namespace phone
