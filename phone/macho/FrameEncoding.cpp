#include "phone/macho/FrameEncoding.h"

#include "phone/macho/Format.h"
#include "phone/macho/Refusal.h"

#include <array>
#include <string>

namespace phone::macho {

namespace {

// An encoding: the kind of frame, handlers of its own, and which registers were saved, on some processors also where.
constexpr std::uint32_t kindMask = 0x0f000000;
constexpr std::uint32_t handlers = 0x70000000;

[[noreturn]] void refuse() { throw Refusal("the unwind tables describe a frame that is not known here"); }

namespace x86_64 {

constexpr std::uint32_t withFramePointer = 0x01000000;
constexpr std::uint32_t slots = 5;
constexpr std::uint8_t framePointer = 6;
constexpr std::uint8_t returnAddress = 16;
constexpr std::array<std::uint8_t, 6> registerNumbers = {0, 3, 12, 13, 14, 15}; // none, rbx, r12 to r15

Frame decode(std::uint32_t encoding) {
    if ((encoding & kindMask) != withFramePointer) {
        refuse();
    }
    Frame frame{framePointer, 16, {{returnAddress, 1}, {framePointer, 2}}};
    // The first slot lies so many words below the frame pointer, the others above it.
    const std::uint32_t first = (encoding >> 16) & 0xff;
    for (std::uint32_t slot = 0; slot < slots; ++slot) {
        const std::uint32_t saved = (encoding >> (3 * slot)) & 7;
        if (saved >= registerNumbers.size() || (saved != 0 && slot >= first)) {
            refuse();
        }
        if (saved != 0) {
            frame.saved.push_back({registerNumbers[saved], static_cast<std::uint16_t>(2 + first - slot)});
        }
    }
    return frame;
}

} // namespace x86_64

namespace arm64 {

constexpr std::uint32_t withoutFramePointer = 0x02000000;
constexpr std::uint32_t withFramePointer = 0x04000000;
constexpr std::uint8_t framePointer = 29;
constexpr std::uint8_t returnAddress = 30;
constexpr std::uint8_t stackPointer = 31;

struct Pair {
    std::uint32_t bit;
    std::uint8_t first;
};
// x19 to x28, d8 to d15, in the order in which they lie downwards.
constexpr std::array<Pair, 9> pairs = {{{0x001, 19},
                                        {0x002, 21},
                                        {0x004, 23},
                                        {0x008, 25},
                                        {0x010, 27},
                                        {0x100, 72},
                                        {0x200, 74},
                                        {0x400, 76},
                                        {0x800, 78}}};

Frame decode(std::uint32_t encoding) {
    if ((encoding & kindMask) == withoutFramePointer) {
        // A function that calls nothing: the way back is still in its register. One that saves others is not known.
        if ((encoding & 0xfff) != 0) {
            refuse();
        }
        return {stackPointer, ((encoding >> 12) & 0xfff) * 16, {}};
    }
    if ((encoding & kindMask) != withFramePointer) {
        refuse();
    }
    Frame frame{framePointer, 16, {{returnAddress, 1}, {framePointer, 2}}};
    std::uint16_t words = 2;
    std::uint32_t rest = encoding & 0x00ffffff;
    for (const Pair& pair : pairs) {
        if ((rest & pair.bit) != 0) {
            frame.saved.push_back({pair.first, ++words});
            frame.saved.push_back({static_cast<std::uint8_t>(pair.first + 1), ++words});
            rest &= ~pair.bit;
        }
    }
    if (rest != 0) {
        refuse();
    }
    return frame;
}

} // namespace arm64

} // namespace

std::uint8_t returnAddressColumn(std::uint32_t processor) {
    return processor == arm64Processor ? arm64::returnAddress : x86_64::returnAddress;
}

Frame decodeFrame(std::uint32_t encoding, std::uint32_t processor) {
    if ((encoding & handlers) != 0) {
        refuse();
    }
    return processor == arm64Processor ? arm64::decode(encoding) : x86_64::decode(encoding);
}

} // namespace phone::macho
