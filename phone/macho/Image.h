/// What a library's slice says about itself, read and checked: nothing of it is mapped or run yet.
#pragma once

#include "phone/macho/Bytes.h"
#include "phone/macho/CompactUnwind.h"
#include "phone/macho/Dependency.h"
#include "phone/macho/Fixups.h"
#include "phone/macho/Format.h"
#include "phone/macho/Segment.h"

#include <vector>

namespace phone::macho {

/// Lives as long as the bytes it was read from.
struct Image {
    /// Throws a Refusal for anything that the device's own loader would not run, or that this one cannot.
    static Image read(const Bytes& slice, std::uint32_t processor = thisProcessor);

    /// From the lowest address to past the highest.
    std::uint64_t start() const { return segments.front().address; }
    std::uint64_t end() const { return segments.back().end(); }
    /// Whether code may run at this address.
    bool isCode(std::uint64_t address) const;

    Bytes slice;
    std::string_view name;         // the path it is made for
    std::vector<Segment> segments; // in the order of their addresses
    std::vector<Dependency> dependencies;
    std::vector<std::uint64_t> rebases;
    std::vector<Bind> binds;
    std::vector<std::uint64_t> initialisers; // where their addresses stand, in order
    std::vector<UnwindEntry> unwindEntries;
};

} // namespace phone::macho
