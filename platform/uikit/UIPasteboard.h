/// UIPasteboard, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/foundation/NSString.h"

class UIPasteboard : public NSObject {
public:
    static constexpr auto objc_name = "UIPasteboard";
    using NSObject::NSObject;
    static UIPasteboard general() { return objc::sendClass<UIPasteboard, "generalPasteboard", UIPasteboard>(); }

    NSString string() const { return send<"string", NSString>(); }
    void setString(const NSString& text) const { send<"setString:">(text); }
};
