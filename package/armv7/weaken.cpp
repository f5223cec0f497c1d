/// Marks imports of a 32-bit library as weak, in place: where the system lacks one it is null, and the library loads.
/// The linker for armv7 leaves that undone.
///
///     weaken-imports LIBRARY SYMBOL ...
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;
using Names = std::set<std::string>;

constexpr std::uint32_t symbolTable = 0x2;
constexpr std::uint32_t dyldInfo = 0x80000022;
constexpr std::uint16_t weakReference = 0x40;
constexpr std::uint8_t external = 1;

enum Opcode : std::uint8_t { // of the upper half of a byte
    SetLibraryFromNumber = 0x20,
    SetSymbol = 0x40,
    SetAddend = 0x60,
    SetSegment = 0x70,
    AddAddress = 0x80,
    BindAddAddress = 0xa0,
    BindRepeated = 0xc0,
};
constexpr std::uint8_t weakImport = 1; // of its lower half, at SetSymbol

std::uint32_t word(const Bytes& bytes, std::size_t offset) {
    if (offset > bytes.size() || bytes.size() - offset < 4) {
        throw std::runtime_error("it ends too early");
    }
    std::uint32_t value = 0;
    std::memcpy(&value, &bytes[offset], sizeof value);
    return value;
}

std::string text(const Bytes& bytes, std::size_t offset) {
    std::string found;
    while (bytes.at(offset) != 0) {
        found += static_cast<char>(bytes[offset++]);
    }
    return found;
}

/// Behind a number of as many bytes as it needs.
std::size_t skipNumber(const Bytes& bytes, std::size_t offset) {
    while ((bytes.at(offset) & 0x80) != 0) {
        ++offset;
    }
    return offset + 1;
}

void weakenBinds(Bytes& bytes, std::size_t offset, std::size_t size, const Names& names) {
    for (const std::size_t end = offset + size; offset < end;) {
        std::uint8_t& code = bytes.at(offset++);
        switch (code & 0xf0) {
        case SetSymbol: {
            const std::string name = text(bytes, offset);
            if (names.contains(name)) {
                code |= weakImport;
            }
            offset += name.size() + 1;
            break;
        }
        case BindRepeated:
            offset = skipNumber(bytes, offset);
            [[fallthrough]];
        case SetLibraryFromNumber:
        case SetAddend:
        case SetSegment:
        case AddAddress:
        case BindAddAddress:
            offset = skipNumber(bytes, offset);
            break;
        default:
            break;
        }
    }
}

void weakenSymbols(Bytes& bytes, std::size_t symbols, std::size_t count, std::size_t strings, const Names& names) {
    for (std::size_t entry = symbols; entry < symbols + 12 * count; entry += 12) {
        const std::uint32_t name = word(bytes, entry);
        if (bytes.at(entry + 4) == external && names.contains(text(bytes, strings + name))) {
            bytes.at(entry + 6) |= weakReference;
        }
    }
}

void weaken(Bytes& bytes, const Names& names) {
    std::size_t command = 28;
    for (std::uint32_t left = word(bytes, 16); left > 0; --left) {
        const auto field = [&](std::size_t index) { return word(bytes, command + 4 * index); };
        if (field(0) == dyldInfo) {
            weakenBinds(bytes, field(4), field(5), names);
            weakenBinds(bytes, field(8), field(9), names); // at first use
        } else if (field(0) == symbolTable) {
            weakenSymbols(bytes, field(2), field(3), field(4), names);
        }
        command += field(1);
    }
}

} // namespace

int main(int count, char** arguments) {
    if (count < 2) {
        std::fprintf(stderr, "usage: weaken-imports LIBRARY SYMBOL ...\n");
        return 2;
    }
    try {
        std::ifstream in(arguments[1], std::ios::binary);
        Bytes bytes{std::istreambuf_iterator<char>(in), {}};
        if (word(bytes, 0) != 0xfeedface) {
            throw std::runtime_error("not a 32-bit Mach-O file");
        }
        weaken(bytes, Names(arguments + 2, arguments + count));
        std::ofstream out(arguments[1], std::ios::binary);
        out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        if (!out.flush()) {
            throw std::runtime_error("it cannot be written");
        }
    } catch (const std::exception& reason) {
        std::fprintf(stderr, "weaken-imports: %s: %s\n", arguments[1], reason.what());
        return 1;
    }
    return 0;
}
