#include "phone/packages/Archive.h"

#include "phone/packages/PackageError.h"

#include <archive.h>
#include <archive_entry.h>
#include <zlib.h>

#include <functional>
#include <memory>

namespace phone {

namespace {

using Reader = std::unique_ptr<archive, decltype(&archive_read_free)>;

constexpr std::size_t chunk = 65536;
constexpr std::size_t largest = std::size_t{256} << 20; // far above any package for a phone

std::string reason(archive* reader) {
    const char* why = archive_error_string(reader);
    return why == nullptr ? "it is broken" : why;
}

Reader newReader() { return {archive_read_new(), &archive_read_free}; }

/// Begins to read; false for an archive without a byte.
void open(const Reader& reader, std::string_view bytes) {
    if (archive_read_open_memory(reader.get(), bytes.data(), bytes.size()) != ARCHIVE_OK) {
        throw PackageError(reason(reader.get()));
    }
}

/// The next entry; nullptr at the end.
archive_entry* nextEntry(const Reader& reader) {
    archive_entry* entry = nullptr;
    const int status = archive_read_next_header(reader.get(), &entry);
    if (status == ARCHIVE_EOF) {
        return nullptr;
    }
    if (status != ARCHIVE_OK) {
        throw PackageError(reason(reader.get()));
    }
    return entry;
}

void append(std::string& content, const char* bytes, std::size_t count) {
    if (content.size() + count > largest) {
        throw PackageError("it holds more than 256 MiB");
    }
    content.append(bytes, count);
}

/// The content of the entry just read.
std::string content(const Reader& reader) {
    std::string all;
    std::string part(chunk, '\0');
    la_ssize_t count = 0;
    while ((count = archive_read_data(reader.get(), part.data(), part.size())) > 0) {
        append(all, part.data(), static_cast<std::size_t>(count));
    }
    if (count < 0) {
        throw PackageError(reason(reader.get()));
    }
    return all;
}

std::string text(const char* value) { return value == nullptr ? "" : value; }

TarEntry::Kind kindOf(archive_entry* entry, const std::string& name) {
    if (archive_entry_hardlink(entry) != nullptr) {
        return TarEntry::Kind::HardLink;
    }
    switch (archive_entry_filetype(entry)) {
    case AE_IFREG:
        return TarEntry::Kind::File;
    case AE_IFDIR:
        return TarEntry::Kind::Folder;
    case AE_IFLNK:
        return TarEntry::Kind::SymbolicLink;
    case AE_IFCHR:
    case AE_IFBLK:
        throw PackageError(name + " is a device file, which no package for the phone may bring");
    default:
        throw PackageError(name + " is neither a file, a folder nor a link");
    }
}

/// libarchive passes over the checksum at the end of gzip data, which dpkg does not.
std::string gunzipped(std::string_view bytes) {
    constexpr int gzipAlone = 16;
    z_stream stream{};
    if (inflateInit2(&stream, MAX_WBITS + gzipAlone) != Z_OK) {
        throw PackageError("no memory to decompress it");
    }
    const std::unique_ptr<z_stream, decltype(&inflateEnd)> owner(&stream, &inflateEnd);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
    stream.avail_in = static_cast<uInt>(bytes.size());
    std::string all;
    std::string part(chunk, '\0');
    for (;;) {
        stream.next_out = reinterpret_cast<Bytef*>(part.data());
        stream.avail_out = static_cast<uInt>(part.size());
        const int status = inflate(&stream, Z_NO_FLUSH);
        append(all, part.data(), part.size() - stream.avail_out);
        if (status == Z_STREAM_END) {
            return all;
        }
        if (status != Z_OK) {
            throw PackageError(status == Z_BUF_ERROR ? "truncated gzip data" : "broken gzip data");
        }
    }
}

std::string filtered(std::string_view bytes, const std::function<int(archive*)>& filter) {
    const Reader reader = newReader();
    filter(reader.get());
    archive_read_support_format_raw(reader.get());
    open(reader, bytes);
    return nextEntry(reader) == nullptr ? "" : content(reader);
}

} // namespace

std::vector<ArMember> readAr(std::string_view bytes) {
    if (!bytes.starts_with("!<arch>\n")) {
        throw PackageError("not a Debian package");
    }
    const Reader reader = newReader();
    archive_read_support_format_ar(reader.get());
    open(reader, bytes);
    std::vector<ArMember> members;
    while (archive_entry* entry = nextEntry(reader)) {
        ArMember member{text(archive_entry_pathname(entry)), ""};
        const auto promised = archive_entry_size(entry);
        member.content = content(reader);
        if (static_cast<std::int64_t>(member.content.size()) != promised) {
            throw PackageError(member.name + " is truncated");
        }
        members.push_back(std::move(member));
    }
    return members;
}

std::vector<TarEntry> readTar(std::string_view bytes) {
    const Reader reader = newReader();
    archive_read_support_format_tar(reader.get());
    open(reader, bytes);
    std::vector<TarEntry> entries;
    while (archive_entry* entry = nextEntry(reader)) {
        TarEntry read;
        read.name = text(archive_entry_pathname(entry));
        if (archive_format(reader.get()) == ARCHIVE_FORMAT_TAR_PAX_INTERCHANGE ||
            archive_entry_sparse_count(entry) > 0) {
            throw PackageError(read.name + " has a header that the device's dpkg does not know; use the plain or GNU "
                                           "form of tar");
        }
        read.kind = kindOf(entry, read.name);
        read.mode = archive_entry_perm(entry);
        read.user = archive_entry_uid(entry);
        read.group = archive_entry_gid(entry);
        read.modified = archive_entry_mtime(entry);
        read.target = read.kind == TarEntry::Kind::HardLink ? text(archive_entry_hardlink(entry))
                                                            : text(archive_entry_symlink(entry));
        read.content = read.kind == TarEntry::Kind::File ? content(reader) : "";
        entries.push_back(std::move(read));
    }
    return entries;
}

std::string decompressed(const ArMember& member) {
    const std::string_view name = member.name;
    if (name.ends_with(".gz")) {
        return gunzipped(member.content);
    }
    if (name.ends_with(".xz")) {
        return filtered(member.content, archive_read_support_filter_xz);
    }
    if (name.ends_with(".bz2")) {
        return filtered(member.content, archive_read_support_filter_bzip2);
    }
    if (name.ends_with(".lzma")) {
        return filtered(member.content, archive_read_support_filter_lzma);
    }
    if (name.ends_with(".tar")) {
        return member.content;
    }
    throw PackageError("compressed in a way that the device's dpkg does not know; build it with `dpkg-deb -Zgzip`");
}

} // namespace phone
