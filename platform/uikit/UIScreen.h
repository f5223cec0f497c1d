/// UIScreen, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/coregraphics/CGGeometry.h"
#include "platform/foundation/NSObject.h"

class UIScreen : public NSObject {
public:
    static constexpr auto objc_name = "UIScreen";
    using NSObject::NSObject;
    static UIScreen main() { return objc::sendClass<UIScreen, "mainScreen", UIScreen>(); }

    /// In points; always in portrait.
    CGRect bounds() const { return send<"bounds", CGRect>(); }
    CGFloat scale() const { return send<"scale", CGFloat>(); }
};
