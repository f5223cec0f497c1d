/// What every screen takes from the device: pictures, words and the person's three switches. Nothing is
/// cached: what is needed is read at the moment it is needed.
#pragma once

#include "platform/foundation/NSDictionary.h"
#include "platform/foundation/NSString.h"
#include "platform/uikit/UIImage.h"

namespace quorvan {

/// The word for a key, in the person's language; the key itself where the bundle has none.
NSString localized(const char* key);
/// As `localized(const char*)`; nil for nil.
NSString localized(const NSString& key);

/// Two spaces and the localized word: what an empty text input shows. A text equal to it counts as empty.
NSString placeholder(const char* key);

/// The path of a file in the resource directory.
NSString resourcePath(const char* name);
/// A picture of the resource directory; nil when it is missing.
UIImage picture(const char* name);

/// The switches of the settings pane.
namespace preference {
inline constexpr const char* focusAtOnce = "SwitchCell1"; // the text input has the keyboard as soon as a screen appears
inline constexpr const char* keepUnsavedText = "SwitchCell2"; // a cancelled note's text is there the next time
inline constexpr const char* separateTitle = "SwitchCell3";   // a note has a title field of its own
} // namespace preference

/// Whether a switch is on. Off when the preferences file or the key is missing or holds no number.
bool isOn(const char* preference);

/// Whether there is no text: nil or "".
inline bool isEmpty(const NSString& text) { return text.length() == 0; }

} // namespace quorvan
