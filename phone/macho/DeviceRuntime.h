/// The device's object runtime and C library, on top of those of this machine, for code compiled for the device.
#pragma once

#include "phone/macho/Exports.h"

#include <string>
#include <string_view>

namespace phone::macho {

/// Adds the runtime's functions and what the compiler itself calls.
void exportRuntime(Exports& exports);

/// A method's encoding with another letter for truth values: the device's runtime writes `B`, the one here `C`.
std::string withTruthAs(char letter, std::string_view encoding);

} // namespace phone::macho
