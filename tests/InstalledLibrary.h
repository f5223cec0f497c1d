/// Which build of the library the phones of the tests have.
#pragma once

#include <cstdlib>
#include <filesystem>

namespace phone {

inline constexpr const char* libraryVariable = "QUORVAN_LIBRARY";

/// Puts this build of the library into the root folder, in place of the one that lies there.
inline void installLibrary(const std::filesystem::path& root, const std::filesystem::path& library) {
    std::filesystem::copy_file(library, root / "Library/MobileSubstrate/DynamicLibraries/Quorvan.dylib",
                               std::filesystem::copy_options::overwrite_existing);
}

/// Leaves the shared object of this machine where it lies, unless the environment names another file.
inline void installChosenLibrary(const std::filesystem::path& root) {
    if (const char* chosen = std::getenv(libraryVariable)) {
        installLibrary(root, chosen);
    }
}

} // namespace phone
