#include "phone/uikit/PopoverPresentationController.h"

#include "phone/foundation/Raise.h"
#include "phone/foundation/Text.h"
#include "phone/uikit/BarButtonItem.h"
#include "phone/uikit/StatusBar.h"

#include <algorithm>
#include <array>
#include <limits>

namespace phone {

namespace {

// In points.
constexpr CGFloat margin = 10;       // between the popover and the screen's edges
constexpr CGFloat arrowLength = 13;  // from the bubble to the anchor
constexpr CGFloat arrowBreadth = 26; // where it meets the bubble

/// How much room lies between the anchor and the edges on the side that the arrow points away from.
CGFloat room(objc::UInt direction, CGRect anchor, CGRect within) {
    switch (direction) {
    case UIPopoverArrowDirectionUp:
        return within.maxY() - anchor.maxY();
    case UIPopoverArrowDirectionDown:
        return anchor.origin.y - within.origin.y;
    case UIPopoverArrowDirectionLeft:
        return within.maxX() - anchor.maxX();
    default:
        return anchor.origin.x - within.origin.x;
    }
}

bool isVertical(objc::UInt direction) {
    return direction == UIPopoverArrowDirectionUp || direction == UIPopoverArrowDirectionDown;
}

/// So much of a line that it lies between the bounds, as near to the middle wanted as can be.
CGFloat fitted(CGFloat middle, CGFloat length, CGFloat least, CGFloat most) {
    return std::clamp(middle - length / 2, least, std::max<CGFloat>(least, most - length));
}

} // namespace

void PopoverPresentationController::define(objc::ClassTable<PopoverPresentationController>& c) {
    c.get<"sourceView", &PopoverPresentationController::_sourceView>()
        .set<"setSourceView:", &PopoverPresentationController::_sourceView>()
        .get<"sourceRect", &PopoverPresentationController::_sourceRect>()
        .set<"setSourceRect:", &PopoverPresentationController::_sourceRect>()
        .get<"barButtonItem", &PopoverPresentationController::_barButtonItem>()
        .set<"setBarButtonItem:", &PopoverPresentationController::_barButtonItem>()
        .get<"permittedArrowDirections", &PopoverPresentationController::_permitted>()
        .set<"setPermittedArrowDirections:", &PopoverPresentationController::_permitted>()
        .get<"arrowDirection", &PopoverPresentationController::_direction>();
}

void PopoverPresentationController::checkAnchor() const {
    if (!_sourceView && !_barButtonItem) {
        raise("NSGenericException", "UIPopoverPresentationController (" + text(description()) +
                                        ") should have a non-nil sourceView or barButtonItem set before the "
                                        "presentation occurs.");
    }
}

UIView PopoverPresentationController::anchorView() const {
    const BarButtonItem* item = BarButtonItem::of(_barButtonItem);
    return item == nullptr ? _sourceView : item->view();
}

CGRect PopoverPresentationController::anchorIn(const UIView& container) const {
    const UIView view = anchorView();
    return view.convertRectToView(_barButtonItem ? view.bounds() : _sourceRect, container);
}

PopoverPlace PopoverPresentationController::place(CGSize content, const UIView& container) {
    const CGSize all = container.bounds().size;
    const CGRect within{margin, statusBarHeight, all.width - 2 * margin, all.height - statusBarHeight - margin};
    const CGRect anchor = anchorIn(container);
    const CGPoint middle = anchor.center();

    constexpr std::array<objc::UInt, 4> preferred = {UIPopoverArrowDirectionUp, UIPopoverArrowDirectionDown,
                                                     UIPopoverArrowDirectionLeft, UIPopoverArrowDirectionRight};
    PopoverPlace found;
    CGFloat most = -std::numeric_limits<CGFloat>::infinity();
    for (const objc::UInt direction : preferred) {
        const CGFloat needed = arrowLength + (isVertical(direction) ? content.height : content.width);
        const CGFloat left = room(direction, anchor, within) - needed;
        if ((_permitted & direction) != 0 && most < 0 && left > most) {
            found.direction = direction;
            most = left;
        }
    }
    _direction = found.direction;

    const CGFloat x = fitted(middle.x, content.width, within.origin.x, within.maxX());
    const CGFloat y = fitted(middle.y, content.height, within.origin.y, within.maxY());
    const CGFloat tipX = fitted(middle.x, arrowBreadth, x + popoverRoundness, x + content.width - popoverRoundness);
    const CGFloat tipY = fitted(middle.y, arrowBreadth, y + popoverRoundness, y + content.height - popoverRoundness);
    switch (found.direction) {
    case UIPopoverArrowDirectionUp:
        found.arrow = {tipX, anchor.maxY(), arrowBreadth, arrowLength};
        found.bubble = {{x, found.arrow.maxY()}, content};
        break;
    case UIPopoverArrowDirectionDown:
        found.arrow = {tipX, anchor.origin.y - arrowLength, arrowBreadth, arrowLength};
        found.bubble = {{x, found.arrow.origin.y - content.height}, content};
        break;
    case UIPopoverArrowDirectionLeft:
        found.arrow = {anchor.maxX(), tipY, arrowLength, arrowBreadth};
        found.bubble = {{found.arrow.maxX(), y}, content};
        break;
    default:
        found.arrow = {anchor.origin.x - arrowLength, tipY, arrowLength, arrowBreadth};
        found.bubble = {{found.arrow.origin.x - content.width, y}, content};
    }
    return found;
}

} // namespace phone
