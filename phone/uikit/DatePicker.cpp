#include "phone/uikit/DatePicker.h"

#include "phone/device/WheelRow.h"
#include "phone/foundation/Text.h"
#include "phone/uikit/TableParts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>

namespace phone {

namespace {
constexpr CGFloat hairline = 0.5; // points
constexpr CGFloat disabledAlpha = 0.5;

constexpr objc::Int minutesInHour = 60;
constexpr objc::Int longestInterval = 30;

constexpr std::array<CGFloat, 3> heights = {162, 180, 216};

/// With the nearest of the heights that wheels have on this system; another one is said on standard error.
CGRect withValidHeight(CGRect frame) {
    const CGFloat given = frame.size.height;
    const CGFloat taken = *std::min_element(heights.begin(), heights.end(), [&](CGFloat one, CGFloat other) {
        return std::abs(one - given) < std::abs(other - given);
    });
    if (taken != given) {
        std::fprintf(stderr, "-[UIPickerView setFrame:]: invalid height value %.1f pinned to %.1f\n", given, taken);
        frame.size.height = taken;
    }
    return frame;
}
} // namespace

void DatePicker::define(objc::ClassTable<DatePicker>& c) {
    c.init<"initWithFrame:", &DatePicker::initWithFrame>()
        .get<"datePickerMode", &DatePicker::_mode>()
        .def<"setDatePickerMode:", &DatePicker::setMode>()
        .def<"date", &DatePicker::date>()
        .def<"setDate:", &DatePicker::setDate>()
        .def<"setDate:animated:", &DatePicker::setDateAnimated>()
        .get<"minuteInterval", &DatePicker::_minuteInterval>()
        .def<"setMinuteInterval:", &DatePicker::setMinuteInterval>()
        .get<"minimumDate", &DatePicker::_minimum>()
        .def<"setMinimumDate:", &DatePicker::setMinimumDate>()
        .get<"maximumDate", &DatePicker::_maximum>()
        .def<"setMaximumDate:", &DatePicker::setMaximumDate>()
        .overrides<"sizeThatFits:", &DatePicker::sizeThatFits>()
        .overrides<"setFrame:", &DatePicker::setFrame>()
        .overrides<"setBounds:", &DatePicker::setBounds>()
        .overrides<"layoutSubviews", &DatePicker::layoutSubviews>()
        .overrides<"beginTrackingWithTouch:withEvent:", &DatePicker::beginTracking>()
        .overrides<"_stateChanged", &DatePicker::stateChanged>();
}

DatePicker::~DatePicker() {
    for (const Wheel& wheel : _wheels) {
        wheel.view->setTurned(nullptr); // one that still turns outlives the picker
    }
}

void DatePicker::initWithFrame(CGRect frame) {
    const bool isEmpty = frame.size.width == 0 && frame.size.height == 0;
    super<"initWithFrame:">(isEmpty ? CGRect(frame.origin, size) : withValidHeight(frame));
    setClipsToBounds(true);
    _moment = NSDate::now().sinceReferenceDate();
    _content = UIView::withFrame({{}, size});
    addSubview(_content);
    buildWheels();
}

void DatePicker::setFrame(CGRect frame) { super<"setFrame:">(withValidHeight(frame)); }

void DatePicker::setBounds(CGRect bounds) { super<"setBounds:">(withValidHeight(bounds)); }

void DatePicker::layoutSubviews() {
    super<"layoutSubviews">();
    const CGSize own = bounds().size;
    _content.setFrame({{(own.width - size.width) / 2, (own.height - size.height) / 2}, size});
}

void DatePicker::stateChanged() {
    super<"_stateChanged">();
    _content.setUserInteractionEnabled(isEnabled());
    _content.setAlpha(isEnabled() ? 1 : disabledAlpha);
}

// The wheels

void DatePicker::setMode(UIDatePickerMode mode) {
    if (mode != _mode) {
        _mode = mode;
        buildWheels();
    }
}

/// An interval that does not divide the hour, or is too long, counts as the default.
void DatePicker::setMinuteInterval(objc::Int minutes) {
    const bool divides = minutes >= 1 && minutes <= longestInterval && minutesInHour % minutes == 0;
    _minuteInterval = divides ? minutes : 1;
    buildWheels();
}

long DatePicker::rowOf(DateUnit unit, const CalendarFields& fields) const {
    const long row = wheelRow(unit, fields);
    return unit == DateUnit::Minute ? row / _minuteInterval : row;
}

/// The minutes' wheel with a row an interval.
WheelRows DatePicker::inIntervals(WheelRows minutes) const {
    minutes.count = minutesInHour / _minuteInterval;
    minutes.title = [title = std::move(minutes.title), step = _minuteInterval](long row) { return title(row * step); };
    return minutes;
}

void DatePicker::buildWheels() {
    for (const Wheel& old : _wheels) {
        old.view->setTurned(nullptr);
    }
    _wheels.clear();
    for (const auto& view : _content.subviews()) {
        objc::as<UIView>(view).removeFromSuperview();
    }
    const CalendarFields fields = calendarFields(_moment);
    const std::vector<DateWheel> wheels = dateWheels(_mode);
    CGFloat x = size.width;
    for (const DateWheel& wheel : wheels) {
        x -= wheel.width;
    }
    x /= 2;
    for (const DateWheel& wheel : wheels) {
        const auto view = objc::make<objc::Ref<PickerWheel>, "initWithFrame:">(CGRect(x, 0, wheel.width, size.height));
        x += wheel.width;
        view->setAccessibilityIdentifier(NSString::utf8(wheel.name));
        view->show(wheel.unit == DateUnit::Minute ? inIntervals(wheel.rows) : wheel.rows, rowOf(wheel.unit, fields));
        view->setTurned([this, unit = wheel.unit](long row) { turned(unit, row); });
        _content.addSubview(objc::as<UIView>(view));
        _wheels.push_back({wheel.unit, view});
    }
    for (const CGFloat side : {-1, 1}) {
        const auto line =
            UIView::withFrame({0, (size.height + side * wheelRowHeight - hairline) / 2, size.width, hairline});
        line.setBackgroundColor(separatorColor());
        line.setUserInteractionEnabled(false);
        _content.addSubview(line);
    }
}

void DatePicker::show(bool animated) {
    const CalendarFields fields = calendarFields(_moment);
    for (const Wheel& wheel : _wheels) {
        wheel.view->turnTo(rowOf(wheel.unit, fields), animated);
    }
}

void DatePicker::turned(DateUnit unit, long row) {
    const objc::Keep kept(raw());
    CalendarFields shown = calendarFields(_moment);
    shown.minute -= shown.minute % static_cast<int>(_minuteInterval);
    const long value = unit == DateUnit::Minute ? row * _minuteInterval : row;
    _moment = limited(momentOf(turnedTo(unit, value, shown)));
    show(true);
    sendActions(UIControlEventValueChanged);
}

// The date

NSDate DatePicker::date() { return NSDate::withSinceReferenceDate(_moment); }

void DatePicker::setDate(const NSDate& date) { UIDatePicker::setDate(date, false); }

void DatePicker::setDateAnimated(const NSDate& date, bool animated) {
    if (date) {
        _moment = limited(date.sinceReferenceDate());
        show(animated);
    }
}

void DatePicker::setMinimumDate(const NSDate& date) {
    _minimum = date;
    setDateAnimated(this->date(), false);
}

void DatePicker::setMaximumDate(const NSDate& date) {
    _maximum = date;
    setDateAnimated(this->date(), false);
}

/// A limit is taken as it is, with its seconds.
NSTimeInterval DatePicker::limited(NSTimeInterval moment) const {
    constexpr NSTimeInterval endless = std::numeric_limits<NSTimeInterval>::infinity();
    const NSTimeInterval least = _minimum ? _minimum.sinceReferenceDate() : -endless;
    const NSTimeInterval most = _maximum ? _maximum.sinceReferenceDate() : endless;
    return least > most ? moment : std::clamp(moment, least, most);
}

} // namespace phone
