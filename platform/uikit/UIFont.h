/// UIFont, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/coregraphics/CGGeometry.h"
#include "platform/foundation/NSString.h"

class UIFont : public NSObject {
public:
    static constexpr auto objc_name = "UIFont";
    using NSObject::NSObject;
    /// Sizes are in points.
    static UIFont system(CGFloat size) { return objc::sendClass<UIFont, "systemFontOfSize:", UIFont>(size); }
    static UIFont boldSystem(CGFloat size) { return objc::sendClass<UIFont, "boldSystemFontOfSize:", UIFont>(size); }
    static UIFont named(const NSString& name, CGFloat size) {
        return objc::sendClass<UIFont, "fontWithName:size:", UIFont>(name, size);
    }

    /// The same face at another size.
    UIFont withSize(CGFloat size) const { return send<"fontWithSize:", UIFont>(size); }

    NSString fontName() const { return send<"fontName", NSString>(); }
    CGFloat pointSize() const { return send<"pointSize", CGFloat>(); }
    CGFloat lineHeight() const { return send<"lineHeight", CGFloat>(); }
};
