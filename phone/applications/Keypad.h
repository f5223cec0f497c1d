/// The call screen's keys: twelve of them, and what has been pressed so far.
#pragma once

#include "platform/uikit/UIControl.h"
#include "platform/uikit/UILabel.h"

#include <vector>

namespace phone {

/// Clear between its keys. Sends `UIControlEventValueChanged` when a key is pressed.
class Keypad : public objc::Defines<Keypad, UIControl> {
public:
    static constexpr auto objc_name = "CallKeypad";
    static void define(objc::ClassTable<Keypad>& c);

    /// What has been pressed, oldest first; "" before.
    NSString digits() const { return _digits; }

private:
    void initWithFrame(CGRect frame);
    void press(const objc::Object& key);
    void layoutSubviews();

    NSString _digits;
    std::vector<UIControl> _keys; // row by row
};

} // namespace phone
