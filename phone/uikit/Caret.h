/// The blinking line where the next character goes.
#pragma once

#include "phone/device/RunLoop.h"
#include "platform/uikit/UIView.h"

namespace phone {

/// A subview of the text input, in its tint. It is seen for half a second and unseen for half a second,
/// by the animation clock; moving it makes it seen.
class Caret : public objc::Defines<Caret, UIView> {
public:
    static constexpr auto objc_name = "UITextSelectionView";
    static constexpr double blinkSeconds = 0.5;

    static void define(objc::ClassTable<Caret>& c);
    ~Caret();

    void show(CGRect place);
    void hide();

private:
    void initWithFrame(CGRect frame);
    void drawContent(CGRect rect);
    void stop();

    RunLoop::TimerId _blinking = 0; // 0 while hidden
};

} // namespace phone
