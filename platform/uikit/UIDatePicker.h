/// UIDatePicker, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/foundation/NSDate.h"
#include "platform/uikit/UIControl.h"

/// `UIDatePickerMode`
enum class UIDatePickerMode : objc::Int { Time = 0, Date = 1, DateAndTime = 2 };

/// `UIDatePickerStyle`
enum class UIDatePickerStyle : objc::Int { Automatic = 0, Wheels = 1 };

class UIDatePicker : public UIControl {
public:
    static constexpr auto objc_name = "UIDatePicker";
    using UIControl::UIControl;
    static UIDatePicker withFrame(CGRect frame) { return objc::make<UIDatePicker, "initWithFrame:">(frame); }

    UIDatePickerMode datePickerMode() const { return send<"datePickerMode", UIDatePickerMode>(); }
    void setDatePickerMode(UIDatePickerMode mode) const { send<"setDatePickerMode:">(mode); }
    /// Answered from 13.4 on; before there are but wheels.
    void setPreferredDatePickerStyle(UIDatePickerStyle style) const { send<"setPreferredDatePickerStyle:">(style); }
    /// The date as it was set, seconds included, until a person turns a wheel; then without seconds.
    NSDate date() const { return send<"date", NSDate>(); }
    /// Sends no action.
    void setDate(const NSDate& date) const { send<"setDate:">(date); }
    /// Sends no action.
    void setDate(const NSDate& date, bool animated) const { send<"setDate:animated:">(date, animated); }
    /// nil for no limit.
    NSDate minimumDate() const { return send<"minimumDate", NSDate>(); }
    void setMinimumDate(const NSDate& date) const { send<"setMinimumDate:">(date); }
    /// nil for no limit. A maximum below the minimum makes the picker ignore both.
    NSDate maximumDate() const { return send<"maximumDate", NSDate>(); }
    void setMaximumDate(const NSDate& date) const { send<"setMaximumDate:">(date); }
};
