#include "tests/packages/SystemFaults.h"

#include <cerrno>
#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using phone::SystemFaults;

/// Whether this call is the one that goes wrong.
bool fails() {
    if (SystemFaults::kind == SystemFaults::Kind::None || SystemFaults::callsLeft-- > 0) {
        return false;
    }
    if (SystemFaults::kind == SystemFaults::Kind::Crash) {
        _exit(SystemFaults::crashed);
    }
    SystemFaults::kind = SystemFaults::Kind::None;
    errno = ENOSPC;
    return true;
}

template <class Function, class... Arguments>
auto pass(Function, const char* name, Arguments... arguments) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name))(arguments...);
}

} // namespace

extern "C" {
int rename(const char* from, const char* to) noexcept { return fails() ? -1 : pass(&rename, "rename", from, to); }
int link(const char* from, const char* to) noexcept { return fails() ? -1 : pass(&link, "link", from, to); }
int symlink(const char* from, const char* to) noexcept { return fails() ? -1 : pass(&symlink, "symlink", from, to); }
int mkdir(const char* path, mode_t mode) noexcept { return fails() ? -1 : pass(&mkdir, "mkdir", path, mode); }
int rmdir(const char* path) noexcept { return fails() ? -1 : pass(&rmdir, "rmdir", path); }
int unlink(const char* path) noexcept { return fails() ? -1 : pass(&unlink, "unlink", path); }
ssize_t write(int file, const void* bytes, size_t count) {
    return fails() ? -1 : pass(&write, "write", file, bytes, count);
}
}
