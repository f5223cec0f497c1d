/// Which part of a Mach-O file is meant for this machine.
#pragma once

#include "phone/macho/Bytes.h"

#include <cstdint>
#include <vector>

namespace phone::macho {

/// Whether a file that begins so claims to be of the device's format: thin or fat, of any processor.
bool isMachO(std::string_view file);

/// What the slices of such a file are made for, in its order.
std::vector<std::uint32_t> processors(const Bytes& file);

/// A thin file whole, or the slice of a fat one that is for this processor. Throws a Refusal where there is none.
Bytes findSlice(const Bytes& file);

} // namespace phone::macho
