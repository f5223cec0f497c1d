/// UIColor: a colour as an object.
#pragma once

#include "phone/coregraphics/CGColor.h"
#include "platform/uikit/UIColor.h"

namespace phone {

/// Immutable. Components beyond 0 and 1 are cut. As on the platform a colour keeps the space that it was
/// made in, so that a grey one never equals one made of red, green and blue.
class ColorObject : public objc::Implements<ColorObject, UIColor, NSObject> {
public:
    static void define(objc::ClassTable<ColorObject>& c);

    const Color& color() const { return _core.color; }

private:
    enum class Space { Gray, Rgb };

    void initWithWhite(CGFloat white, CGFloat alpha);
    void initWithRed(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
    UIColor withAlpha(CGFloat alpha);
    bool isEqual(const objc::Object& other);
    objc::UInt hash();
    CGColorRef CGColor() { return &_core; }

    ::CGColor _core;
    Space _space = Space::Rgb;
};

/// The components; transparent black for nil.
Color colorOf(const UIColor& color);
/// The colour as an object.
UIColor uiColor(const Color& color);

} // namespace phone
