/// The keyboard's notifications: names and keys that the platform exports as C constants.
#pragma once

#include "platform/objc/Runtime.h"

extern "C" {
extern const id UIKeyboardWillShowNotification;
extern const id UIKeyboardDidShowNotification;
extern const id UIKeyboardWillHideNotification;
extern const id UIKeyboardDidHideNotification;
/// Values of rectangles in the coordinates of the screen held upright.
extern const id UIKeyboardFrameBeginUserInfoKey;
extern const id UIKeyboardFrameEndUserInfoKey;
extern const id UIKeyboardAnimationDurationUserInfoKey;
extern const id UIKeyboardAnimationCurveUserInfoKey;
}
