#include "phone/packages/PhonePackages.h"

#include "phone/device/Profile.h"

#include <algorithm>
#include <array>

namespace phone {

namespace {

constexpr std::array<std::string_view, 13> folders = {"/Applications",
                                                      "/Library",
                                                      "/Library/MobileSubstrate",
                                                      "/Library/MobileSubstrate/DynamicLibraries",
                                                      "/Library/PreferenceLoader",
                                                      "/Library/PreferenceLoader/Preferences",
                                                      "/System",
                                                      "/System/Library",
                                                      "/var",
                                                      "/var/mobile",
                                                      "/var/mobile/Library",
                                                      "/var/mobile/Library/Phone",
                                                      "/var/mobile/Library/Preferences"};

} // namespace

const std::vector<PackageFields>& phonePackages() {
    static const auto* all = [] {
        auto* packages = new std::vector<PackageFields>;
        // The system's own version is a package to others, as on a device.
        for (const auto& [name, version] : {std::pair{"firmware", std::string(systemNamed(usualSystem)->version)},
                                            {"mobilesubstrate", "0.9.5000"},
                                            {"preferenceloader", "2.2.2"}}) {
            ControlFields fields;
            fields.set("Package", name);
            fields.set("Version", version);
            packages->push_back(PackageFields::parse(fields));
        }
        return packages;
    }();
    return *all;
}

bool isPhoneFolder(std::string_view path) { return std::find(folders.begin(), folders.end(), path) != folders.end(); }

} // namespace phone
