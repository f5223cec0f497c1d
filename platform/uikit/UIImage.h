/// UIImage, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/coregraphics/CGGeometry.h"
#include "platform/foundation/NSString.h"

class UIImage : public NSObject {
public:
    static constexpr auto objc_name = "UIImage";
    using NSObject::NSObject;
    /// Of a picture file, its "@2x" variant where there is one; nil for a file that is missing or no picture.
    static UIImage withContentsOfFile(const NSString& path) {
        return objc::sendClass<UIImage, "imageWithContentsOfFile:", UIImage>(path);
    }

    /// In points.
    CGSize size() const { return send<"size", CGSize>(); }
    /// Pixels per point.
    CGFloat scale() const { return send<"scale", CGFloat>(); }
    /// A copy whose one column and row after the caps stretch. The receiver is not changed.
    UIImage stretchable(objc::Int leftCapWidth, objc::Int topCapHeight) const {
        return send<"stretchableImageWithLeftCapWidth:topCapHeight:", UIImage>(leftCapWidth, topCapHeight);
    }
};
