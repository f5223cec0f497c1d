/// The containers that a package is made of: `ar` outside, compressed `tar` inside.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace phone {

/// A file inside an `ar` archive.
struct ArMember {
    std::string name;
    std::string content;
};

/// Something that a `tar` archive holds.
struct TarEntry {
    enum class Kind { File, Folder, SymbolicLink, HardLink };

    std::string name; // as it stands in the archive
    Kind kind = Kind::File;
    unsigned mode = 0; // permission bits, with those above them
    std::int64_t user = 0;
    std::int64_t group = 0;
    std::int64_t modified = 0; // seconds since 1970
    std::string target;        // of links
    std::string content;       // of files
};

/// In the order of the archive. Throws PackageError when it is broken or truncated.
std::vector<ArMember> readAr(std::string_view bytes);

/// In the order of the archive. Throws PackageError when it is broken, and for what is neither a file, a folder
/// nor a link.
std::vector<TarEntry> readTar(std::string_view bytes);

/// The content of a member whose name ends in `.gz`, `.bz2`, `.lzma`, `.xz` or in none of them. Throws PackageError
/// when it is broken, and for a compression that the device's dpkg does not know.
std::string decompressed(const ArMember& member);

} // namespace phone
