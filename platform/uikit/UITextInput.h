/// What text fields and text views have in common. Every call is safe on nil.
#pragma once

#include "platform/objc/Runtime.h"

/// `UITextAutocapitalizationType`
enum class UITextAutocapitalizationType : objc::Int { None = 0, Words = 1, Sentences = 2, AllCharacters = 3 };

/// `UIReturnKeyType`
enum class UIReturnKeyType : objc::Int {
    Default = 0,
    Go = 1,
    Google = 2,
    Join = 3,
    Next = 4,
    Route = 5,
    Search = 6,
    Send = 7,
    Yahoo = 8,
    Done = 9,
    EmergencyCall = 10,
};
