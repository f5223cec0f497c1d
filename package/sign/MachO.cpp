#include "package/sign/MachO.h"

#include <algorithm>
#include <cstring>

namespace package {

namespace {

constexpr std::uint32_t magic32 = 0xfeedface;
constexpr std::uint32_t magic64 = 0xfeedfacf;
constexpr std::uint32_t dynamicLibrary = 6;

constexpr std::uint32_t segmentCommand32 = 0x1;
constexpr std::uint32_t segmentCommand64 = 0x19;
constexpr std::uint32_t signatureCommand = 0x1d;
constexpr std::size_t signatureCommandSize = 16;

constexpr std::uint32_t zeroFill = 1; // a section's type: it has no bytes in the file
constexpr std::size_t signatureAlignment = 16;
constexpr std::size_t largestPage = 0x4000; // of the devices' memory

constexpr std::uint64_t aligned(std::uint64_t value, std::uint64_t alignment) {
    return (value + alignment - 1) / alignment * alignment;
}

} // namespace

MachO::MachO(std::vector<std::uint8_t> bytes) : contents(std::move(bytes)) {
    if (contents.size() < 32 || (word(0) != magic32 && word(0) != magic64)) {
        throw SigningError("not a Mach-O file of one processor");
    }
    wide = word(0) == magic64;
    if (word(12) != dynamicLibrary) {
        throw SigningError("not a dynamic library");
    }
    readCommands();
    if (text == 0 || linkEdit == 0) {
        throw SigningError("without a __TEXT or a __LINKEDIT segment");
    }
    if (lastSegmentEnd != contents.size() ||
        field(linkEdit, wide ? 40 : 32) + field(linkEdit, wide ? 48 : 36) != lastSegmentEnd) {
        throw SigningError("__LINKEDIT does not end the file");
    }
}

void MachO::readCommands() {
    const std::uint32_t count = word(16);
    const std::size_t begin = wide ? 32 : 28;
    commandsEnd = begin + word(20);
    firstContent = contents.size();
    if (commandsEnd > contents.size()) {
        throw SigningError("load commands past the end of the file");
    }
    std::size_t command = begin;
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::size_t left = commandsEnd - command;
        if (left < 8 || word(command + 4) < 8 || word(command + 4) > left) {
            throw SigningError("a load command past the end of the load commands");
        }
        const std::size_t size = word(command + 4);
        if (word(command) == signatureCommand) {
            throw SigningError("signed already");
        }
        if (word(command) == (wide ? segmentCommand64 : segmentCommand32)) {
            readSegment(command, size);
        }
        command += size;
    }
    if (command != commandsEnd) {
        throw SigningError("load commands of another length than the header says");
    }
}

void MachO::readSegment(std::size_t command, std::size_t size) {
    const std::size_t headSize = wide ? 72 : 56;
    const std::size_t sectionSize = wide ? 80 : 68;
    if (size < headSize || (size - headSize) / sectionSize < word(command + headSize - 8)) {
        throw SigningError("a segment's sections past the end of its load command");
    }
    const std::uint64_t offset = field(command, wide ? 40 : 32);
    const std::uint64_t length = field(command, wide ? 48 : 36);
    if (offset > contents.size() || length > contents.size() - offset) {
        throw SigningError("a segment past the end of the file");
    }
    lastSegmentEnd = std::max(lastSegmentEnd, offset + length);
    for (std::uint32_t i = 0; i < word(command + headSize - 8); ++i) {
        const std::size_t section = command + headSize + i * sectionSize;
        const std::size_t start = word(section + (wide ? 48 : 40));
        if ((word(section + (wide ? 64 : 56)) & 0xff) != zeroFill) {
            firstContent = std::min(firstContent, start);
        }
    }
    segments.push_back(command);
    const auto isNamed = [&](const char* name) {
        return std::strncmp(reinterpret_cast<const char*>(&contents[command + 8]), name, 16) == 0;
    };
    if (isNamed("__TEXT")) {
        text = command;
    } else if (isNamed("__LINKEDIT")) {
        linkEdit = command;
    }
}

std::uint64_t MachO::sectionsEnd(std::size_t segment) const {
    const std::size_t headSize = wide ? 72 : 56;
    const std::size_t sectionSize = wide ? 80 : 68;
    std::uint64_t end = field(segment, 24);
    for (std::uint32_t i = 0; i < word(segment + headSize - 8); ++i) {
        const std::size_t section = segment + headSize + i * sectionSize;
        end = std::max(end, field(section, 32) + field(section, wide ? 40 : 36));
    }
    return end;
}

void MachO::partSegments() {
    for (std::size_t i = 0; i + 1 < segments.size(); ++i) {
        const std::size_t segment = segments[i];
        const std::uint64_t begin = field(segment, 24);
        const std::uint64_t next = field(segments[i + 1], 24);
        if (next < begin || sectionsEnd(segment) > next) {
            throw SigningError("segments that lie over each other");
        }
        const std::uint64_t room = next - begin;
        setField(segment, wide ? 32 : 28, std::min(field(segment, wide ? 32 : 28), room));
        setField(segment, wide ? 48 : 36, std::min(field(segment, wide ? 48 : 36), room));
    }
}

std::size_t MachO::addSignature(std::size_t size) {
    if (firstContent < commandsEnd || firstContent - commandsEnd < signatureCommandSize) {
        throw SigningError("no room for a load command");
    }
    const std::size_t offset = aligned(contents.size(), signatureAlignment);
    contents.resize(offset + size);

    setWord(commandsEnd, signatureCommand);
    setWord(commandsEnd + 4, signatureCommandSize);
    setWord(commandsEnd + 8, static_cast<std::uint32_t>(offset));
    setWord(commandsEnd + 12, static_cast<std::uint32_t>(size));
    setWord(16, word(16) + 1);
    setWord(20, word(20) + signatureCommandSize);
    commandsEnd += signatureCommandSize;

    const std::uint64_t length = contents.size() - field(linkEdit, wide ? 40 : 32);
    setField(linkEdit, wide ? 48 : 36, length);
    setField(linkEdit, wide ? 32 : 28, aligned(length, largestPage));
    return offset;
}

void MachO::write(std::size_t offset, const std::vector<std::uint8_t>& data) {
    std::copy(data.begin(), data.end(), contents.begin() + static_cast<std::ptrdiff_t>(offset));
}

std::uint32_t MachO::word(std::size_t offset) const {
    std::uint32_t value = 0;
    std::memcpy(&value, &contents[offset], sizeof value);
    return value;
}

void MachO::setWord(std::size_t offset, std::uint32_t value) { std::memcpy(&contents[offset], &value, sizeof value); }

std::uint64_t MachO::field(std::size_t command, std::size_t offset) const {
    const std::uint64_t low = word(command + offset);
    return wide ? low | static_cast<std::uint64_t>(word(command + offset + 4)) << 32 : low;
}

void MachO::setField(std::size_t command, std::size_t offset, std::uint64_t value) {
    setWord(command + offset, static_cast<std::uint32_t>(value));
    if (wide) {
        setWord(command + offset + 4, static_cast<std::uint32_t>(value >> 32));
    }
}

} // namespace package
