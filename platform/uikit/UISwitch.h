/// UISwitch, as the platform documents it. Every call is safe on nil.
#pragma once

#include "platform/uikit/UIControl.h"

class UISwitch : public UIControl {
public:
    static constexpr auto objc_name = "UISwitch";
    using UIControl::UIControl;
    /// The switch has a size of its own: of the frame only the origin counts.
    static UISwitch withFrame(CGRect frame) { return objc::make<UISwitch, "initWithFrame:">(frame); }

    bool isOn() const { return send<"isOn", bool>(); }
    /// Not animated; sends no action.
    void setOn(bool on) const { send<"setOn:">(on); }
    /// Sends no action.
    void setOn(bool on, bool animated) const { send<"setOn:animated:">(on, animated); }
};
