/// How an exception finds its way through the library's frames.
#pragma once

#include "phone/macho/Bytes.h"
#include "phone/macho/Format.h"

#include <cstdint>
#include <vector>

namespace phone::macho {

/// The functions from `start` to `end` have frames of the same shape.
struct UnwindEntry {
    std::uint64_t start = 0;
    std::uint64_t end = 0;
    std::uint32_t encoding = 0;
};

/// The device's own tables (`__unwind_info`), in the order of the addresses. Functions without a frame description
/// are left out. `textAddress` is where the first segment begins.
std::vector<UnwindEntry> readCompactUnwind(const Bytes& table, std::uint64_t textAddress,
                                           std::uint32_t processor = thisProcessor);

/// The same in the form that the unwinder of a Linux of that processor reads, for a library whose addresses moved by
/// `slide`. To be registered with it, and kept.
std::vector<std::uint8_t> frameDescriptions(const std::vector<UnwindEntry>& entries, std::uint64_t slide,
                                            std::uint32_t processor = thisProcessor);

} // namespace phone::macho
