/// Whether the phone here can load a library that a package brings.
#pragma once

#include <string>
#include <string_view>

namespace phone {

/// Whether the loader would load the file of this device path.
bool isLoadedLibrary(std::string_view path);

/// Throws PackageError for a library that the loader would refuse for what its bytes say; where it has no slice for
/// this machine, the line names those that it has and the package to take instead; where it asks for a later version of
/// a library than devices have, the line is that of the device's loader. Whether the phone has all symbols that the
/// library needs only loading it tells.
void checkLibrary(const std::string& path, std::string_view library);

} // namespace phone
