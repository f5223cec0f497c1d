/// NSError, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/foundation/NSString.h"

class NSError : public NSObject {
public:
    static constexpr auto objc_name = "NSError";
    using NSObject::NSObject;

    NSString domain() const { return send<"domain", NSString>(); }
    objc::Int code() const { return send<"code", objc::Int>(); }
    NSString localizedDescription() const { return send<"localizedDescription", NSString>(); }
};
