/// What the platform's `CGColorRef` points to.
#pragma once

#include "phone/coregraphics/Color.h"
#include "platform/coregraphics/CGContext.h"

struct CGColor {
    phone::Color color;
};

template <>
struct objc::Encoding<CGColor> {
    static constexpr auto text = objc::FixedString("{CGColor=}");
};
