/// What belongs to every phone without having been installed.
#pragma once

#include "phone/packages/Package.h"

#include <vector>

namespace phone {

/// Packages that count as installed, since the phone does what they do.
const std::vector<PackageFields>& phonePackages();

/// Folders of the system and of those packages: they stay when the last file in them goes.
bool isPhoneFolder(std::string_view path);

} // namespace phone
