/// One key of the keyboard on the screen.
#pragma once

#include "phone/device/RunLoop.h"
#include "phone/uikit/KeyboardLayout.h"
#include "platform/uikit/UIControl.h"
#include "platform/uikit/UILabel.h"

namespace phone {

/// Takes touches in its whole area and draws a cap inside it. Its accessibility label is what it types.
class KeyboardKeyView : public objc::Defines<KeyboardKeyView, UIControl> {
public:
    static constexpr auto objc_name = "UIKeyboardKeyView";
    /// How long a key is held until it types its alternate, in seconds.
    static constexpr double holdSeconds = 0.5;

    static void define(objc::ClassTable<KeyboardKeyView>& c);
    ~KeyboardKeyView();

    /// `prominent` is the blue of a return key that finishes something.
    void show(const KeyboardKey& key, bool prominent);
    void setShifted(bool shifted);
    const KeyboardKey& key() const { return _key; }
    /// What the key types now; "" for one that types nothing.
    std::string character() const;

private:
    void initWithFrame(CGRect frame);
    bool beginTracking(const UITouch& touch, const UIEvent& event);
    void cancelTracking(const UIEvent& event);
    void drawContent(CGRect rect);
    void stateChanged();
    void stopHolding();
    void refreshTitle();
    bool isLight() const;

    KeyboardKey _key;
    bool _prominent = false;
    bool _shifted = false;
    bool _held = false;
    RunLoop::TimerId _holding = 0; // 0 while no finger is waited for
    UILabel _label;
};

} // namespace phone
