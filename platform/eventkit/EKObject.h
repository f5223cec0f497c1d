/// EKObject, what everything in the calendar store has in common. Every call is safe on nil.
#pragma once

#include "platform/foundation/NSObject.h"

class EKObject : public NSObject {
public:
    static constexpr auto objc_name = "EKObject";
    using NSObject::NSObject;

    /// Whether something was set since it was last saved.
    bool hasChanges() const { return send<"hasChanges", bool>(); }
    /// Whether it has never been saved.
    bool isNew() const { return send<"isNew", bool>(); }
};
