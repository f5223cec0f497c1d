#include "phone/packages/Package.h"

#include "phone/flow/InputError.h"
#include "phone/packages/LibraryCheck.h"
#include "phone/packages/PackageError.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>

namespace phone {

namespace fs = std::filesystem;

namespace {

constexpr std::array<std::string_view, 5> scriptNames = {"preinst", "extrainst_", "postinst", "prerm", "postrm"};
constexpr std::array<std::string_view, 3> otherNames = {"conffiles", "md5sums", "triggers"};
constexpr std::string_view databaseFolder = "/Library/dpkg";

bool contains(const auto& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// The parts of a package in its own order, with the names that they have to have.
struct Parts {
    ArMember control;
    ArMember data;
};

Parts parts(const std::vector<ArMember>& members) {
    if (members.empty() || members.front().name != "debian-binary") {
        throw PackageError("not a Debian package: it does not begin with debian-binary");
    }
    const std::string version = members.front().content.substr(0, members.front().content.find('\n'));
    if (!version.starts_with("2.") || version.find_first_not_of("0123456789.") != std::string::npos) {
        throw PackageError("a package of the format `" + version.substr(0, version.find('\0')) +
                           "`; the device's dpkg reads 2.0");
    }
    std::vector<ArMember> rest;
    std::copy_if(members.begin() + 1, members.end(), std::back_inserter(rest),
                 [](const ArMember& member) { return !member.name.starts_with("_"); });
    const auto isCalled = [&](std::size_t index, std::string_view name) {
        return index < rest.size() &&
               (rest[index].name == name || rest[index].name.starts_with(std::string(name) + "."));
    };
    if (!isCalled(0, "control.tar") || !isCalled(1, "data.tar")) {
        throw PackageError("not a whole Debian package: control.tar and data.tar have to follow debian-binary");
    }
    return {rest[0], rest[1]};
}

std::vector<TarEntry> entries(const ArMember& member) {
    try {
        return readTar(decompressed(member));
    } catch (const PackageError& error) {
        throw PackageError(member.name + ": " + error.what());
    }
}

/// The device path of a name in the archive; "/" for the archive's own folder.
std::string devicePath(const std::string& name) {
    const bool isPlain = std::none_of(name.begin(), name.end(),
                                      [](unsigned char character) { return character < ' ' || character == 0x7f; });
    if (name.empty() || name.front() == '/' || !isPlain) {
        throw PackageError("`" + std::string(isPlain ? name : "") + "` is no path below the root folder");
    }
    std::string path;
    std::istringstream stream(name);
    for (std::string part; std::getline(stream, part, '/');) {
        if (part == "..") {
            throw PackageError("`" + name + "` leads out of the root folder");
        }
        path += part.empty() || part == "." ? "" : "/" + part;
    }
    return path.empty() ? "/" : path;
}

void checkSymbolicLink(const TarEntry& link) {
    const fs::path target = link.target;
    const fs::path end = (fs::path(link.name).relative_path().parent_path() / target).lexically_normal();
    if (target.empty() || target.is_absolute() || end.begin() == end.end() || *end.begin() == "..") {
        throw PackageError(link.name + " is a link to `" + link.target +
                           "`, which leads out of the root folder; make it relative");
    }
}

/// The files under their device paths, found fit for the phone.
std::vector<TarEntry> checkedFiles(std::vector<TarEntry> entries) {
    constexpr unsigned setId = 06000;
    std::vector<TarEntry> files;
    std::map<std::string, TarEntry::Kind> seen;
    for (TarEntry& entry : entries) {
        entry.name = devicePath(entry.name);
        if (entry.name == "/") {
            if (entry.kind != TarEntry::Kind::Folder) {
                throw PackageError("its root is no folder");
            }
            continue;
        }
        const auto known = seen.find(entry.name);
        if (known != seen.end() && known->second == TarEntry::Kind::Folder && entry.kind == known->second) {
            continue;
        }
        if (known != seen.end()) {
            throw PackageError(entry.name + " stands twice in it");
        }
        for (fs::path above = fs::path(entry.name).parent_path(); above != "/"; above = above.parent_path()) {
            const auto folder = seen.find(above.string());
            if (folder != seen.end() && folder->second != TarEntry::Kind::Folder) {
                throw PackageError(entry.name + " lies below " + above.string() + ", which is no folder");
            }
        }
        if (entry.kind != TarEntry::Kind::SymbolicLink && (entry.mode & setId) != 0) {
            throw PackageError(entry.name + " would run as another user (setuid or setgid); no library needs that");
        }
        if (entry.name == databaseFolder || entry.name.starts_with(std::string(databaseFolder) + "/")) {
            throw PackageError(entry.name + " belongs to dpkg itself");
        }
        if (entry.kind == TarEntry::Kind::SymbolicLink) {
            checkSymbolicLink(entry);
        }
        if (entry.kind == TarEntry::Kind::HardLink) {
            entry.target = devicePath(entry.target);
            const auto target = seen.find(entry.target);
            if (target == seen.end() || target->second == TarEntry::Kind::Folder ||
                target->second == TarEntry::Kind::SymbolicLink) {
                throw PackageError(entry.name + " is a link to " + entry.target + ", which is no file before it");
            }
        }
        seen.emplace(entry.name, entry.kind);
        files.push_back(std::move(entry));
    }
    // A folder that stands behind what lies in it.
    for (const TarEntry& file : files) {
        const auto above = seen.find(fs::path(file.name).parent_path().string());
        if (above != seen.end() && above->second != TarEntry::Kind::Folder) {
            throw PackageError(file.name + " lies below " + above->first + ", which is no folder");
        }
    }
    return files;
}

std::vector<std::string> conffileNames(const std::string& text) {
    if (!text.empty() && text.back() != '\n') {
        throw PackageError("conffiles: the last line does not end");
    }
    std::vector<std::string> names;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        line.erase(line.find_last_not_of(" \t") + 1);
        if (line.empty() || line.front() != '/' || contains(names, line)) {
            throw PackageError("conffiles: `" + line + "` is no path from the root, or stands twice");
        }
        names.push_back(line);
    }
    return names;
}

void readControl(Package& package, const std::vector<TarEntry>& entries) {
    const TarEntry* control = nullptr;
    for (const TarEntry& entry : entries) {
        const std::string name = devicePath(entry.name).substr(1);
        if (entry.kind != TarEntry::Kind::File) {
            continue;
        }
        if (name == "control") {
            control = &entry;
        } else if (contains(scriptNames, name) || contains(otherNames, name)) {
            package.information[name] = entry.content;
        }
        if (contains(scriptNames, name)) {
            package.scripts.push_back(name);
        }
    }
    if (control == nullptr) {
        throw PackageError("it has no control file");
    }
    std::vector<ControlFields> paragraphs;
    try {
        paragraphs = parseControlFields(control->content);
    } catch (const PackageError& error) {
        throw PackageError(std::string("control: ") + error.what());
    }
    if (paragraphs.size() != 1) {
        throw PackageError("control: one paragraph is needed, there are " + std::to_string(paragraphs.size()));
    }
    package.fields = PackageFields::parse(paragraphs.front());
    package.fields.checkArchitecture();
    if (const auto names = package.information.find("conffiles"); names != package.information.end()) {
        package.conffiles = conffileNames(names->second);
    }
}

} // namespace

const TarEntry* Package::find(std::string_view path) const {
    const auto file =
        std::find_if(files.begin(), files.end(), [&](const TarEntry& entry) { return entry.name == path; });
    return file == files.end() ? nullptr : &*file;
}

bool Package::isConffile(std::string_view path) const { return contains(conffiles, path); }

Package parsePackage(std::string_view bytes) {
    const Parts read = parts(readAr(bytes));
    Package package;
    readControl(package, entries(read.control));
    package.files = checkedFiles(entries(read.data));
    for (const std::string& name : package.conffiles) {
        const TarEntry* file = package.find(name);
        if (file == nullptr || file->kind != TarEntry::Kind::File) {
            throw PackageError("conffiles: " + name + " is no file of the package");
        }
    }
    for (const TarEntry& file : package.files) {
        if (file.kind == TarEntry::Kind::HardLink && package.isConffile(file.target)) {
            throw PackageError("conffiles: " + file.target + " has a second name, " + file.name);
        }
        if (file.kind == TarEntry::Kind::File && isLoadedLibrary(file.name)) {
            checkLibrary(file.name, file.content);
        }
    }
    return package;
}

Package readPackage(const fs::path& file) {
    std::error_code error;
    if (!fs::is_regular_file(file, error)) {
        throw InputError({file.string(), 0}, "no such file; `script/package` makes the package");
    }
    std::ifstream stream(file, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(stream), {});
    if (!stream) {
        throw InputError({file.string(), 0}, "cannot be read");
    }
    try {
        return parsePackage(bytes);
    } catch (const PackageError& wrong) {
        throw InputError({file.string(), 0}, wrong.what());
    }
}

} // namespace phone
