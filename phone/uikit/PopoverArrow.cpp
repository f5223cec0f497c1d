#include "phone/uikit/PopoverArrow.h"

#include "phone/coregraphics/Painter.h"

namespace phone {

void PopoverArrow::define(objc::ClassTable<PopoverArrow>& c) { c.overrides<"drawRect:", &PopoverArrow::drawRect>(); }

objc::Ref<PopoverArrow> PopoverArrow::with(const Color& color) {
    auto arrow = objc::make<objc::Ref<PopoverArrow>>();
    arrow->_color = color;
    arrow->setUserInteractionEnabled(false);
    return arrow;
}

void PopoverArrow::place(CGRect frame, objc::UInt direction) {
    setFrame(frame);
    _direction = direction;
    setNeedsDisplay();
}

void PopoverArrow::drawRect(CGRect) {
    Painter* painter = Painter::current();
    if (painter == nullptr) {
        return;
    }
    const CGRect all = bounds();
    const CGPoint middle = all.center();
    const CGPoint corners[] = {all.origin, {all.maxX(), 0}, {all.maxX(), all.maxY()}, {0, all.maxY()}};
    switch (_direction) {
    case UIPopoverArrowDirectionUp:
        return painter->polygon({corners[3], {middle.x, 0}, corners[2]}, _color);
    case UIPopoverArrowDirectionDown:
        return painter->polygon({corners[0], {middle.x, all.maxY()}, corners[1]}, _color);
    case UIPopoverArrowDirectionLeft:
        return painter->polygon({corners[1], {0, middle.y}, corners[2]}, _color);
    default:
        return painter->polygon({corners[0], {all.maxX(), middle.y}, corners[3]}, _color);
    }
}

} // namespace phone
