#include "phone/packages/Package.h"
#include "phone/packages/PackageError.h"

#include <algorithm>

namespace phone {

namespace {

constexpr const char* architecture = "iphoneos-arm";

std::string needed(const ControlFields& fields, const char* name) {
    const std::string& value = fields.value(name);
    if (value.empty() || value.find('\n') != std::string::npos) {
        throw PackageError(std::string("the control file ") +
                           (value.empty() ? "lacks the field " : "breaks the line of ") + name);
    }
    return value;
}

std::vector<Alternatives> relations(const ControlFields& fields, std::initializer_list<const char*> names) {
    std::vector<Alternatives> all;
    for (const char* name : names) {
        try {
            for (Alternatives& one : parseRelations(fields.value(name))) {
                all.push_back(std::move(one));
            }
        } catch (const PackageError& error) {
            throw PackageError(std::string(name) + ": " + error.what());
        }
    }
    return all;
}

} // namespace

PackageFields PackageFields::parse(const ControlFields& fields) {
    PackageFields read;
    read.all = fields;
    read.name = needed(fields, "Package");
    if (!isPackageName(read.name)) {
        throw PackageError("`" + read.name +
                           "` is no name of a package: lower-case letters, digits, `+`, `-` and `.`, at least two");
    }
    read.version = PackageVersion::parse(needed(fields, "Version"));
    read.depends = relations(fields, {"Pre-Depends", "Depends"});
    read.conflicts = relations(fields, {"Conflicts", "Breaks"});
    read.provides = relations(fields, {"Provides"});
    read.replaces = relations(fields, {"Replaces"});
    return read;
}

void PackageFields::checkArchitecture() const {
    const std::string builtFor = needed(all, "Architecture");
    if (builtFor != architecture && builtFor != "all") {
        throw PackageError("built for " + builtFor + "; the phone takes packages for " + architecture);
    }
}

bool PackageFields::satisfies(const Relation& relation) const {
    if (relation.package == name) {
        return relation.accepts(version);
    }
    return std::any_of(provides.begin(), provides.end(), [&](const Alternatives& provided) {
        const Relation& one = provided.front();
        return one.package == relation.package &&
               (!relation.version || (one.version && relation.accepts(*one.version)));
    });
}

} // namespace phone
