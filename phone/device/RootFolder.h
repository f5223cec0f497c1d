/// The folder that stands for the device's `/`.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace phone {

/// One per process. Only paths under /Library, /System, /Applications and /var/mobile are mapped.
class RootFolder {
public:
    /// Sets the folder; an absolute path of the host. Once, before anything is read.
    static void use(const std::filesystem::path& root);
    /// The folder in use; empty when none is.
    static const std::string& path();
    /// Whether the path names something on the device.
    static bool isDevicePath(std::string_view path);
    /// The host's path of a device path; any other path as it is.
    static std::string hostPath(std::string_view path);
};

} // namespace phone
