/// A Debian package for the phone, read and found sound as a whole before anything is installed.
#pragma once

#include "phone/packages/Archive.h"
#include "phone/packages/ControlFields.h"
#include "phone/packages/PackageVersion.h"
#include "phone/packages/Relation.h"

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace phone {

/// What a package's fields say.
struct PackageFields {
    std::string name;
    PackageVersion version;
    ControlFields all;
    std::vector<Alternatives> depends;   // with those that it depends on before it is unpacked
    std::vector<Alternatives> conflicts; // with what it breaks
    std::vector<Alternatives> provides;
    std::vector<Alternatives> replaces;

    /// Throws PackageError for a field that is missing or wrong.
    static PackageFields parse(const ControlFields& fields);
    /// Throws PackageError unless it is built for the phone.
    void checkArchitecture() const;
    /// Whether it is meant, by its own name or by one it provides.
    bool satisfies(const Relation& relation) const;
};

/// The package with its files; a name of a TarEntry is a device path, such as `/Library/Quorvan`.
struct Package {
    PackageFields fields;
    std::vector<TarEntry> files; // never `/` itself
    std::vector<std::string> conffiles;
    std::map<std::string, std::string> information; // further files of the control part, which dpkg keeps
    std::vector<std::string> scripts;               // the names of those among them that a device would run

    const TarEntry* find(std::string_view path) const;
    bool isConffile(std::string_view path) const;
};

/// Throws InputError, with the file's name, for whatever the device's dpkg would refuse, and for what cannot
/// work on the phone here.
Package readPackage(const std::filesystem::path& file);

/// The same for the bytes of a package; throws PackageError.
Package parsePackage(std::string_view bytes);

} // namespace phone
