/// Puts packages onto a phone and takes them off, as the device's dpkg does where it can ask nobody.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace phone {

/// Installs the package, or puts it in the place of another version. Gives lines for the person: what was done,
/// and what to know about it. Throws InputError, and has then changed nothing.
std::vector<std::string> installPackage(const std::filesystem::path& root, const std::filesystem::path& file);

/// Removes the package's files; conffiles stay. Otherwise as above.
std::vector<std::string> removePackage(const std::filesystem::path& root, const std::string& name);

} // namespace phone
