/// The bytes of the small library that the tests load, of broken variants of it, and of a file with it among others.
#pragma once

#include "phone/macho/Format.h"
#include "phone/macho/Image.h"

#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace phone::macho {

inline std::string readBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline std::string guest() { return readBytes(GUEST); }

/// Why the bytes are refused; "" where they are not.
inline std::string refusal(const std::string& bytes) {
    try {
        (void)Image::read(Bytes(bytes));
        return "";
    } catch (const Refusal& refused) {
        return refused.what();
    }
}

/// A part of the file, to be changed in place. The bytes must stay where they are.
template <class T>
T& in(std::string& bytes, std::uint64_t offset) {
    return *reinterpret_cast<T*>(bytes.data() + offset);
}

inline Header& header(std::string& bytes) { return in<Header>(bytes, 0); }

/// Where the `number`-th load command of this kind begins.
inline std::uint64_t commandAt(std::string& bytes, std::uint32_t kind, int number = 0) {
    std::uint64_t at = sizeof(Header);
    for (std::uint32_t i = 0; i < header(bytes).commandCount; ++i) {
        const auto& command = in<Command>(bytes, at);
        if (command.kind == kind && number-- == 0) {
            return at;
        }
        at += command.size;
    }
    throw std::logic_error("the small library has no such command");
}

enum GuestSegment { Text, Data, LinkEdit };

inline SegmentCommand& segment(std::string& bytes, GuestSegment number) {
    return in<SegmentCommand>(bytes, commandAt(bytes, WideSegment, number));
}

inline SectionEntry& section(std::string& bytes, const std::string& name) {
    for (int number = 0;; ++number) {
        const std::uint64_t at = commandAt(bytes, WideSegment, number);
        for (std::uint32_t i = 0; i < in<SegmentCommand>(bytes, at).sectionCount; ++i) {
            auto& entry = in<SectionEntry>(bytes, at + sizeof(SegmentCommand) + i * sizeof(SectionEntry));
            if (name == std::string(entry.name, strnlen(entry.name, sizeof(entry.name)))) {
                return entry;
            }
        }
    }
}

inline SymbolTableCommand& symbols(std::string& bytes) {
    return in<SymbolTableCommand>(bytes, commandAt(bytes, SymbolTable));
}

inline IndirectSymbolsCommand& indirectSymbols(std::string& bytes) {
    return in<IndirectSymbolsCommand>(bytes, commandAt(bytes, IndirectSymbols));
}

inline LinkEditCommand& functionStarts(std::string& bytes) {
    return in<LinkEditCommand>(bytes, commandAt(bytes, FunctionStarts));
}

inline FixupsCommand& fixups(std::string& bytes) { return in<FixupsCommand>(bytes, commandAt(bytes, Fixups)); }

/// The load command that asks for this library.
inline LibraryCommand& dependency(std::string& bytes, std::string_view path) {
    std::uint64_t at = sizeof(Header);
    for (std::uint32_t i = 0; i < header(bytes).commandCount; ++i) {
        auto& command = in<LibraryCommand>(bytes, at);
        if (command.command.size > sizeof(LibraryCommand) && path == &in<char>(bytes, at + sizeof(LibraryCommand))) {
            return command;
        }
        at += command.command.size;
    }
    throw std::logic_error("the small library has no such dependency");
}

/// A file of two slices, the second for this processor.
inline std::string fat(std::uint32_t processor, const std::string& slice) {
    const auto big = [](std::uint32_t number) { return __builtin_bswap32(number); };
    constexpr std::uint32_t offset = 4096;
    const FatHeader first{big(fatMagic), big(2)};
    const FatSlice slices[] = {
        {big(armv7Processor), 0, big(64), big(64), 0},
        {big(processor), 0, big(offset), big(static_cast<std::uint32_t>(slice.size())), big(12)}};
    std::string bytes(offset, '\0');
    std::memcpy(bytes.data(), &first, sizeof(first));
    std::memcpy(bytes.data() + sizeof(first), slices, sizeof(slices));
    return bytes + slice;
}

} // namespace phone::macho
