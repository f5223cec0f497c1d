/// The platform exception that some work raises.
#pragma once

#include "phone/foundation/Raise.h"

#include <string>

/// Both texts are "" where nothing is raised. An exception of another kind goes on.
template <class Work>
phone::PlatformException raised(const Work& work) {
    try {
        work();
    } catch (...) {
        if (const auto exception = phone::caughtException()) {
            return *exception;
        }
        throw;
    }
    return {};
}
