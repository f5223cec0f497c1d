/// The pieces that a library is mapped in.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace phone::macho {

struct Segment {
    std::string_view name;
    std::uint64_t address = 0;
    std::uint64_t size = 0;
    std::uint64_t fileOffset = 0;
    std::uint64_t fileSize = 0; // the rest of `size` is zero
    std::uint32_t protection = 0;
    bool isReadOnlyAfterFixups = false;

    std::uint64_t end() const { return address + size; }
    bool holds(std::uint64_t at, std::uint64_t length) const {
        return at >= address && at - address <= size && length <= size - (at - address);
    }
};

} // namespace phone::macho
