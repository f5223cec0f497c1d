/// One package on its way onto the phone: which files go where, and what leaves.
#pragma once

#include "phone/packages/PackageDatabase.h"
#include "phone/packages/Transaction.h"

#include <set>

namespace phone {

/// Plans the changes; nothing takes place before the transaction is carried out.
class Installation {
public:
    Installation(const RootPaths& paths, PackageDatabase& database, Transaction& transaction)
        : _paths(paths), _database(database), _transaction(transaction) {}

    /// Throws PackageError, before anything was asked of a transaction, when a place is taken: by another package,
    /// or by a folder where a file is to be, or the other way round.
    static void check(const Package& package, const RootPaths& paths, const PackageDatabase& database);

    /// The package and the record of it, in place of the version before.
    void install(const Package& package);
    /// Removes what is installed but for its conffiles.
    void remove(const InstalledPackage& installed);

    /// What was kept, and what was not done.
    const std::vector<std::string>& notes() const { return _notes; }

private:
    void removeLeftOver(const InstalledPackage& before, const std::set<std::string>& staying);
    void placeFolders(const Package& package, const InstalledPackage* before);
    void placeFiles(const Package& package, const InstalledPackage* before);
    void placeConffile(const TarEntry& file, const InstalledPackage* before);
    void takeOverFiles(const Package& package);
    void record(const Package& package, const InstalledPackage* before);
    void writeDatabaseFile(const std::string& path, const std::string& content);
    void removeDatabaseFile(const std::string& path);
    void removeEmptyFolders();

    const RootPaths& _paths;
    PackageDatabase& _database;
    Transaction& _transaction;
    std::set<std::filesystem::path> _placed;
    std::set<std::filesystem::path> _recordFolders; // made for the record
    std::vector<std::filesystem::path> _emptied;    // folders, an outer one before those in it
    std::vector<std::string> _notes;
};

} // namespace phone
