#include "phone/packages/LibrarySlice.h"

#include "phone/packages/PackageError.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace phone {

namespace {

struct Processor {
    std::uint32_t type; // in Mach-O
    std::string_view name;
};

constexpr std::array<Processor, 4> processors = {
    {{0x01000007, "x86_64"}, {0x0100000c, "arm64"}, {12, "armv7"}, {7, "i386"}}};

#if defined(__aarch64__)
constexpr Processor here = processors[1];
constexpr unsigned elfMachine = 183;
#else
constexpr Processor here = processors[0];
constexpr unsigned elfMachine = 62;
#endif

constexpr std::uint32_t fat = 0xcafebabe;
constexpr std::uint32_t thin = 0xfeedface;
constexpr std::uint32_t thin64 = 0xfeedfacf;

/// 0 behind the end.
std::uint32_t number(std::string_view bytes, std::size_t offset, bool isBigEndian) {
    constexpr std::size_t size = 4;
    if (bytes.size() < size || offset > bytes.size() - size) {
        return 0;
    }
    std::uint32_t value = 0;
    for (std::size_t index = 0; index < size; ++index) {
        const std::size_t at = isBigEndian ? index : size - 1 - index;
        value = value << 8U | static_cast<unsigned char>(bytes[offset + at]);
    }
    return value;
}

std::string nameOf(std::uint32_t type) {
    const auto known =
        std::find_if(processors.begin(), processors.end(), [&](const Processor& one) { return one.type == type; });
    return known == processors.end() ? "processor " + std::to_string(type) : std::string(known->name);
}

/// The processors of a Mach-O file's slices; none for any other file.
std::vector<std::uint32_t> slices(std::string_view library) {
    const std::uint32_t magic = number(library, 0, false);
    if (magic == thin || magic == thin64) {
        return {number(library, 4, false)};
    }
    std::vector<std::uint32_t> found;
    if (number(library, 0, true) == fat) {
        constexpr std::size_t header = 8;
        constexpr std::size_t entry = 20;
        const std::uint32_t count = number(library, 4, true);
        for (std::size_t at = header; found.size() < count && at + entry <= library.size(); at += entry) {
            found.push_back(number(library, at, true));
        }
    }
    return found;
}

bool isSharedObjectOfThisMachine(std::string_view library) {
    constexpr std::size_t machine = 18;
    return library.starts_with("\177ELF\2\1") && library.size() > machine + 1 &&
           (number(library, machine - 2, false) >> 16U) == elfMachine;
}

} // namespace

bool isLoadedLibrary(std::string_view path) {
    constexpr std::string_view folder = "/Library/MobileSubstrate/DynamicLibraries/";
    return path.starts_with(folder) && path.ends_with(".dylib") &&
           path.find('/', folder.size()) == std::string_view::npos;
}

void checkSlice(const std::string& path, std::string_view library) {
    const std::vector<std::uint32_t> found = slices(library);
    if (isSharedObjectOfThisMachine(library) || std::find(found.begin(), found.end(), here.type) != found.end()) {
        return;
    }
    const std::string wanted = "; install the package whose name ends in _" + std::string(here.name) + ".deb";
    if (found.empty()) {
        throw PackageError(path + " is no library for this machine" + wanted);
    }
    std::string names;
    for (const std::uint32_t type : found) {
        names += (names.empty() ? "" : ", ") + nameOf(type);
    }
    throw PackageError(path + " holds a slice for " + names + " and none for " + std::string(here.name) +
                       ", which the phone here runs on" + wanted);
}

} // namespace phone
