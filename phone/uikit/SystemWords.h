/// The few words that the platform's own views show, in the phone's language.
#pragma once

#include "platform/foundation/NSString.h"

namespace phone {

/// The German text where the phone's language is a German one, else the English one.
NSString inPhoneLanguage(const char* english, const char* german);

inline NSString backWord() { return inPhoneLanguage("Back", "Zurück"); }
inline NSString todayWord() { return inPhoneLanguage("Today", "Heute"); }
inline NSString cancelWord() { return inPhoneLanguage("Cancel", "Abbrechen"); }

} // namespace phone
