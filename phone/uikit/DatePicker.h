/// Wheels from which a person picks a date and a time.
#pragma once

#include "phone/uikit/DateWheels.h"
#include "platform/uikit/UIDatePicker.h"

#include <vector>

namespace phone {

/// UIDatePicker. It opens at the current moment. The date stays what it was set to, seconds included,
/// until a person turns a wheel: then it is what the wheels show, seconds 0, moved to the nearer limit where
/// it lies beyond one, and ValueChanged is sent. Code sends nothing. Turning the hours of a 12-hour clock
/// past noon turns the wheel for the half of the day along.
class DatePicker : public objc::Implements<DatePicker, UIDatePicker, UIControl> {
public:
    /// What the wheels are laid out for, in points. In another frame they stand in the middle, cut off at its edges.
    /// Its height is 162, 180 or 216 points; any other becomes the nearest of these.
    static constexpr CGSize size{320, 216};

    static void define(objc::ClassTable<DatePicker>& c);
    ~DatePicker();

private:
    struct Wheel {
        DateUnit unit;
        objc::Ref<PickerWheel> view;
    };

    void initWithFrame(CGRect frame);
    CGSize sizeThatFits(CGSize) { return size; }
    void setFrame(CGRect frame);
    void setBounds(CGRect bounds);
    void layoutSubviews();
    void stateChanged();
    bool beginTracking(const UITouch&, const UIEvent&) { return false; } // the wheels follow the finger

    void setMode(UIDatePickerMode mode);
    NSDate date();
    void setDate(const NSDate& date);
    void setDateAnimated(const NSDate& date, bool animated);
    void setMinimumDate(const NSDate& date);
    void setMaximumDate(const NSDate& date);

    void setMinuteInterval(objc::Int minutes);
    long rowOf(DateUnit unit, const CalendarFields& fields) const;
    WheelRows inIntervals(WheelRows minutes) const;

    void buildWheels();
    /// The wheels show the date.
    void show(bool animated);
    void turned(DateUnit unit, long row);
    NSTimeInterval limited(NSTimeInterval moment) const;

    UIDatePickerMode _mode = UIDatePickerMode::DateAndTime;
    objc::Int _minuteInterval = 1; // minutes from one row to the next
    NSTimeInterval _moment = 0;    // since the reference date
    NSDate _minimum;               // nil: no limit
    NSDate _maximum;               // nil: no limit
    UIView _content;               // holds the wheels and the lines around the chosen row
    std::vector<Wheel> _wheels;
};

} // namespace phone
