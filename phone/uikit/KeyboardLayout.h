/// Which keys the keyboard has, and where they lie.
#pragma once

#include "platform/coregraphics/CGGeometry.h"
#include "platform/uikit/UITextInput.h"

#include <string>
#include <vector>

namespace phone {

/// What the letters' place shows.
enum class KeyboardPlane { Letters, Digits, Symbols };

struct KeyboardKey {
    enum class Kind { Character, Shift, Backspace, Plane, Space, Return, Hide };

    Kind kind = Kind::Character;
    std::string title;                            // "" for a key that shows a picture
    std::string lower;                            // what a key that types enters
    std::string upper;                            // the same with shift
    std::string alternate;                        // what it enters when held; "" where holding changes nothing
    KeyboardPlane plane = KeyboardPlane::Letters; // where a Plane key leads
    double width = 1;                             // of a row's length in letters

    CGRect touch; // in the keyboard; the keys' areas cover it without gaps
    CGRect cap;   // what is drawn, in the key's own area
};

/// The keys of a plane for a keyboard of this size, in reading order. `language` is a language tag; tags
/// other than German get the English layout. A tablet has a key that puts the keyboard away.
std::vector<KeyboardKey> keyboardKeys(KeyboardPlane plane, const std::string& language, UIReturnKeyType returnKey,
                                      CGSize size, bool tablet);

/// What the return key reads in a language.
std::string returnKeyTitle(UIReturnKeyType type, const std::string& language);
/// Whether the return key stands out in blue: those that finish something do.
bool returnKeyIsProminent(UIReturnKeyType type);

} // namespace phone
