/// The device's way of sending a message: a function that turns into the method. Nil answers zero.
#pragma once

extern "C" {
/// Receiver, selector, arguments. Results in memory go through the functions of that name, whose first argument is
/// where to; for nil it leaves the memory as it is. Only x86_64 has that kind.
[[gnu::visibility("hidden")]] void phoneMessageSend();
[[gnu::visibility("hidden")]] void phoneMessageSendInMemory();
/// The receiver is in an `objc_super`, with the class at which the search begins.
[[gnu::visibility("hidden")]] void phoneMessageSendSuper();
[[gnu::visibility("hidden")]] void phoneMessageSendSuperInMemory();
}
