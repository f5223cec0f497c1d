#include "phone/webdriver/Reach.h"

#include <algorithm>

namespace phone::webdriver {

namespace {

constexpr int mostDrags = 12; // on the way to an element
constexpr double dragSeconds = 0.3;
constexpr double partOfScroller = 0.4; // of its height; how far one drag goes at most, from the middle

bool scrolls(const Element& element) {
    const std::string type = element.type();
    return type == "XCUIElementTypeTable" || type == "XCUIElementTypeScrollView" || type == "XCUIElementTypeTextView";
}

Element scrollerAround(const Element& element) {
    Element at = element.parent();
    while (at && !scrolls(at)) {
        at = at.parent();
    }
    return at;
}

double middle(long start, long length) { return static_cast<double>(start) + static_cast<double>(length) / 2; }

/// Drags what scrolls around the element so that it comes nearer. False when nothing around it can be dragged.
bool bringNearer(Session& session, const Element& element) {
    const Element scroller = scrollerAround(element);
    const auto grip = scroller ? scroller.touchPoint() : std::nullopt;
    if (!grip) {
        return false;
    }
    const Rect seen = scroller.rect();
    const Rect wanted = element.rect();
    const auto way = [](double distance, long length) {
        const double most = static_cast<double>(length) * partOfScroller;
        return std::clamp(-distance, -most, most);
    };
    const Point to{grip->x + way(middle(wanted.x, wanted.width) - middle(seen.x, seen.width), seen.width),
                   grip->y + way(middle(wanted.y, wanted.height) - middle(seen.y, seen.height), seen.height)};
    drag(session, *grip, to, dragSeconds);
    return true;
}

} // namespace

void checkOnScreen(Session& session, const Point& point) {
    const Rect screen = session.seen().application().rect();
    if (!(point.x >= 0 && point.y >= 0 && point.x <= static_cast<double>(screen.width) &&
          point.y <= static_cast<double>(screen.height))) {
        throw Refusal(Error::InvalidCoordinates, "the point lies beyond the screen of " + std::to_string(screen.width) +
                                                     " by " + std::to_string(screen.height) + " points");
    }
}

Point reach(Session& session, const std::string& reference) {
    std::optional<Rect> last;
    for (int drags = 0;; ++drags) {
        const AccessibilityTree tree = session.tree();
        const Element element = session.element(tree, reference);
        if (const auto point = element.touchPoint()) {
            return *point;
        }
        const Rect rect = element.rect();
        const bool moved = !last || last->x != rect.x || last->y != rect.y;
        if (!moved || drags == mostDrags || !bringNearer(session, element)) {
            throw Refusal(Error::InvalidElementState, element.isVisible()
                                                          ? "something covers the element, or it takes no touches"
                                                          : "the element is hidden or out of sight");
        }
        last = rect;
    }
}

void touchAt(Session& session, const Point& point, double seconds) {
    session.engine().press(point, seconds);
    session.settle();
}

void drag(Session& session, const Point& from, const Point& to, double seconds, double held) {
    session.engine().drag(from, to, seconds, held);
    session.settle();
}

} // namespace phone::webdriver
