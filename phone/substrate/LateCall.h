/// A call whose destination is found anew each time, whatever its arguments and its result are.
#pragma once

#include "platform/objc/Runtime.h"

#include <cstdint>

namespace phone {

/// What code that ends in `phoneLateCall` points at: who finds the destination. More may follow in memory.
struct LateCall {
    /// Answers where the call goes. `arguments` are the general argument registers, in order; what is changed
    /// there, the destination sees.
    IMP (*destination)(const LateCall* call, std::uintptr_t* arguments);
};

} // namespace phone

extern "C" {
/// Jumps to the destination with every argument as it came; the stack is as the caller left it. No function to
/// be called: the address of the `LateCall` comes in r11 (x16 on arm64).
[[gnu::visibility("hidden")]] void phoneLateCall();
}
