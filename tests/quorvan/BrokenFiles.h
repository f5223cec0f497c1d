/// Files that nobody could have meant: what may stand where a property list, a table or a picture is looked for.
#pragma once

#include <filesystem>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

/// One way of being broken.
struct BrokenFile {
    std::string name; // for the test's name
    /// Puts it into the place of the file at this path of the host, which may hold a sound one.
    std::function<void(const std::filesystem::path&)> put;

    friend std::ostream& operator<<(std::ostream& out, const BrokenFile& file) { return out << file.name; }
};

/// Whatever the file should hold: empty, cut short, huge, no file at all.
std::vector<BrokenFile> brokenFiles();
/// What harms readers of property lists besides: entities, nesting, binary lists, roots of other types.
std::vector<BrokenFile> brokenPropertyLists();

/// A binary property list of a dictionary of texts, as another program would write it.
std::string binaryPropertyList(const std::vector<std::pair<std::string, std::string>>& texts);

void writeFile(const std::filesystem::path& path, const std::string& bytes);
