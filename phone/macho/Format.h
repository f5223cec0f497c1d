/// The device's object format, as far as a library is made of it.
#pragma once

#include <cstdint>
#include <string>

namespace phone::macho {

// The first word of a file, as a reader of this machine's byte order sees it.
inline constexpr std::uint32_t wideMagic = 0xfeedfacf;
inline constexpr std::uint32_t narrowMagic = 0xfeedface;
// A file of several slices; its numbers are big-endian.
inline constexpr std::uint32_t fatMagic = 0xcafebabe;
inline constexpr std::uint32_t wideFatMagic = 0xcafebabf;

inline constexpr std::uint32_t i386Processor = 7;
inline constexpr std::uint32_t armv7Processor = 12;
inline constexpr std::uint32_t x86_64Processor = 0x01000007;
inline constexpr std::uint32_t arm64Processor = 0x0100000c;
#if defined(__aarch64__)
inline constexpr std::uint32_t thisProcessor = arm64Processor;
#else
inline constexpr std::uint32_t thisProcessor = x86_64Processor;
#endif
inline std::string nameOf(std::uint32_t processor) {
    switch (processor) {
    case i386Processor:
        return "i386";
    case armv7Processor:
        return "armv7";
    case x86_64Processor:
        return "x86_64";
    case arm64Processor:
        return "arm64";
    default:
        return "processor " + std::to_string(processor);
    }
}
inline constexpr std::uint32_t dynamicLibrary = 6;

struct FatHeader {
    std::uint32_t magic, count;
};

struct FatSlice {
    std::uint32_t processor, subtype, offset, size, alignment;
};

struct WideFatSlice {
    std::uint32_t processor, subtype;
    std::uint64_t offset, size;
    std::uint32_t alignment, reserved;
};

struct Header {
    std::uint32_t magic, processor, subtype, fileType, commandCount, commandBytes, flags, reserved;
};

struct Command {
    std::uint32_t kind, size;
};

/// A loader that does not know a command with this bit must not go on.
inline constexpr std::uint32_t required = 0x80000000;

enum CommandKind : std::uint32_t {
    SymbolTable = 0x02,
    IndirectSymbols = 0x0b,
    LoadLibrary = 0x0c,
    LibraryName = 0x0d,
    WideSegment = 0x19,
    WideRoutines = 0x1a,
    CodeSignature = 0x1d,
    LazyLibrary = 0x20,
    FixupsOldForm = 0x22,
    FunctionStarts = 0x26,
    DataInCode = 0x29,
    WideEncryption = 0x2c,
    WeakLibrary = 0x18 | required,
    RunPath = 0x1c | required,
    ReexportedLibrary = 0x1f | required,
    Fixups = 0x22 | required,
    UpwardLibrary = 0x23 | required,
};

struct SegmentCommand {
    Command command;
    char name[16];
    std::uint64_t address, size, fileOffset, fileSize;
    std::uint32_t greatestProtection, protection, sectionCount, flags;
};

enum Protection : std::uint32_t { Read = 1, Write = 2, Execute = 4 };

/// A segment that is only written while it is bound.
inline constexpr std::uint32_t readOnlyAfterFixups = 0x10;

struct SectionEntry {
    char name[16], segment[16];
    std::uint64_t address, size;
    std::uint32_t offset, alignment, relocations, relocationCount, flags, reserved[3];
};

/// The kind of a section is the lowest byte of its flags.
enum SectionKind : std::uint32_t {
    ZeroFill = 0x01,
    Initialisers = 0x09,
    LargeZeroFill = 0x0c,
    FirstOfThread = 0x11,
    ThreadZeroFill = 0x12,
    LastOfThread = 0x15,
    InitialiserOffsets = 0x16,
};

struct LibraryCommand {
    Command command;
    std::uint32_t name, timestamp, version, compatibleVersion;
};

struct FixupsCommand {
    Command command;
    std::uint32_t rebaseOffset, rebaseSize, bindOffset, bindSize, weakBindOffset, weakBindSize, lazyBindOffset,
        lazyBindSize, exportOffset, exportSize;
};

struct SymbolTableCommand {
    Command command;
    std::uint32_t symbols, symbolCount, texts, textBytes;
};

struct IndirectSymbolsCommand {
    Command command;
    std::uint32_t ownFirst, ownCount, definedFirst, definedCount, undefinedFirst, undefinedCount, contents,
        contentCount, modules, moduleCount, references, referenceCount, indirect, indirectCount, relocations,
        relocationCount, ownRelocations, ownRelocationCount;
};

struct LinkEditCommand {
    Command command;
    std::uint32_t offset, size;
};

struct EncryptionCommand {
    Command command;
    std::uint32_t offset, size, system, padding;
};

/// A pointer is the only type of fixup that a library of this format has.
inline constexpr std::uint8_t pointerType = 1;

// An instruction is in the upper four bits of a byte, a small number in the lower four.
enum RebaseInstruction : std::uint8_t {
    RebaseDone = 0x00,
    RebaseType = 0x10,
    RebasePlace = 0x20,
    RebaseAdvance = 0x30,
    RebaseAdvancePointers = 0x40,
    RebaseTimesSmall = 0x50,
    RebaseTimes = 0x60,
    RebaseAndAdvance = 0x70,
    RebaseTimesSkipping = 0x80,
};

enum BindInstruction : std::uint8_t {
    BindDone = 0x00,
    BindLibrarySmall = 0x10,
    BindLibrary = 0x20,
    BindLibrarySpecial = 0x30,
    BindSymbol = 0x40,
    BindType = 0x50,
    BindAddend = 0x60,
    BindPlace = 0x70,
    BindAdvance = 0x80,
    BindNow = 0x90,
    BindAndAdvance = 0xa0,
    BindAndAdvancePointers = 0xb0,
    BindTimesSkipping = 0xc0,
};

// Flags of a symbol that is bound.
inline constexpr std::uint8_t weakImport = 0x01;
inline constexpr std::uint8_t strongDefinition = 0x08;

struct UnwindHeader {
    std::uint32_t version, commonEncodings, commonEncodingCount, personalities, personalityCount, index, indexCount;
};

struct UnwindIndexEntry {
    std::uint32_t function, page, handlers;
};

inline constexpr std::uint32_t regularUnwindPage = 2;
inline constexpr std::uint32_t compressedUnwindPage = 3;

struct RegularUnwindPage {
    std::uint32_t kind;
    std::uint16_t entries, entryCount;
};

struct CompressedUnwindPage {
    std::uint32_t kind;
    std::uint16_t entries, entryCount, encodings, encodingCount;
};

struct UnwindPageEntry {
    std::uint32_t function, encoding;
};

} // namespace phone::macho
