/// Which part of a Mach-O file is meant for this machine.
#pragma once

#include "phone/macho/Bytes.h"

namespace phone::macho {

/// Whether a file that begins so claims to be of the device's format: thin or fat, of any processor.
bool isMachO(std::string_view file);

/// The x86_64 slice of a thin or fat file. Throws a Refusal where there is none.
Bytes findSlice(const Bytes& file);

} // namespace phone::macho
