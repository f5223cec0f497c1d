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
        if (_session.screen().fingerIsDown()) {
            const int steps = std::max(1, static_cast<int>(std::ceil(_seconds / Engine::swipeStep)));
            _session.engine().move(from, to, _seconds, steps);
            _passed = true;
        }
        _at = to;
    }
    void operator()(const PointerDown&) {
        if (!_at) {
            throw Refusal(Error::InvalidArgument, "the pointer goes down before it was moved anywhere");
        }
        _session.screen().touch(Screen::Phase::Began, _at->x, _at->y);
    }
    void operator()(const PointerUp&) {
        const Point at = _at.value_or(Point{});
        _session.screen().touch(Screen::Phase::Ended, at.x, at.y);
    }
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
            session.screen().advance(tick.seconds);
        }
    }
    if (!session.screen().fingerIsDown()) {
        session.settle();
    }
}

} // namespace phone::webdriver
