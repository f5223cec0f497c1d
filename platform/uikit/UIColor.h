/// UIColor, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/coregraphics/CGContext.h"
#include "platform/foundation/NSObject.h"

class UIColor : public NSObject {
public:
    static constexpr auto objc_name = "UIColor";
    using NSObject::NSObject;
    /// Components from 0 to 1.
    static UIColor rgba(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
        return objc::sendClass<UIColor, "colorWithRed:green:blue:alpha:", UIColor>(red, green, blue, alpha);
    }
    static UIColor white() { return objc::sendClass<UIColor, "whiteColor", UIColor>(); }
    static UIColor black() { return objc::sendClass<UIColor, "blackColor", UIColor>(); }
    static UIColor clear() { return objc::sendClass<UIColor, "clearColor", UIColor>(); }

    /// Lives as long as the colour.
    CGColorRef CGColor() const { return send<"CGColor", CGColorRef>(); }
};
