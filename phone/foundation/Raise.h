/// Platform exceptions, raised from and seen in C++.
#pragma once

#include <optional>
#include <string>

namespace phone {

/// Raises an NSException with this name and reason (UTF-8). It unwinds C++ frames on its way, running
/// their destructors; `catch (...)` catches it.
[[noreturn]] void raise(const std::string& name, const std::string& reason);

/// What an NSException says.
struct PlatformException {
    std::string name;
    std::string reason; // "" where it has none
};

/// The platform exception being handled; to be called inside `catch (...)`. nullopt for an exception of
/// another kind.
std::optional<PlatformException> caughtException();

} // namespace phone
