/// What some work raises.
#pragma once

#include "phone/foundation/Raise.h"

#include <string>

/// The name of the platform's exception that gets out of the work; "" when none does.
template <class Work>
std::string raised(const Work& work) {
    try {
        work();
    } catch (...) {
        const auto exception = phone::caughtException();
        return exception ? exception->name : "no exception of the platform's";
    }
    return "";
}

inline constexpr const char* invalidArgument = "NSInvalidArgumentException";
