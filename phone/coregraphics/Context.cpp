/// The platform's drawing functions, on the painter that draws now. No context: nothing is done.
#include "phone/coregraphics/CGColor.h"
#include "phone/coregraphics/Painter.h"

using phone::Painter;

extern "C" {

CGContextRef UIGraphicsGetCurrentContext() {
    Painter* painter = Painter::current();
    return painter == nullptr ? nullptr : painter->context();
}

void CGContextSetStrokeColorWithColor(CGContextRef context, CGColorRef color) {
    if (context != nullptr && color != nullptr) {
        Painter::of(context)->setStrokeColor(color->color);
    }
}

void CGContextSetLineWidth(CGContextRef context, CGFloat width) {
    if (context != nullptr) {
        Painter::of(context)->setLineWidth(width);
    }
}

void CGContextMoveToPoint(CGContextRef context, CGFloat x, CGFloat y) {
    if (context != nullptr) {
        Painter::of(context)->moveTo({x, y});
    }
}

void CGContextAddLineToPoint(CGContextRef context, CGFloat x, CGFloat y) {
    if (context != nullptr) {
        Painter::of(context)->addLineTo({x, y});
    }
}

void CGContextStrokePath(CGContextRef context) {
    if (context != nullptr) {
        Painter::of(context)->strokePath();
    }
}
}
