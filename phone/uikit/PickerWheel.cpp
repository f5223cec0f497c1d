#include "phone/uikit/PickerWheel.h"

#include "phone/coregraphics/Painter.h"
#include "phone/device/WheelRow.h"
#include "phone/foundation/Text.h"
#include "phone/uikit/Animator.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace phone {

namespace {

constexpr double turnSeconds = 0.3;
constexpr double drumRadius = 112;             // points
constexpr double eyeDistance = 5 * drumRadius; // from the row in the middle to the eye, in points
constexpr double fontSize = 22;
constexpr double margin = 5; // between the text and the wheel's edge, in points
constexpr Color chosenColor{0, 0, 0, 1};
constexpr Color otherColor{0.55, 0.55, 0.57, 1};
/// How often a ring's rows lie on the wheel: enough that no finger reaches an end in one go.
constexpr long ringCopies = 41;

/// A row as it is seen on the drum.
struct Seen {
    double angle; // from the row in the middle, in radians
    /// How much smaller it looks than the row in the middle, being farther away.
    double scale;

    explicit Seen(double rowsFromMiddle)
        : angle(rowsFromMiddle * wheelRowHeight / drumRadius),
          scale(eyeDistance / (eyeDistance + drumRadius * (1 - std::cos(angle)))) {}

    double below() const { return drumRadius * std::sin(angle) * scale; } // the row in the middle, in points
    double height() const { return std::cos(angle) * scale; }             // for a width of `scale`
};

/// How many rows lie between the middle and where the drum turns away.
constexpr double reach = drumRadius * std::numbers::pi / 2 / wheelRowHeight;

/// The row that is seen nearest to a height below the middle, counted from the middle.
long rowSeenAt(double below) {
    long nearest = 0;
    for (long row = -static_cast<long>(reach); row <= static_cast<long>(reach); ++row) {
        const auto distance = [&](long from) { return std::abs(Seen(static_cast<double>(from)).below() - below); };
        nearest = distance(row) < distance(nearest) ? row : nearest;
    }
    return nearest;
}

} // namespace

void PickerWheel::define(objc::ClassTable<PickerWheel>& c) {
    c.init<"initWithFrame:", &PickerWheel::initWithFrame>()
        .overrides<"_drawContent:", &PickerWheel::drawContent>()
        .overrides<"touchesBegan:withEvent:", &PickerWheel::ignoreTouches>()
        .overrides<"touchesMoved:withEvent:", &PickerWheel::ignoreTouches>()
        .overrides<"touchesEnded:withEvent:", &PickerWheel::ignoreTouches>()
        .overrides<"touchesCancelled:withEvent:", &PickerWheel::ignoreTouches>()
        .def<"scrollViewWillBeginDragging:", &PickerWheel::willBeginDragging>()
        .def<"scrollViewDidEndDragging:willDecelerate:", &PickerWheel::didEndDragging>()
        .action<"_tapped:", &PickerWheel::tapped>();
}

void PickerWheel::initWithFrame(CGRect frame) {
    super<"initWithFrame:">(frame);
    setDelegate(*this);
    addGestureRecognizer(UITapGestureRecognizer::with(*this, objc::selector<"_tapped:">()));
}

void PickerWheel::show(WheelRows rows, long row) {
    _rows = std::move(rows);
    const CGFloat space = (bounds().size.height - wheelRowHeight) / 2; // above the first row and below the last
    setContentInset({space, 0, space, 0});
    setContentSize({bounds().size.width, static_cast<CGFloat>(places()) * wheelRowHeight});
    setRow(std::clamp(row, _rows.first, _rows.first + _rows.count - 1));
    moveTo(placeNear(_row, places() / 2));
}

// Rows and places

long PickerWheel::places() const { return _rows.isRing ? _rows.count * ringCopies : _rows.count; }

long PickerWheel::rowAt(long place) const { return _rows.first + place % _rows.count; }

long PickerWheel::placeNear(long row, long near) const {
    const long place = row - _rows.first;
    if (!_rows.isRing) {
        return place;
    }
    const auto turns = std::lround(static_cast<double>(near - place) / static_cast<double>(_rows.count));
    return place + std::clamp(turns, 0L, ringCopies - 1) * _rows.count;
}

double PickerWheel::placeAt(CGFloat y) const { return (y + contentInset().top) / wheelRowHeight; }

CGFloat PickerWheel::offsetOf(long place) const {
    return static_cast<CGFloat>(place) * wheelRowHeight - contentInset().top;
}

void PickerWheel::setRow(long row) {
    _row = row;
    setAccessibilityLabel(string(_rows.title(row)));
}

