#include "phone/macho/MessageSend.h"

#include "phone/substrate/LateCall.h"

namespace {

using phone::LateCall;

/// The receiver stands at `At` of the arguments, the selector behind it.
template <int At>
IMP method(const LateCall*, std::uintptr_t* arguments) {
    return objc_msg_lookup(reinterpret_cast<id>(arguments[At]), reinterpret_cast<SEL>(arguments[At + 1]));
}

template <int At>
IMP superMethod(const LateCall*, std::uintptr_t* arguments) {
    auto* target = reinterpret_cast<objc_super*>(arguments[At]);
    const IMP found = objc_msg_lookup_super(target, reinterpret_cast<SEL>(arguments[At + 1]));
    arguments[At] = reinterpret_cast<std::uintptr_t>(target->self);
    return found;
}

} // namespace

// What the assembly below points at.
extern "C" {
[[gnu::used, gnu::visibility("hidden")]] extern const LateCall phoneMethod = {&method<0>};
[[gnu::used, gnu::visibility("hidden")]] extern const LateCall phoneMethodInMemory = {&method<1>};
[[gnu::used, gnu::visibility("hidden")]] extern const LateCall phoneSuperMethod = {&superMethod<0>};
[[gnu::used, gnu::visibility("hidden")]] extern const LateCall phoneSuperMethodInMemory = {&superMethod<1>};
}

#if defined(__x86_64__)

// A result in memory is also answered by its address, in rax.
asm(R"(
    .text
    .macro begin_call name
    .p2align 4
    .hidden \name
    .globl \name
    .type \name, @function
\name:
    .cfi_startproc
    .endm

    .macro end_call name, call
    leaq \call(%rip), %r11
    jmp phoneLateCall
    .cfi_endproc
    .size \name, . - \name
    .endm

    begin_call phoneMessageSend
    testq %rdi, %rdi
    jne 1f
    xorl %eax, %eax
    xorl %edx, %edx
    xorps %xmm0, %xmm0
    xorps %xmm1, %xmm1
    ret
1:
    end_call phoneMessageSend, phoneMethod

    begin_call phoneMessageSendInMemory
    testq %rsi, %rsi
    jne 1f
    movq %rdi, %rax
    ret
1:
    end_call phoneMessageSendInMemory, phoneMethodInMemory

    begin_call phoneMessageSendSuper
    end_call phoneMessageSendSuper, phoneSuperMethod

    begin_call phoneMessageSendSuperInMemory
    end_call phoneMessageSendSuperInMemory, phoneSuperMethodInMemory
)");

#elif defined(__aarch64__)

// A result in memory is no case of its own: its address comes in a register that no argument uses.
asm(R"(
    .text
    .macro begin_call name
    .p2align 2
    .hidden \name
    .globl \name
    .type \name, %function
\name:
    .cfi_startproc
    .endm

    .macro end_call name, call
    adrp x16, \call
    add x16, x16, :lo12:\call
    b phoneLateCall
    .cfi_endproc
    .size \name, . - \name
    .endm

    begin_call phoneMessageSend
    cbnz x0, 1f
    mov x1, #0
    movi d0, #0
    movi d1, #0
    movi d2, #0
    movi d3, #0
    ret
1:
    end_call phoneMessageSend, phoneMethod

    begin_call phoneMessageSendSuper
    end_call phoneMessageSendSuper, phoneSuperMethod
)");

#endif
