/// The board with its keys, and what touching them does.
#pragma once

#include "phone/uikit/KeyboardKeyView.h"
#include "platform/uikit/UIWindow.h"

#include <vector>

namespace phone {

/// The window that the keyboard stands in. Touches beside the keyboard go to the windows below.
class KeyboardWindow : public objc::Defines<KeyboardWindow, UIWindow> {
public:
    static constexpr auto objc_name = "UITextEffectsWindow";
    static void define(objc::ClassTable<KeyboardWindow>& c) {
        c.overrides<"hitTest:withEvent:", &KeyboardWindow::hitTest>();
    }

private:
    UIView hitTest(CGPoint point, const UIEvent& event);
};

/// All keys of one plane. A letter typed releases shift, unless another capital is to come; nothing is corrected.
class KeyboardView : public objc::Defines<KeyboardView, UIView> {
public:
    static constexpr auto objc_name = "UIKeyboardView";
    static void define(objc::ClassTable<KeyboardView>& c);

    /// Shows the keys for a return key, starting with the letters.
    void start(UIReturnKeyType returnKey);
    /// Changes the return key alone.
    void setReturnKey(UIReturnKeyType returnKey);
    void setShifted(bool shifted);

private:
    void initWithFrame(CGRect frame);
    void layoutSubviews();
    void keyTouched(const objc::Object& sender);
    void showPlane(KeyboardPlane plane);
    void build();

    KeyboardPlane _plane = KeyboardPlane::Letters;
    UIReturnKeyType _returnKey = UIReturnKeyType::Default;
    bool _shifted = false;
    std::vector<objc::Ref<KeyboardKeyView>> _keys;
};

} // namespace phone
