/// How panels come and go, and make room for the keyboard.
#pragma once

#include "platform/uikit/UIActivity.h"
#include "platform/uikit/UIView.h"

namespace quorvan {

void fadeIn(const UIView& panel);
/// The activity ends when the panel is gone.
void fadeOut(const UIView& panel, const UIActivity& activity);

/// The middle of what a keyboard of this height leaves of the screen's view.
CGPoint centerAboveKeyboard(const UIView& view, CGFloat keyboardHeight);
/// Animates a change while the keyboard comes or goes.
void glide(const char* name, void (^change)());
/// The same, moving the view's centre.
void glide(const char* name, const UIView& view, CGPoint center);

} // namespace quorvan
