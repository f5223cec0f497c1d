#include "phone/macho/Installed.h"

#include "phone/macho/Refusal.h"

namespace phone::macho {

namespace {

constexpr InstalledLibrary installed[] = {coreGraphics, eventKit, foundation, objectRuntime, substrate, system, uiKit};

std::string lastPart(std::string_view path) { return shown(path.substr(path.rfind('/') + 1)); }

} // namespace

std::optional<Version> installedVersion(std::string_view path) {
    for (const InstalledLibrary& library : installed) {
        if (library.path == path) {
            return library.compatible;
        }
    }
    return std::nullopt;
}

// Up to system 11 every dependency is compared, up to 14 those that were built for systems before 12, as hooking
// libraries are, and from 15 none: the phone is as strict as the strictest.
bool serves(Version provided, const Dependency& dependency, std::string_view name) {
    if (provided < dependency.needed && !dependency.isWeak) {
        throw Refusal("Library not loaded: " + shown(dependency.path) + "; Reason: Incompatible library version: " +
                      lastPart(name) + " requires version " + dependency.needed.text() + " or later, but " +
                      lastPart(dependency.path) + " provides version " + provided.text());
    }
    return provided >= dependency.needed;
}

} // namespace phone::macho
