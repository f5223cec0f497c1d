#include "phone/packages/PackageDatabase.h"

#include "phone/eventkit/DurableFile.h"
#include "phone/flow/InputError.h"
#include "phone/packages/PackageError.h"

#include <nettle/md5.h>

#include <algorithm>
#include <array>
#include <sstream>

namespace phone {

namespace {

constexpr const char* installedStatus = "install ok installed";
constexpr const char* removedStatus = "deinstall ok config-files";

std::map<std::string, RecordedConffile> conffiles(const std::string& text) {
    std::map<std::string, RecordedConffile> all;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        // From the end, since a name may hold blanks.
        RecordedConffile one;
        constexpr std::string_view mark = " obsolete";
        if (line.ends_with(mark)) {
            one.isObsolete = true;
            line.erase(line.size() - mark.size());
        }
        const auto blank = line.rfind(' ');
        if (blank != std::string::npos && line.front() == '/') {
            one.hash = line.substr(blank + 1);
            all[line.substr(0, blank)] = one;
        }
    }
    return all;
}

std::string conffilesText(const std::map<std::string, RecordedConffile>& conffiles) {
    std::string text;
    for (const auto& [path, conffile] : conffiles) {
        text += "\n" + path + " " + conffile.hash + (conffile.isObsolete ? " obsolete" : "");
    }
    return text;
}

std::vector<std::string> listedFiles(const std::string& text) {
    std::vector<std::string> files;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with("/") && line != "/.") {
            files.push_back(line);
        }
    }
    return files;
}

} // namespace

bool InstalledPackage::lists(const std::string& path) const {
    return std::find(files.begin(), files.end(), path) != files.end();
}

PackageDatabase::PackageDatabase(const RootPaths& paths) {
    const auto status = paths.follow(statusPath());
    try {
        for (const ControlFields& paragraph : parseControlFields(contentOf(status).value_or(""))) {
            InstalledPackage package;
            package.fields = PackageFields::parse(paragraph);
            package.isInstalled = paragraph.value("Status").ends_with(" installed");
            package.conffiles = phone::conffiles(paragraph.value("Conffiles"));
            package.fields.all.remove("Status");
            package.fields.all.remove("Conffiles");
            const auto list = paths.follow(informationPath(package.fields.name, "list"));
            package.files = listedFiles(contentOf(list).value_or(""));
            _packages.push_back(std::move(package));
        }
    } catch (const PackageError& error) {
        throw InputError({status.string(), 0}, std::string(error.what()) +
                                                   "; the record of what is installed cannot be read: mend it, or "
                                                   "make a new phone");
    }
}

const InstalledPackage* PackageDatabase::find(const std::string& name) const {
    const auto package = std::find_if(_packages.begin(), _packages.end(),
                                      [&](const InstalledPackage& one) { return one.fields.name == name; });
    return package == _packages.end() ? nullptr : &*package;
}

void PackageDatabase::put(const InstalledPackage& package) {
    const auto same = std::find_if(_packages.begin(), _packages.end(),
                                   [&](const InstalledPackage& one) { return one.fields.name == package.fields.name; });
    if (same == _packages.end()) {
        _packages.push_back(package);
    } else {
        *same = package;
    }
}

void PackageDatabase::remove(const std::string& name) {
    std::erase_if(_packages, [&](const InstalledPackage& one) { return one.fields.name == name; });
}

std::string PackageDatabase::statusText() const {
    std::string text;
    for (const InstalledPackage& package : _packages) {
        ControlFields first;
        first.set("Package", package.fields.name);
        first.set("Status", package.isInstalled ? installedStatus : removedStatus);
        ControlFields rest = package.fields.all;
        rest.remove("Package");
        if (!package.conffiles.empty()) {
            rest.set("Conffiles", conffilesText(package.conffiles));
        }
        text += first.text() + rest.text() + "\n";
    }
    return text;
}

std::string PackageDatabase::listText(const std::vector<std::string>& files) {
    std::string text = "/.\n";
    for (const std::string& file : files) {
        text += file + "\n";
    }
    return text;
}

std::string conffileHash(const std::string& content) {
    md5_ctx hash;
    md5_init(&hash);
    md5_update(&hash, content.size(), reinterpret_cast<const std::uint8_t*>(content.data()));
    std::array<std::uint8_t, MD5_DIGEST_SIZE> digest{};
    md5_digest(&hash, digest.size(), digest.data());
    std::string digits;
    for (const std::uint8_t byte : digest) {
        digits += "0123456789abcdef"[byte >> 4];
        digits += "0123456789abcdef"[byte & 15];
    }
    return digits;
}

} // namespace phone
