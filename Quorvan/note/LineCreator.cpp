#include "Quorvan/note/LineCreator.h"

#include "Quorvan/common/Panel.h"

namespace quorvan {

void LineCreator::define(objc::ClassTable<LineCreator>& c) {
    c.init<"initWithFrame:", &LineCreator::initWithFrame>().overrides<"drawRect:", &LineCreator::drawRect>();
}

void LineCreator::initWithFrame(CGRect frame) { super<"initWithFrame:">(frame); }

void LineCreator::drawRect(CGRect rect) {
    super<"drawRect:">(rect);

    // Deliberately fixed, whatever the view's size: of a hairline only the diagonal's corner shows.
    const auto context = UIGraphicsGetCurrentContext();
    CGContextSetStrokeColorWithColor(context, grey().CGColor());
    CGContextSetLineWidth(context, 2);
    CGContextMoveToPoint(context, 0, 0);
    CGContextAddLineToPoint(context, 20, 20);
    CGContextStrokePath(context);
}

} // namespace quorvan
