#include "phone/packages/RootPaths.h"

#include "phone/packages/PackageError.h"

#include <algorithm>

namespace phone {

namespace fs = std::filesystem;

RootPaths::RootPaths(const fs::path& root) : _root(fs::canonical(root)) {}

fs::path RootPaths::locate(const std::string& devicePath) const {
    fs::path place = _root;
    for (const fs::path& part : fs::path(devicePath).relative_path()) {
        if (part == "..") {
            throw PackageError(devicePath + " leads out of the root folder");
        }
        place = (fs::is_symlink(place) ? ended(place) : place) / part;
    }
    return place;
}

fs::path RootPaths::follow(const std::string& devicePath) const {
    const fs::path place = locate(devicePath);
    return fs::is_symlink(place) ? ended(place) : place;
}

fs::path RootPaths::ended(const fs::path& link) const {
    std::error_code error;
    const fs::path end = fs::canonical(link, error);
    const auto [ofRoot, ofEnd] = std::mismatch(_root.begin(), _root.end(), end.begin(), end.end());
    if (error || ofRoot != _root.end()) {
        throw PackageError(link.string() + " is a link that leads " + (error ? "nowhere" : "out of the root folder") +
                           "; remove it");
    }
    return end;
}

} // namespace phone
