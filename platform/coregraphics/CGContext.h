/// Drawing into a graphics context: the platform's C functions as far as they are used.
#pragma once

#include "platform/coregraphics/CGGeometry.h"

extern "C" {
using CGContextRef = struct CGContext*;
using CGColorRef = struct CGColor*;

/// The context of the view being drawn, nullptr outside `drawRect:`. Not owned by the caller.
CGContextRef UIGraphicsGetCurrentContext();

void CGContextSetStrokeColorWithColor(CGContextRef context, CGColorRef color);
/// In points, half of it on either side of the path.
void CGContextSetLineWidth(CGContextRef context, CGFloat width);
void CGContextMoveToPoint(CGContextRef context, CGFloat x, CGFloat y);
void CGContextAddLineToPoint(CGContextRef context, CGFloat x, CGFloat y);
/// Strokes the path and empties it.
void CGContextStrokePath(CGContextRef context);
}
