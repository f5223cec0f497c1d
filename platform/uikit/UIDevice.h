/// UIDevice, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/foundation/NSString.h"

class UIDevice : public NSObject {
public:
    static constexpr auto objc_name = "UIDevice";
    using NSObject::NSObject;
    static UIDevice current() { return objc::sendClass<UIDevice, "currentDevice", UIDevice>(); }

    /// 0 for a phone, 1 for a tablet. Older systems do not answer it.
    objc::Int userInterfaceIdiom() const { return send<"userInterfaceIdiom", objc::Int>(); }
    NSString model() const { return send<"model", NSString>(); }
    NSString systemVersion() const { return send<"systemVersion", NSString>(); }
};
