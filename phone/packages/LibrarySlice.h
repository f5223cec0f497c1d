/// Whether a library that a package brings can run on this machine.
#pragma once

#include <string>
#include <string_view>

namespace phone {

/// Whether the loader would load the file of this device path.
bool isLoadedLibrary(std::string_view path);

/// Throws PackageError, which names the package to take instead, for a library without a slice for this machine.
/// Reads no more than the headers that say for which processor a slice is.
void checkSlice(const std::string& path, std::string_view library);

} // namespace phone
