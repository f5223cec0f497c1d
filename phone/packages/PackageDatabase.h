/// The record of what is installed, as dpkg keeps it: `/Library/dpkg/status` and the files in `info` beside it.
#pragma once

#include "phone/packages/Package.h"
#include "phone/packages/RootPaths.h"

#include <map>
#include <string>
#include <vector>

namespace phone {

/// What a conffile was when its package was last installed.
struct RecordedConffile {
    std::string hash;        // MD5, in hexadecimal digits
    bool isObsolete = false; // the present version no longer has it
};

/// A package that is installed, or was: then its conffiles alone are left.
struct InstalledPackage {
    PackageFields fields;
    bool isInstalled = true;
    std::map<std::string, RecordedConffile> conffiles;
    std::vector<std::string> files; // device paths, a folder before what lies in it

    bool lists(const std::string& path) const;
};

class PackageDatabase {
public:
    static constexpr const char* folder = "/Library/dpkg";

    /// Empty where nothing was ever installed. Throws InputError when it cannot be read.
    explicit PackageDatabase(const RootPaths& paths);

    /// By name; nullptr for one that never was there.
    const InstalledPackage* find(const std::string& name) const;
    const std::vector<InstalledPackage>& packages() const { return _packages; }
    /// In place of the package of that name, or further.
    void put(const InstalledPackage& package);
    void remove(const std::string& name);
    /// The content of the status file.
    std::string statusText() const;

    static std::string statusPath() { return std::string(folder) + "/status"; }
    static std::string informationPath(const std::string& package, const std::string& kind) {
        return std::string(folder) + "/info/" + package + "." + kind;
    }
    /// The content of a list of files.
    static std::string listText(const std::vector<std::string>& files);

private:
    std::vector<InstalledPackage> _packages;
};

/// MD5, in hexadecimal digits, as dpkg compares conffiles.
std::string conffileHash(const std::string& content);

} // namespace phone
