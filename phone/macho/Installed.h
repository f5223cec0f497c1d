/// The libraries of the device that the phone stands for, and whom they serve.
#pragma once

#include "phone/macho/Dependency.h"

#include <optional>

namespace phone::macho {

/// A library by its path, with the compatibility version that it states on devices, on every system that has it.
struct InstalledLibrary {
    std::string_view path;
    Version compatible;
};

inline constexpr InstalledLibrary coreGraphics = {"/System/Library/Frameworks/CoreGraphics.framework/CoreGraphics",
                                                  Version::of(64)};
inline constexpr InstalledLibrary eventKit = {"/System/Library/Frameworks/EventKit.framework/EventKit", Version::of(1)};
inline constexpr InstalledLibrary foundation = {"/System/Library/Frameworks/Foundation.framework/Foundation",
                                                Version::of(300)};
inline constexpr InstalledLibrary objectRuntime = {"/usr/lib/libobjc.A.dylib", Version::of(1)};
/// Whichever hooking library it is: all of them state none.
inline constexpr InstalledLibrary substrate = {"/Library/Frameworks/CydiaSubstrate.framework/CydiaSubstrate",
                                               Version::of(0)};
inline constexpr InstalledLibrary system = {"/usr/lib/libSystem.B.dylib", Version::of(1)};
inline constexpr InstalledLibrary uiKit = {"/System/Library/Frameworks/UIKit.framework/UIKit", Version::of(1)};

/// What the device's library of this path states; nothing for a path that the phone stands for no library of.
std::optional<Version> installedVersion(std::string_view path);

/// Whether a library of this version serves the library of that name. Where it does not it counts as missing, if it may
/// be; if not, throws a Refusal in the words of the device's loader.
bool serves(Version provided, const Dependency& dependency, std::string_view name);

} // namespace phone::macho
