#include "phone/flow/Engine.h"

#include "phone/flow/EngineWait.h"

#include <algorithm>
#include <cmath>
#include <sstream>

namespace phone {

namespace {

/// Where a touch reaches what the selector names, as the screen stands.
std::optional<ScreenPoint> reachable(const ScreenTree& tree, const Selector& selector) {
    for (const ScreenElement& element : tree.visible(selector)) {
        if (selector.point) {
            return element.at(*selector.point);
        }
        if (const auto point = element.touchPoint()) {
            return point;
        }
    }
    return std::nullopt;
}

/// Why nothing that the selector names can be touched.
std::string obstacle(const ScreenTree& tree, const Selector& selector) {
    if (!tree.visible(selector).empty()) {
        return selector.description() + " is on the screen but cannot be touched: something covers it, or it takes no "
                                        "touches";
    }
    const bool exists = !tree.all(selector).empty() && !selector.index;
    return selector.description() + (exists ? " is there but hidden or out of sight" : " is not on the screen");
}

} // namespace

ScreenPoint Engine::checked(const ScreenTree& tree, const ScreenPoint& point) const {
    if (point.x > tree.width() || point.y > tree.height()) {
        std::ostringstream text;
        text << "the point " << point.x << "," << point.y << " lies beyond the screen of " << tree.width() << " by "
             << tree.height() << " points";
        throw CommandFailure(text.str());
    }
    return point;
}

ScreenPoint Engine::touchPoint(const Selector& selector) {
    if (!selector.namesElement()) {
        const ScreenTree tree(_screen.tree(true));
        return checked(tree, tree.at(selector.point.value()));
    }
    std::optional<ScreenPoint> point;
    if (!waitUntil([&] { return (point = reachable(ScreenTree(_screen.tree(true)), selector)).has_value(); })) {
        throw CommandFailure(obstacle(ScreenTree(_screen.tree(true)), selector));
    }
    return *point;
}

void Engine::press(const ScreenPoint& point, double seconds) {
    _screen.touch(Screen::Phase::Began, point.x, point.y);
    _screen.advance(seconds);
    _screen.touch(Screen::Phase::Ended, point.x, point.y);
}

void Engine::tap(const Selector& selector) { press(touchPoint(selector), tapSeconds); }

void Engine::longPress(const Selector& selector) { press(touchPoint(selector), longPressSeconds); }

void Engine::doubleTap(const Selector& selector) { pressTwice(touchPoint(selector)); }

void Engine::pressTwice(const ScreenPoint& point) {
    press(point, tapSeconds);
    _screen.advance(doubleTapPause);
    press(point, tapSeconds);
}

void Engine::swipe(const PointSpec& start, const PointSpec& end, double seconds) {
    const ScreenTree tree(_screen.tree(true));
    const ScreenPoint from = checked(tree, tree.at(start));
    const ScreenPoint to = checked(tree, tree.at(end));
    drag(from, to, seconds);
}

void Engine::drag(const ScreenPoint& from, const ScreenPoint& to, double seconds, double held) {
    const int steps = std::clamp(static_cast<int>(std::min(std::ceil(seconds / swipeStep), 1000.0)), 1, 120);
    _screen.touch(Screen::Phase::Began, from.x, from.y);
    if (held > 0) {
        _screen.advance(held);
    }
    move(from, to, seconds, steps);
    _screen.touch(Screen::Phase::Ended, to.x, to.y);
}

void Engine::move(const ScreenPoint& from, const ScreenPoint& to, double seconds, int steps) {
    for (int step = 1; step <= steps; ++step) {
        const double part = static_cast<double>(step) / steps;
        _screen.advance(seconds / steps);
        _screen.touch(Screen::Phase::Moved, from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part);
    }
}

void Engine::erase(long characters) {
    for (long i = 0; i < characters; ++i) {
        _screen.key("backspace");
    }
}

bool Engine::isVisible(const Selector& selector) { return !ScreenTree(_screen.tree(true)).visible(selector).empty(); }

bool Engine::becomesVisible(const Selector& selector) {
    return waitUntil([&] { return isVisible(selector); });
}

bool Engine::becomesInvisible(const Selector& selector) {
    return waitUntil([&] { return !isVisible(selector); });
}

void Engine::assertVisible(const Selector& selector) {
    if (!becomesVisible(selector)) {
        const bool exists = !selector.index && !ScreenTree(_screen.tree(true)).all(selector).empty();
        throw CommandFailure(selector.description() + (exists ? " is there but not visible" : " is not on the screen"));
    }
}

void Engine::assertNotVisible(const Selector& selector) {
    if (!becomesInvisible(selector)) {
        throw CommandFailure(selector.description() + " is still visible");
    }
}

} // namespace phone
