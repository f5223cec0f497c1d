#include "phone/webdriver/Actions.h"

#include "phone/webdriver/Keys.h"
#include "phone/webdriver/Reach.h"

#include <algorithm>
#include <cmath>

namespace phone::webdriver {

namespace {

Point resolved(Session& session, const PointerMove& move, const std::optional<Point>& at) {
    switch (move.origin) {
    case PointerMove::Origin::Viewport:
        return move.to;
    case PointerMove::Origin::Pointer: {
        const Point from = at.value_or(Point{});
        return {from.x + move.to.x, from.y + move.to.y};
    }
    case PointerMove::Origin::Element:
        break;
    }
    const AccessibilityTree tree = session.tree();
    const Rect rect = session.element(tree, move.element).rect();
    return {static_cast<double>(rect.x) + static_cast<double>(rect.width) / 2 + move.to.x,
            static_cast<double>(rect.y) + static_cast<double>(rect.height) / 2 + move.to.y};
}

/// Does one tick's items.
class TickPerformer {
public:
    TickPerformer(Session& session, double seconds, std::optional<Point>& at)
        : _session(session), _seconds(seconds), _at(at) {}

    void operator()(const PointerMove& move) {
        const Point to = resolved(_session, move, _at);
        checkOnScreen(_session, to);
        const Point from = _at.value_or(to);
        if (_session.fingerIsDown()) {
            const int steps = std::max(1, static_cast<int>(std::ceil(_seconds / Engine::swipeStep)));
            for (int step = 1; step <= steps && !_session.isOver(); ++step) {
                const double part = static_cast<double>(step) / steps;
                _session.phone().advance(_seconds / steps);
                _session.putFinger(Screen::Phase::Moved,
                                   {from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part});
            }
            _passed = true;
        }
        _at = to;
    }
    void operator()(const PointerDown&) {
        if (!_at) {
            throw Refusal(Error::InvalidArgument, "the pointer goes down before it was moved anywhere");
        }
        _session.putFinger(Screen::Phase::Began, *_at);
    }
    void operator()(const PointerUp&) { _session.putFinger(Screen::Phase::Ended, _at.value_or(Point{})); }
    void operator()(const KeyDown& down) {
        for (const Stroke& stroke : strokes(down.key)) {
            stroke.kind == Stroke::Kind::Key ? _session.phone().key(stroke.what) : _session.phone().type(stroke.what);
        }
    }
    void operator()(const Pause&) {}

    bool hasPassed() const { return _passed; }

private:
    Session& _session;
    double _seconds;
    std::optional<Point>& _at;
    bool _passed = false; // whether the tick's time has gone by with a movement
};

} // namespace

void perform(Session& session, const std::vector<Tick>& ticks, std::optional<Point>& at) {
    for (const Tick& tick : ticks) {
        if (session.isOver()) {
            return;
        }
        TickPerformer performer(session, tick.seconds, at);
        for (const ActionItem& item : tick.items) {
            std::visit(performer, item);
        }
        if (!performer.hasPassed() && tick.seconds > 0) {
            session.phone().advance(tick.seconds);
        }
    }
    if (!session.fingerIsDown()) {
        session.settle();
    }
}

} // namespace phone::webdriver
