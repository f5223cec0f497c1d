/// CALayer, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/coregraphics/CGContext.h"
#include "platform/coregraphics/CGGeometry.h"
#include "platform/foundation/NSObject.h"

class CALayer : public NSObject {
public:
    static constexpr auto objc_name = "CALayer";
    using NSObject::NSObject;

    CGFloat cornerRadius() const { return send<"cornerRadius", CGFloat>(); }
    void setCornerRadius(CGFloat radius) const { send<"setCornerRadius:">(radius); }
    bool masksToBounds() const { return send<"masksToBounds", bool>(); }
    void setMasksToBounds(bool masks) const { send<"setMasksToBounds:">(masks); }
    CGFloat borderWidth() const { return send<"borderWidth", CGFloat>(); }
    void setBorderWidth(CGFloat width) const { send<"setBorderWidth:">(width); }
    CGColorRef borderColor() const { return send<"borderColor", CGColorRef>(); }
    void setBorderColor(CGColorRef color) const { send<"setBorderColor:">(color); }
};
