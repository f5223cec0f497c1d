/// Why the calendar store refuses to save something.
#pragma once

#include "platform/eventkit/EKTypes.h"
#include "platform/foundation/NSError.h"

#include <optional>
#include <string>

namespace phone::eventkit {

struct SaveFailure {
    std::string domain;
    objc::Int code = 0;
    std::string text;

    /// One of the store's own.
    static SaveFailure with(EKErrorCode code, const std::string& text);
    /// The store's own process refuses those who have no access.
    static SaveFailure withoutAccess(const char* kind);

    /// Autoreleased: the caller's as long as its pool lives.
    id error() const;
};

/// What saving and committing answer: whether there was no failure. Leaves the error, or nil, in `error`
/// unless that is nullptr.
bool report(const std::optional<SaveFailure>& failure, id* error);

} // namespace phone::eventkit
