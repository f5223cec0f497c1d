#include "phone/uikit/Reachability.h"

#include "phone/uikit/TouchDelivery.h"
#include "platform/uikit/UIControl.h"
#include "platform/uikit/UIEvent.h"

namespace phone {

namespace {

constexpr CGFloat leastVisibleAlpha = 0.01;

/// Points tried in each direction where the middle is covered.
constexpr int gridPoints = 9;

/// The view that stands for this one in hit-testing: the one around the outermost view that takes no
/// touches, or else itself. nil inside a control that takes none: what lies around it is something else.
UIView standIn(const UIView& view) {
    UIView target = view;
    for (UIView at = view; at; at = at.superview()) {
        if (!at.isUserInteractionEnabled()) {
            if (objc::isKind<UIControl>(at)) {
                return nullptr;
            }
            target = at.superview();
        }
    }
    return target;
}

bool reaches(CGPoint point, const UIView& view, const UIView& target) {
    const UIWindow window = TouchDelivery::windowAt(point);
    const CGPoint origin = window.frame().origin;
    const UIView hit = window.hitTest({point.x - origin.x, point.y - origin.y}, nullptr);
    return hit && (hit == target || (target == view && hit.isDescendantOfView(view)));
}

} // namespace

bool isInvisible(const UIView& view) { return view.isHidden() || view.alpha() < leastVisibleAlpha; }

std::optional<CGPoint> touchPoint(const UIView& view, CGRect seen) {
    const UIView target = standIn(view);
    if (!target) {
        return std::nullopt;
    }
    if (reaches(seen.center(), view, target)) {
        return seen.center();
    }
    for (int row = 0; row < gridPoints; ++row) {
        for (int column = 0; column < gridPoints; ++column) {
            const CGPoint point{seen.origin.x + seen.size.width * (column + 0.5) / gridPoints,
                                seen.origin.y + seen.size.height * (row + 0.5) / gridPoints};
            if (reaches(point, view, target)) {
                return point;
            }
        }
    }
    return std::nullopt;
}

} // namespace phone
