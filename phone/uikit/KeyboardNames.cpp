#include "phone/uikit/KeyboardNames.h"

#include "platform/foundation/NSString.h"

// Everybody else sees these as constants, through platform/uikit/UIKeyboard.h, which is left out here:
// a string cannot be made before the runtime has started.
#define KEYBOARD_NAMES(X)                                                                                              \
    X(UIKeyboardWillShowNotification)                                                                                  \
    X(UIKeyboardDidShowNotification)                                                                                   \
    X(UIKeyboardWillHideNotification)                                                                                  \
    X(UIKeyboardDidHideNotification)                                                                                   \
    X(UIKeyboardFrameBeginUserInfoKey)                                                                                 \
    X(UIKeyboardFrameEndUserInfoKey)                                                                                   \
    X(UIKeyboardAnimationDurationUserInfoKey)                                                                          \
    X(UIKeyboardAnimationCurveUserInfoKey)

#define DEFINE_NAME(name) __attribute__((visibility("default"))) id name = nullptr;
extern "C" {
KEYBOARD_NAMES(DEFINE_NAME)
}

namespace phone {

void registerKeyboardNames() {
    // Strings that nobody releases.
#define SET_NAME(name) ::name = NSString::utf8(#name).relinquish();
    KEYBOARD_NAMES(SET_NAME)
#undef SET_NAME
}

} // namespace phone
