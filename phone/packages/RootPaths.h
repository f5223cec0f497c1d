/// Where device paths lie on the host, and never outside of the root folder.
#pragma once

#include <filesystem>
#include <string>

namespace phone {

/// Follows the links that lie in the root folder already.
class RootPaths {
public:
    /// `root` exists.
    explicit RootPaths(const std::filesystem::path& root);

    const std::filesystem::path& root() const { return _root; }
    /// The place itself, which may be a link or missing. Throws PackageError when a link on the way leads out.
    std::filesystem::path locate(const std::string& devicePath) const;
    /// What the place stands for: where the link there ends. Throws PackageError when that lies outside.
    std::filesystem::path follow(const std::string& devicePath) const;

private:
    std::filesystem::path ended(const std::filesystem::path& link) const;

    std::filesystem::path _root;
};

} // namespace phone
