/// One wheel of a picker, turned by a finger.
#pragma once

#include "platform/uikit/UIEvent.h"
#include "platform/uikit/UIGestureRecognizer.h"
#include "platform/uikit/UIScrollView.h"

#include <functional>
#include <string>

namespace phone {

/// The rows of a wheel.
struct WheelRows {
    enum class Alignment { Left, Center, Right };

    long first = 0;
    long count = 1;
    bool isRing = false; // whether the first row comes again after the last one
    Alignment alignment = Alignment::Center;
    std::function<std::string(long row)> title;
};

/// Scrolls through its rows, which are drawn as if they lay on a drum (flatter, narrower and paler
/// towards its edges), and comes to rest on one of them;
/// a tap on another row turns there. There is no fling.
class PickerWheel : public objc::Defines<PickerWheel, UIScrollView> {
public:
    static constexpr auto objc_name = "UIPickerTableView";

    static void define(objc::ClassTable<PickerWheel>& c);

    /// Shows these rows, resting on one of them. The view has its size already.
    void show(WheelRows rows, long row);
    /// Turns without a finger, and tells nobody; a ring takes the shorter way. While a finger turns the
    /// wheel, or it still comes to rest after one, nothing happens.
    void turnTo(long row, bool animated);
    /// Called when the wheel has come to rest on another row after a finger has turned it.
    void setTurned(std::function<void(long row)> turned) { _turned = std::move(turned); }

private:
    void initWithFrame(CGRect frame);
    void drawContent(CGRect rect);
    void tapped(const objc::Object& recognizer);
    void willBeginDragging(const UIScrollView& scroll);
    void didEndDragging(const UIScrollView& scroll, bool decelerates);
    void ignoreTouches(const NSSet&, const UIEvent&) {}

    // Places count the rows as they lie on the wheel, from 0, a ring's again in every copy.
    long places() const;
    long rowAt(long place) const;
    long placeNear(long row, long near) const;
    /// Where the middle of the wheel is when its bounds begin at y; fractions lie between two rows.
    double placeAt(CGFloat y) const;
    CGFloat offsetOf(long place) const;
    void moveTo(long place);
    /// Turns to the place and tells when it has arrived.
    void restAt(long place);
    void arrived();
    void setRow(long row);
    double eyeAt(CGRect visible) const;
    void drawRows(CGRect visible, CGRect clip, bool chosen);

    WheelRows _rows;
    long _row = 0;       // where it rests, or rested last
    bool _turns = false; // comes to rest after a finger
    std::function<void(long)> _turned;
};

} // namespace phone
