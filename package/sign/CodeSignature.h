/// The ad-hoc signature of a dynamic library: what its pages hash to, for systems that know SHA-1 alone and for later
/// ones.
#pragma once

#include "package/sign/MachO.h"

#include <string>

namespace package {

/// Signs the library under the identifier; throws `SigningError`.
void sign(MachO& library, const std::string& identifier);

} // namespace package
