/// What this executable's own definitions of the C library's file functions share.
#pragma once

#include "phone/device/RootFolder.h"
#include "platform/objc/Selector.h"

#include <dlfcn.h>

#include <cerrno>
#include <string>
#include <type_traits>

namespace phone {

/// The C library's definition of a function that is defined here too.
template <objc::FixedString name, class Function>
Function next(Function) {
    static const auto found = reinterpret_cast<Function>(dlsym(RTLD_NEXT, name.text));
    return found;
}

/// A path as the host knows it, for the length of one call. A null path stays null.
class OnHost {
public:
    explicit OnHost(const char* path) : _path(path) {
        if (path != nullptr && !RootFolder::path().empty() && RootFolder::isDevicePath(path)) {
            _mapped = RootFolder::hostPath(path);
            _path = _mapped.c_str();
        }
    }
    operator const char*() const { return _path; } // NOLINT: stands for the path
    bool isMapped() const { return !_mapped.empty(); }

private:
    const char* _path;
    std::string _mapped;
};

/// What the function answers, unless the disk refuses with an error number.
template <class Function, class... Arguments>
auto unlessRefused(int error, Function function, const Arguments&... arguments) -> decltype(function(arguments...)) {
    if (error == 0) {
        return function(arguments...);
    }
    errno = error;
    if constexpr (std::is_pointer_v<decltype(function(arguments...))>) {
        return nullptr;
    } else {
        return -1;
    }
}

/// What the C library's function of this name answers for the path on the host, unless the disk refuses by the
/// error number that `fault` has for that path.
template <objc::FixedString name, class Fault, class Function, class... Rest>
auto passOn(Fault fault, Function function, const char* path, Rest... rest) {
    const OnHost host(path);
    return unlessRefused(fault(host), next<name>(function), host, rest...);
}

/// The same for a function that takes a folder before the path.
template <objc::FixedString name, class Fault, class Function, class... Rest>
auto passOnAt(Fault fault, Function function, int folder, const char* path, Rest... rest) {
    const OnHost host(path);
    return unlessRefused(fault(host), next<name>(function), folder, host, rest...);
}

} // namespace phone
