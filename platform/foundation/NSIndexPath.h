/// NSIndexPath with the section and row that tables use. Every call is safe on nil.
#pragma once

#include "platform/foundation/NSObject.h"

class NSIndexPath : public NSObject {
public:
    static constexpr auto objc_name = "NSIndexPath";
    using NSObject::NSObject;
    static NSIndexPath forRow(objc::Int row, objc::Int section) {
        return objc::sendClass<NSIndexPath, "indexPathForRow:inSection:", NSIndexPath>(row, section);
    }

    objc::Int row() const { return send<"row", objc::Int>(); }
    objc::Int section() const { return send<"section", objc::Int>(); }
};
