/// The words that the phone itself shows, in the phone's language.
#pragma once

#include "platform/foundation/NSString.h"

namespace phone {

enum class Word {
    // what can be shared with
    Ok,
    Send,
    To,
    Message,
    Mail,
    Subject,
    Copy,
    NotSetUp, // followed by the service's name
    NotSetUpHint,
    // calls
    NoCall,
    IncomingCall,
    OnHold,
    CallEnded,
    Mute,
    Keypad,
    Speaker,
    AddCall,
    Hold,
    Contacts,
    Hide,
    Accept,
    Decline,
    EndCall,
};

/// In English where the phone does not speak its language.
NSString word(Word word);

} // namespace phone
