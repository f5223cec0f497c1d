#include "phone/packages/RelationCheck.h"

#include "phone/packages/PackageError.h"
#include "phone/packages/PhonePackages.h"

#include <algorithm>

namespace phone {

namespace {

/// What is on the phone besides the package.
std::vector<const PackageFields*> others(const std::string& name, const PackageDatabase& database) {
    std::vector<const PackageFields*> all;
    for (const PackageFields& own : phonePackages()) {
        all.push_back(&own);
    }
    for (const InstalledPackage& package : database.packages()) {
        if (package.isInstalled && package.fields.name != name) {
            all.push_back(&package.fields);
        }
    }
    return all;
}

const PackageFields* satisfying(const Alternatives& wanted, const std::vector<const PackageFields*>& packages) {
    for (const Relation& relation : wanted) {
        const auto package = std::find_if(packages.begin(), packages.end(),
                                          [&](const PackageFields* one) { return one->satisfies(relation); });
        if (package != packages.end()) {
            return *package;
        }
    }
    return nullptr;
}

std::string text(const Alternatives& wanted) {
    std::string all;
    for (const Relation& relation : wanted) {
        all += (all.empty() ? "" : " or ") + relation.text();
    }
    return all;
}

} // namespace

void checkInstallation(const PackageFields& package, const PackageDatabase& database) {
    std::vector<const PackageFields*> present = others(package.name, database);
    const auto isPhones = [&](const PackageFields& own) { return own.name == package.name; };
    if (std::any_of(phonePackages().begin(), phonePackages().end(), isPhones)) {
        throw PackageError(package.name + " is part of the phone, and cannot be installed on it");
    }
    for (const Alternatives& conflict : package.conflicts) {
        if (const PackageFields* other = satisfying(conflict, present)) {
            throw PackageError(package.name + " conflicts with " + other->name + " " + other->version.text() +
                               ", which is installed; remove that first");
        }
    }
    for (const PackageFields* other : present) {
        for (const Alternatives& conflict : other->conflicts) {
            if (satisfying(conflict, {&package}) != nullptr) {
                throw PackageError(other->name + ", which is installed, conflicts with " + package.name + " " +
                                   package.version.text() + "; remove that first");
            }
        }
    }
    present.push_back(&package);
    for (const Alternatives& need : package.depends) {
        if (satisfying(need, present) == nullptr) {
            throw PackageError(package.name + " depends on " + text(need) +
                               ", which the phone lacks; install that first");
        }
    }
}

void checkRemoval(const PackageFields& package, const PackageDatabase& database) {
    const std::vector<const PackageFields*> left = others(package.name, database);
    for (const PackageFields* other : left) {
        for (const Alternatives& need : other->depends) {
            if (satisfying(need, {&package}) != nullptr && satisfying(need, left) == nullptr) {
                throw PackageError(other->name + " depends on " + package.name + "; remove that first");
            }
        }
    }
}

} // namespace phone
