/// What becomes of a configuration file when its package is installed.
#pragma once

#include <optional>
#include <string>

namespace phone {

enum class ConffileChoice {
    Install,   // the package's takes its place
    Keep,      // what is there stays, or what was removed stays away
    KeepBeside // the same, with the package's beside it, under a name ending in `.dpkg-dist`
};

/// As dpkg chooses where it can ask nobody. Hashes: `recorded` when the package was last installed, `present` of
/// what is there now, nullopt for what is not there; `packaged` of the package's.
ConffileChoice chooseConffile(const std::optional<std::string>& recorded, const std::optional<std::string>& present,
                              const std::string& packaged);

} // namespace phone
