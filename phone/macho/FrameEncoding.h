/// What a word of the device's unwind tables says about a function's frame, processor by processor.
#pragma once

#include <cstdint>
#include <vector>

namespace phone::macho {

/// A register, by DWARF's number, and how many words below the caller's stack pointer it was saved.
struct SavedRegister {
    std::uint8_t number = 0;
    std::uint16_t words = 0;
};

/// Where the caller's stack pointer was, and what the function saved below it.
struct Frame {
    std::uint8_t base = 0; // the register that it is counted from
    std::uint32_t bytes = 0;
    std::vector<SavedRegister> saved;
};

/// Which register, by DWARF's number, or column of its tables holds the address to go back to.
std::uint8_t returnAddressColumn(std::uint32_t processor);

/// Throws a Refusal for a kind of frame that is not known here.
Frame decodeFrame(std::uint32_t encoding, std::uint32_t processor);

} // namespace phone::macho
