/// Many changes below the root folder that take place together or not at all.
#pragma once

#include "phone/packages/Archive.h"

#include <filesystem>
#include <string>
#include <vector>

namespace phone {

/// What is new lies in a folder of its own beside the record of what is installed, and is moved into place once all
/// of it is there. A plan in that folder tells the next one, after a crash, what to put back.
class Transaction {
public:
    /// The root folder is locked, and `root` is its canonical path. Throws std::filesystem::filesystem_error, as the
    /// others do.
    explicit Transaction(const std::filesystem::path& root);
    /// Forgets what was not carried out.
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    // Paths are canonical but for their last part, and lie below the root folder.
    void makeFolder(const std::filesystem::path& folder, unsigned mode);
    /// A file or a symbolic link, in place of what is there.
    void place(const std::filesystem::path& path, const TarEntry& entry);
    /// A second name of a file placed before.
    void placeHardLink(const std::filesystem::path& path, const std::filesystem::path& placed);
    void remove(const std::filesystem::path& path);
    /// If it is empty by then.
    void removeFolder(const std::filesystem::path& folder);

    /// Makes the changes in the order they were asked for. When one fails all are taken back.
    void carryOut();

    /// Takes back what a crash left half done; true if there was any.
    static bool mend(const std::filesystem::path& root);

private:
    struct Step {
        enum class Kind { MakeFolder, Place, Remove, RemoveFolder };

        Kind kind;
        std::filesystem::path path; // from the root folder
        unsigned mode = 0;
        bool hadOld = false;
    };

    std::filesystem::path staged(const char* kind, std::size_t number) const;
    void add(Step::Kind kind, const std::filesystem::path& path, unsigned mode = 0);
    void writePlan();
    void readPlan();
    void make(std::size_t number) const;
    void takeBack(std::size_t number) const;
    void takeAllBack();
    void clear() const;

    struct Existing {};
    Transaction(const std::filesystem::path& root, Existing);

    std::filesystem::path _root;
    std::filesystem::path _folder;
    std::vector<Step> _steps;
    bool _isFirst = false; // there was no Library folder
};

} // namespace phone
