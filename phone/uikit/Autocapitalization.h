/// When the keyboard presses shift by itself.
#pragma once

#include "platform/uikit/UITextInput.h"

#include <string>

namespace phone {

/// Whether what is typed behind this text (UTF-8) is to begin with a capital: at the start of a sentence, a line
/// or a word, as the kind says.
bool capitalIsNext(UITextAutocapitalizationType kind, const std::string& before);

} // namespace phone
