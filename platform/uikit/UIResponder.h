/// UIResponder, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/foundation/NSObject.h"

class UIResponder : public NSObject {
public:
    static constexpr auto objc_name = "UIResponder";
    using NSObject::NSObject;

    UIResponder nextResponder() const { return send<"nextResponder", UIResponder>(); }
    bool isFirstResponder() const { return send<"isFirstResponder", bool>(); }
    bool canBecomeFirstResponder() const { return send<"canBecomeFirstResponder", bool>(); }
    /// No when the object refuses, or is in no window.
    bool becomeFirstResponder() const { return send<"becomeFirstResponder", bool>(); }
    bool resignFirstResponder() const { return send<"resignFirstResponder", bool>(); }
};
