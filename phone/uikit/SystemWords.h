/// The few words that the platform's own views show, in the phone's language.
#pragma once

#include "phone/uikit/Language.h"
#include "platform/foundation/NSString.h"

namespace phone {

NSString inPhoneLanguage(const Translations& texts);

/// The display name of the phone application.
NSString applicationName();

NSString backWord();
NSString todayWord();
NSString cancelWord();

} // namespace phone
