#include "phone/packages/Installation.h"

#include "phone/eventkit/DurableFile.h"
#include "phone/packages/ConffileChoice.h"
#include "phone/packages/PackageError.h"
#include "phone/packages/PhonePackages.h"

#include <algorithm>
#include <cstdio>

namespace phone {

namespace fs = std::filesystem;

namespace {

using Kind = TarEntry::Kind;

constexpr const char* distributed = ".dpkg-dist";
constexpr const char* recordKinds[] = {"list",    "owners",     "md5sums",  "conffiles", "triggers",
                                       "preinst", "extrainst_", "postinst", "prerm",     "postrm"};

bool isThere(const fs::path& path) { return fs::exists(fs::symlink_status(path)); }

bool replaces(const PackageFields& package, const PackageFields& other) {
    return std::any_of(package.replaces.begin(), package.replaces.end(),
                       [&](const Alternatives& alternatives) { return other.satisfies(alternatives.front()); });
}

TarEntry plainFile(const std::string& content) {
    TarEntry file;
    file.mode = 0644;
    file.content = content;
    return file;
}

/// Owners and modes as in the package. The phone runs as whoever started it, so they are kept in writing only.
std::string ownersText(const Package& package) {
    std::string text;
    for (const TarEntry& file : package.files) {
        char mode[8] = "";
        std::snprintf(mode, sizeof mode, "%04o", file.mode & 07777U);
        text += std::string(mode) + " " + std::to_string(file.user) + " " + std::to_string(file.group) + " " +
                file.name + "\n";
    }
    return text;
}

} // namespace

void Installation::check(const Package& package, const RootPaths& paths, const PackageDatabase& database) {
    const InstalledPackage* before = database.find(package.fields.name);
    paths.follow(PackageDatabase::statusPath());
    for (const TarEntry& file : package.files) {
        const fs::path place = paths.locate(file.name);
        const fs::path target = fs::is_symlink(place) && file.kind == Kind::Folder ? paths.follow(file.name) : place;
        const bool isFolder = fs::is_directory(fs::symlink_status(target));
        const bool wasOurs = before != nullptr && before->lists(file.name);
        if (file.kind == Kind::Folder && !isFolder && isThere(target) && !wasOurs) {
            throw PackageError(file.name + " is a folder in the package and a file on the phone; remove that");
        }
        if (file.kind != Kind::Folder && isFolder) {
            throw PackageError(file.name + " is a file in the package and a folder on the phone; remove that");
        }
        const std::string above = fs::path(file.name).parent_path().string();
        const TarEntry* folder = package.find(above);
        if (folder == nullptr && !fs::is_directory(place.parent_path())) {
            throw PackageError(file.name + " lies in " + above + ", which neither the package nor the phone has");
        }
        for (const InstalledPackage& other : database.packages()) {
            if (file.kind != Kind::Folder && other.isInstalled && other.fields.name != package.fields.name &&
                other.lists(file.name) && !replaces(package.fields, other.fields)) {
                throw PackageError(file.name + " belongs to " + other.fields.name + " " + other.fields.version.text() +
                                   "; remove that first");
            }
        }
    }
    for (const std::string& path : package.conffiles) {
        const fs::path target = paths.follow(path);
        if (isThere(target) && !fs::is_regular_file(target)) {
            throw PackageError(path + " is no file on the phone; remove it");
        }
    }
}

void Installation::install(const Package& package) {
    const InstalledPackage* found = _database.find(package.fields.name);
    const std::optional<InstalledPackage> before = found == nullptr ? std::nullopt : std::optional(*found);
    const InstalledPackage* old = before ? &*before : nullptr;
    for (const TarEntry& file : package.files) {
        _placed.insert(_paths.locate(file.name));
    }
    if (old != nullptr) {
        std::set<std::string> staying;
        for (const TarEntry& file : package.files) {
            staying.insert(file.name);
        }
        for (const auto& [path, conffile] : old->conffiles) {
            staying.insert(path);
        }
        removeLeftOver(*old, staying);
    }
    placeFolders(package, old);
    placeFiles(package, old);
    takeOverFiles(package);
    record(package, old);
    removeEmptyFolders();
    for (const std::string& script : package.scripts) {
        _notes.push_back("did not run " + script + ": the phone here runs no package's scripts");
    }
}

void Installation::removeLeftOver(const InstalledPackage& before, const std::set<std::string>& staying) {
    for (const std::string& path : before.files) {
        const bool isShared =
            std::any_of(_database.packages().begin(), _database.packages().end(), [&](const InstalledPackage& other) {
                return other.fields.name != before.fields.name && other.lists(path);
            });
        if (staying.contains(path) || isShared || isPhoneFolder(path)) {
            continue;
        }
        fs::path place;
        try {
            place = _paths.locate(path);
        } catch (const PackageError&) {
            _notes.push_back("left " + path + ", which is no longer in the root folder");
            continue;
        }
        if (_placed.contains(place) || !isThere(place)) {
            continue;
        }
        if (fs::is_directory(fs::symlink_status(place))) {
            _emptied.push_back(place);
        } else {
            _transaction.remove(place);
        }
    }
}

void Installation::placeFolders(const Package& package, const InstalledPackage* before) {
    std::vector<const TarEntry*> folders;
    for (const TarEntry& file : package.files) {
        if (file.kind == Kind::Folder) {
            folders.push_back(&file);
        }
    }
    std::sort(folders.begin(), folders.end(),
              [](const TarEntry* one, const TarEntry* other) { return one->name < other->name; });
    for (const TarEntry* folder : folders) {
        const fs::path place = _paths.locate(folder->name);
        if (fs::is_directory(place)) {
            continue;
        }
        if (before != nullptr && isThere(place)) {
            _transaction.remove(place);
        }
        _transaction.makeFolder(place, folder->mode);
    }
}

void Installation::placeFiles(const Package& package, const InstalledPackage* before) {
    for (const TarEntry& file : package.files) {
        if (file.kind == Kind::Folder) {
            continue;
        }
        if (package.isConffile(file.name)) {
            placeConffile(file, before);
            continue;
        }
        if (file.kind == Kind::HardLink) {
            _transaction.placeHardLink(_paths.locate(file.name), _paths.locate(file.target));
        } else {
            _transaction.place(_paths.locate(file.name), file);
        }
    }
}

void Installation::placeConffile(const TarEntry& file, const InstalledPackage* before) {
    const fs::path place = _paths.follow(file.name);
    const fs::path beside = place.string() + distributed;
    std::optional<std::string> recorded;
    if (before != nullptr && before->conffiles.contains(file.name)) {
        recorded = before->conffiles.at(file.name).hash;
    }
    std::optional<std::string> present;
    if (const auto content = contentOf(place)) {
        present = conffileHash(*content);
    }
    switch (chooseConffile(recorded, present, conffileHash(file.content))) {
    case ConffileChoice::Install:
        _transaction.place(place, file);
        if (isThere(beside)) {
            _transaction.remove(beside);
        }
        break;
    case ConffileChoice::KeepBeside:
        _transaction.place(beside, file);
        _notes.push_back((present ? "kept " + file.name + " as it was changed here" : "left " + file.name + " away") +
                         "; the package's lies beside as " + beside.filename().string());
        break;
    case ConffileChoice::Keep:
        break;
    }
}

void Installation::takeOverFiles(const Package& package) {
    for (InstalledPackage other : std::vector(_database.packages())) {
        if (other.fields.name == package.fields.name) {
            continue;
        }
        const std::size_t count = std::erase_if(other.files, [&](const std::string& path) {
            const TarEntry* file = package.find(path);
            return file != nullptr && file->kind != Kind::Folder;
        });
        if (count > 0) {
            writeDatabaseFile(PackageDatabase::informationPath(other.fields.name, "list"),
                              PackageDatabase::listText(other.files));
            _database.put(other);
        }
    }
}

void Installation::record(const Package& package, const InstalledPackage* before) {
    InstalledPackage now;
    now.fields = package.fields;
    for (const TarEntry& file : package.files) {
        now.files.push_back(file.name);
    }
    for (const std::string& path : package.conffiles) {
        now.conffiles[path] = {conffileHash(package.find(path)->content), false};
    }
    if (before != nullptr) {
        for (const auto& [path, conffile] : before->conffiles) {
            if (package.find(path) == nullptr && isThere(_paths.locate(path))) {
                now.conffiles[path] = {conffile.hash, true};
                now.files.push_back(path);
            }
        }
    }
    _database.put(now);

    const std::string& name = package.fields.name;
    for (const char* kind : recordKinds) {
        const std::string path = PackageDatabase::informationPath(name, kind);
        if (const auto content = package.information.find(kind); content != package.information.end()) {
            writeDatabaseFile(path, content->second);
        } else if (std::string_view(kind) == "list") {
            writeDatabaseFile(path, PackageDatabase::listText(now.files));
        } else if (std::string_view(kind) == "owners") {
            writeDatabaseFile(path, ownersText(package));
        } else {
            removeDatabaseFile(path);
        }
    }
    writeDatabaseFile(PackageDatabase::statusPath(), _database.statusText());
}

void Installation::remove(const InstalledPackage& installed) {
    InstalledPackage left = installed;
    std::set<std::string> staying; // the conffiles, and the folders or links to folders that they lie in
    left.files.clear();
    for (const auto& [path, conffile] : installed.conffiles) {
        for (fs::path part = path; part != "/"; part = part.parent_path()) {
            staying.insert(part.string());
        }
    }
    for (const std::string& path : installed.files) {
        if (staying.contains(path)) {
            left.files.push_back(path);
        }
    }
    left.isInstalled = false;
    for (const auto& [path, conffile] : installed.conffiles) {
        if (isThere(_paths.locate(path))) {
            _notes.push_back("kept " + path + ", which a person may have changed");
        }
    }
    removeLeftOver(installed, staying);
    for (const char* kind : recordKinds) {
        const std::string path = PackageDatabase::informationPath(installed.fields.name, kind);
        if (std::string_view(kind) == "list" && !staying.empty()) {
            writeDatabaseFile(path, PackageDatabase::listText(left.files));
        } else {
            removeDatabaseFile(path);
        }
    }
    if (staying.empty()) {
        _database.remove(installed.fields.name);
    } else {
        _database.put(left);
    }
    writeDatabaseFile(PackageDatabase::statusPath(), _database.statusText());
    removeEmptyFolders();
}

void Installation::writeDatabaseFile(const std::string& path, const std::string& content) {
    const fs::path place = _paths.follow(path);
    if (!fs::is_directory(place.parent_path()) && _recordFolders.insert(place.parent_path()).second) {
        _transaction.makeFolder(place.parent_path(), 0755);
    }
    _transaction.place(place, plainFile(content));
}

void Installation::removeDatabaseFile(const std::string& path) {
    const fs::path place = _paths.locate(path);
    if (isThere(place)) {
        _transaction.remove(place);
    }
}

void Installation::removeEmptyFolders() {
    std::sort(_emptied.rbegin(), _emptied.rend());
    for (const fs::path& folder : _emptied) {
        _transaction.removeFolder(folder);
    }
}

} // namespace phone