// Turning

void PickerWheel::moveTo(long place) { setContentOffset({0, offsetOf(place)}); }

void PickerWheel::turnTo(long row, bool animated) {
    if (isDragging() || _turns) {
        return;
    }
    setRow(std::clamp(row, _rows.first, _rows.first + _rows.count - 1));
    const long now = std::lround(placeAt(contentOffset().y));
    send<"setContentOffset:animated:">(CGPoint{0, offsetOf(placeNear(_row, now))}, animated);
}

void PickerWheel::willBeginDragging(const UIScrollView&) {
    _turns = false;
    Animator::shared().interrupt(*this);
}

void PickerWheel::didEndDragging(const UIScrollView&, bool) { restAt(std::lround(placeAt(contentOffset().y))); }

void PickerWheel::tapped(const objc::Object& recognizer) {
    const CGRect visible = bounds();
    const CGPoint finger = objc::as<UIGestureRecognizer>(recognizer).locationInView(*this);
    restAt(std::lround(placeAt(visible.origin.y)) + rowSeenAt(finger.y - visible.center().y));
}

void PickerWheel::restAt(long place) {
    _turns = true;
    AnimationSettings settings;
    settings.duration = turnSeconds;
    settings.curve = UIViewAnimationCurve::EaseOut;
    const objc::Ref<PickerWheel> self = objc::borrow<objc::Ref<PickerWheel>>(raw());
    Animator::shared().open(std::move(settings), [self](bool finished) {
        if (finished) {
            self->arrived();
        }
    });
    moveTo(std::clamp(place, 0L, places() - 1));
    Animator::shared().close();
}

void PickerWheel::arrived() {
    _turns = false;
    const long place = std::lround(placeAt(contentOffset().y));
    const long row = rowAt(place);
    moveTo(placeNear(row, places() / 2)); // a ring begins anew, far from its ends
    if (row != _row) {
        setRow(row);
        if (_turned) {
            const auto turned = _turned; // what it does may take the wheel away
            turned(row);
        }
    }
}

// Drawing

void PickerWheel::drawContent(CGRect visible) {
    Painter* painter = Painter::current();
    if (painter == nullptr || !_rows.title) {
        return;
    }
    // The chosen row's band shows whatever passes through it in black.
    const CGFloat top = visible.center().y - wheelRowHeight / 2;
    const CGFloat width = visible.size.width;
    drawRows(visible, {visible.origin.x, visible.origin.y, width, top - visible.origin.y}, false);
    drawRows(visible, {visible.origin.x, top, width, wheelRowHeight}, true);
    const CGFloat bottom = top + wheelRowHeight;
    drawRows(visible, {visible.origin.x, bottom, width, visible.maxY() - bottom}, false);
}

/// Where the eye is, across: in front of the middle of all wheels.
double PickerWheel::eyeAt(CGRect visible) const {
    const UIView picker = superview();
    return picker ? visible.origin.x + picker.bounds().center().x - frame().origin.x : visible.center().x;
}

void PickerWheel::drawRows(CGRect visible, CGRect clip, bool chosen) {
    Painter& painter = *Painter::current();
    painter.save();
    painter.clip(clip);
    const double middle = placeAt(visible.origin.y);
    const double eye = eyeAt(visible);
    const long first = std::max(0L, static_cast<long>(std::ceil(middle - reach)));
    const long last = std::min(places() - 1, static_cast<long>(std::floor(middle + reach)));
    for (long place = first; place <= last; ++place) {
        const Seen row(static_cast<double>(place) - middle);
        const double y = visible.center().y + row.below();
        const double halfHeight = wheelRowHeight / 2 * row.height();
        if (y + halfHeight < clip.origin.y || y - halfHeight > clip.maxY()) {
            continue;
        }
        TextLayout::Options options;
        options.face = {Typeface::Weight::Regular, fontSize};
        options.width = visible.size.width - 2 * margin;
        options.maximumLines = 1;
        options.ellipsis = true;
        options.alignment = static_cast<TextLayout::Alignment>(_rows.alignment);
        const auto layout = TextLayout::make(_rows.title(rowAt(place)), options);
        Color color = chosen ? chosenColor : otherColor;
        color.alpha = chosen ? 1 : std::pow(std::cos(row.angle), 2);
        painter.save();
        painter.translate(eye, y);
        painter.scale(row.scale, row.height());
        painter.text(*layout, {visible.origin.x + margin - eye, -layout->size().height / 2}, color);
        painter.restore();
    }
    painter.restore();
}

} // namespace phone
