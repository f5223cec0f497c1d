/// A dynamic library of one processor in the device's object format, as far as signing it needs to know.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace package {

/// Why a file cannot be signed, in one line.
class SigningError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class MachO {
public:
    /// Reads the header and checks every place that signing changes or relies on; throws `SigningError`.
    explicit MachO(std::vector<std::uint8_t> bytes);

    const std::vector<std::uint8_t>& bytes() const { return contents; }
    /// Where the code's segment lies in the file.
    std::uint64_t textOffset() const { return field(text, wide ? 40 : 32); }
    std::uint64_t textSize() const { return field(text, wide ? 48 : 36); }

    /// Takes off a segment what reaches into the next one's memory: llvm-strip rounds the segments of 32-bit libraries
    /// up to the largest page without moving what follows. Throws `SigningError` where a section lies there.
    void partSegments();
    /// Makes room for a signature of so many bytes at the end of the file, and a load command that says where; returns
    /// its offset.
    std::size_t addSignature(std::size_t size);
    void write(std::size_t offset, const std::vector<std::uint8_t>& data);

private:
    std::uint32_t word(std::size_t offset) const;
    void setWord(std::size_t offset, std::uint32_t value);
    /// A number as wide as the processor's addresses, in a load command.
    std::uint64_t field(std::size_t command, std::size_t offset) const;
    void setField(std::size_t command, std::size_t offset, std::uint64_t value);
    void readCommands();
    void readSegment(std::size_t command, std::size_t size);
    /// Where the sections of a segment end in memory.
    std::uint64_t sectionsEnd(std::size_t segment) const;

    std::vector<std::uint8_t> contents;
    bool wide = false; // 64-bit
    std::size_t commandsEnd = 0;
    std::size_t firstContent = 0;      // where the first section's bytes begin
    std::vector<std::size_t> segments; // their load commands, in order
    std::size_t text = 0;              // two of them
    std::size_t linkEdit = 0;
    std::uint64_t lastSegmentEnd = 0;
};

} // namespace package
