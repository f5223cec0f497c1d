#include "phone/device/RootFolder.h"

namespace phone {

namespace {

std::string& root() {
    static auto* folder = new std::string; // asked by file calls until the very end of the process
    return *folder;
}

bool liesUnder(std::string_view path, std::string_view folder) {
    return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

} // namespace

void RootFolder::use(const std::filesystem::path& folder) { root() = std::filesystem::absolute(folder).string(); }

const std::string& RootFolder::path() { return root(); }

bool RootFolder::isDevicePath(std::string_view path) {
    return liesUnder(path, "/Library") || liesUnder(path, "/System") || liesUnder(path, "/Applications") ||
           liesUnder(path, "/var/mobile");
}

std::string RootFolder::hostPath(std::string_view path) {
    const bool mapped = !root().empty() && isDevicePath(path) && !liesUnder(path, root());
    return mapped ? root() + std::string(path) : std::string(path);
}

} // namespace phone
