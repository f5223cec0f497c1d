/// Whether the phone here can load a library that a package brings.
#pragma once

#include <string>
#include <string_view>

namespace phone {

/// Whether the loader would load the file of this device path.
bool isLoadedLibrary(std::string_view path);

/// Throws PackageError for a library that the loader would refuse for what its bytes say; where it has no slice for
/// this machine, the line names those that it has and the package to take instead. Whether the phone has all that the
/// library needs only loading it tells.
void checkLibrary(const std::string& path, std::string_view library);

} // namespace phone
