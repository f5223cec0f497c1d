#include "Quorvan/note/LineCreator.h"

#include "Quorvan/common/Panel.h"

namespace quorvan {

void LineCreator::define(objc::ClassTable<LineCreator>& c) {
    c.init<"initWithFrame:", &LineCreator::initWithFrame>().overrides<"drawRect:", &LineCreator::drawRect>();
}

void LineCreator::initWithFrame(CGRect frame) { super<"initWithFrame:">(frame); }

void LineCreator::drawRect(CGRect rect) {
    super<"drawRect:">(rect);

    // docs/kept.md: the line's own drawing
    const auto context = UIGraphicsGetCurrentContext();
    CGContextSetStrokeColorWithColor(context, grey().CGColor());
    CGContextSetLineWidth(context, 2);
    CGContextMoveToPoint(context, 0, 0);
    CGContextAddLineToPoint(context, 20, 20);
    CGContextStrokePath(context);
}

} // namespace quorvan
