#include "phone/packages/Installer.h"

#include "phone/flow/InputError.h"
#include "phone/packages/Installation.h"
#include "phone/packages/PackageError.h"
#include "phone/packages/RelationCheck.h"
#include "phone/packages/RootLock.h"

#include <functional>

namespace phone {

namespace fs = std::filesystem;

namespace {

/// Holds the root folder, mends what a crash left there, and puts `subject` in front of what goes wrong.
std::vector<std::string> changing(const fs::path& root, const std::string& subject,
                                  const std::function<std::vector<std::string>(const RootPaths&)>& change) {
    try {
        const RootPaths paths(root);
        const RootLock lock(paths.root());
        paths.follow(PackageDatabase::statusPath());
        const bool isMended = Transaction::mend(paths.root());
        std::vector<std::string> lines = change(paths);
        if (isMended) {
            lines.emplace_back("took back an installation that had broken off");
        }
        return lines;
    } catch (const PackageError& error) {
        throw InputError({subject, 0}, error.what());
    } catch (const fs::filesystem_error& error) {
        throw InputError({subject, 0},
                         error.path1().string() + ": " + error.code().message() + "; nothing was changed");
    }
}

std::string headline(const PackageFields& package, const InstalledPackage* before) {
    const std::string all = package.name + " " + package.version.text() + ": ";
    if (before == nullptr || !before->isInstalled) {
        return all + "installed";
    }
    const PackageVersion& old = before->fields.version;
    if (package.version == old) {
        return all + "installed again";
    }
    return all + (package.version < old ? "downgraded from " : "upgraded from ") + old.text();
}

} // namespace

std::vector<std::string> installPackage(const fs::path& root, const fs::path& file) {
    const Package package = readPackage(file);
    return changing(root, file.string(), [&](const RootPaths& paths) {
        PackageDatabase database(paths);
        checkInstallation(package.fields, database);
        Installation::check(package, paths, database);
        std::vector<std::string> lines = {headline(package.fields, database.find(package.fields.name))};
        Transaction transaction(paths.root());
        Installation installation(paths, database, transaction);
        installation.install(package);
        transaction.carryOut();
        lines.insert(lines.end(), installation.notes().begin(), installation.notes().end());
        return lines;
    });
}

std::vector<std::string> removePackage(const fs::path& root, const std::string& name) {
    return changing(root, name, [&](const RootPaths& paths) {
        PackageDatabase database(paths);
        const InstalledPackage* found = database.find(name);
        if (found == nullptr || !found->isInstalled) {
            throw PackageError("no package of this name is installed on " + root.string() +
                               "; `phone install FILE.deb` installs one");
        }
        const InstalledPackage installed = *found;
        checkRemoval(installed.fields, database);
        Transaction transaction(paths.root());
        Installation removal(paths, database, transaction);
        removal.remove(installed);
        transaction.carryOut();
        std::vector<std::string> lines = {name + " " + installed.fields.version.text() + ": removed"};
        lines.insert(lines.end(), removal.notes().begin(), removal.notes().end());
        return lines;
    });
}

} // namespace phone
