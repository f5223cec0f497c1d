/// The texts behind the keyboard's exported constants.
#pragma once

namespace phone {

/// Gives the constants of `platform/uikit/UIKeyboard.h` their values. Before anybody reads them.
void registerKeyboardNames();

} // namespace phone
