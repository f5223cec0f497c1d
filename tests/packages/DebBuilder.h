/// Packages made to measure, sound or not.
#pragma once

#include <archive.h>
#include <archive_entry.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace phone {

struct DebFile {
    std::string name; // as in the archive: `Library/Quorvan/a`
    std::string content = {};
    unsigned mode = 0644;
    int user = 0;
    int group = 0;
    unsigned type = AE_IFREG;
    std::string target = {};
};

inline DebFile debFolder(const std::string& name, unsigned mode = 0755, int user = 0) {
    return {name, "", mode, user, user, AE_IFDIR, ""};
}
inline DebFile debLink(const std::string& name, const std::string& target) {
    return {name, "", 0777, 0, 0, AE_IFLNK, target};
}

struct DebBuilder {
    std::string package = "mirelda.test";
    std::string version = "1.0";
    std::string architecture = "iphoneos-arm";
    std::string furtherFields;                      // whole lines
    std::map<std::string, std::string> information; // conffiles, scripts
    std::vector<DebFile> files;
    std::string compression = "gz";
    std::string format = "2.0\n";

    std::string control() const {
        return "Package: " + package + "\nVersion: " + version + "\nArchitecture: " + architecture +
               "\nMaintainer: Nobody <nobody@example.org>\nDescription: a package\n more of it\n" + furtherFields;
    }

    static std::string tar(const std::vector<DebFile>& files, const std::string& compression,
                           int format = ARCHIVE_FORMAT_TAR_GNUTAR) {
        std::size_t size = 1 << 20;
        for (const DebFile& file : files) {
            size += file.content.size() + 4096;
        }
        std::string bytes(size, '\0');
        std::size_t used = 0;
        archive* writer = archive_write_new();
        archive_write_set_format(writer, format);
        if (compression == "gz") {
            archive_write_add_filter_gzip(writer);
            archive_write_set_filter_option(writer, "gzip", "timestamp", nullptr);
        } else if (compression == "xz") {
            archive_write_add_filter_xz(writer);
        } else if (compression == "lzma") {
            archive_write_add_filter_lzma(writer);
        } else if (compression == "zst") {
            archive_write_add_filter_zstd(writer);
        }
        archive_write_open_memory(writer, bytes.data(), bytes.size(), &used);
        for (const DebFile& file : files) {
            archive_entry* entry = archive_entry_new();
            archive_entry_set_pathname(entry, file.name.c_str());
            archive_entry_set_mode(entry, file.type | file.mode);
            archive_entry_set_uid(entry, file.user);
            archive_entry_set_gid(entry, file.group);
            archive_entry_set_mtime(entry, 1700000000, 0);
            archive_entry_set_size(entry, static_cast<la_int64_t>(file.content.size()));
            if (file.type == AE_IFLNK) {
                archive_entry_set_symlink(entry, file.target.c_str());
            } else if (!file.target.empty()) {
                archive_entry_set_hardlink(entry, file.target.c_str());
            }
            archive_write_header(writer, entry);
            archive_write_data(writer, file.content.data(), file.content.size());
            archive_entry_free(entry);
        }
        archive_write_close(writer);
        archive_write_free(writer);
        return bytes.substr(0, used);
    }

    static std::string ar(const std::vector<std::pair<std::string, std::string>>& members) {
        std::string bytes = "!<arch>\n";
        for (const auto& [name, content] : members) {
            char header[61] = "";
            std::snprintf(header, sizeof header, "%-16s%-12d%-6d%-6d%-8s%-10zu`\n", name.c_str(), 1700000000, 0, 0,
                          "100644", content.size());
            bytes += header + content + (content.size() % 2 == 1 ? "\n" : "");
        }
        return bytes;
    }

    std::string controlTar() const {
        std::vector<DebFile> parts = {debFolder("./"), {"./control", control()}};
        for (const auto& [name, content] : information) {
            parts.push_back({"./" + name, content});
        }
        return tar(parts, compression);
    }
    std::string ending() const { return compression.empty() ? "" : "." + compression; }
    std::string with(const std::string& controlTar, const std::string& dataTar) const {
        return ar(
            {{"debian-binary", format}, {"control.tar" + ending(), controlTar}, {"data.tar" + ending(), dataTar}});
    }
    std::string bytes() const { return with(controlTar(), tar(files, compression)); }
};

} // namespace phone
