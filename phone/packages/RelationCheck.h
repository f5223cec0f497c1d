/// Whether what packages say about each other allows an installation or a removal.
#pragma once

#include "phone/packages/PackageDatabase.h"

namespace phone {

/// Throws PackageError when a dependency is missing, or one of two packages does not bear the other.
void checkInstallation(const PackageFields& package, const PackageDatabase& database);

/// Throws PackageError when another package needs it.
void checkRemoval(const PackageFields& package, const PackageDatabase& database);

} // namespace phone
