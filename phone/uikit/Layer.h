/// What of a view's look is beyond its colour: round corners, border, clipping, and what it does to what lies beneath.
#pragma once

#include "phone/coregraphics/CGColor.h"
#include "platform/uikit/CALayer.h"

namespace phone {

/// CALayer. The radius rounds background and border; content and children only when the layer masks.
class Layer : public objc::Implements<Layer, CALayer, NSObject> {
public:
    static void define(objc::ClassTable<Layer>& c) {
        c.get<"cornerRadius", &Layer::_cornerRadius>()
            .set<"setCornerRadius:", &Layer::_cornerRadius>()
            .get<"masksToBounds", &Layer::_masks>()
            .set<"setMasksToBounds:", &Layer::_masks>()
            .get<"borderWidth", &Layer::_borderWidth>()
            .set<"setBorderWidth:", &Layer::_borderWidth>()
            .def<"borderColor", &Layer::borderColor>()
            .def<"setBorderColor:", &Layer::setBorderColor>();
    }

    CGFloat cornerRadius() const { return _cornerRadius; }
    bool masksToBounds() const { return _masks; }
    CGFloat borderWidth() const { return _borderWidth; }
    /// How far what lies beneath the view is blurred, in points; 0 for not at all.
    double blurBelow() const { return _blurBelow; }
    void setBlurBelow(double radius) { _blurBelow = radius; }
    /// Black unless set; nullptr when that was set. Lives as long as the layer.
    CGColorRef borderColor() { return _hasBorderColor ? &_borderColor : nullptr; }
    /// Keeps a copy.
    void setBorderColor(CGColorRef color) {
        _hasBorderColor = color != nullptr;
        _borderColor = _hasBorderColor ? *color : CGColor();
    }

private:
    CGFloat _cornerRadius = 0;
    CGFloat _borderWidth = 0;
    double _blurBelow = 0;
    bool _masks = false;
    bool _hasBorderColor = true;
    CGColor _borderColor;
};

} // namespace phone
