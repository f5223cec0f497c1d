#include "phone/substrate/LateCall.h"

// Saves every register that can carry an argument, asks for the destination, restores them and jumps there.

#if defined(__x86_64__)

// r11 holds the call. The eight vector registers and seven general ones (rax counts the vector registers
// of a variadic call, r10 is the static chain) take 192 bytes, which keeps the stack aligned after the
// return address and the saved frame pointer.
asm(R"(
    .text
    .p2align 4
    .hidden phoneLateCall
    .globl phoneLateCall
    .type phoneLateCall, @function
phoneLateCall:
    .cfi_startproc
    pushq %rbp
    .cfi_def_cfa_offset 16
    .cfi_offset %rbp, -16
    movq %rsp, %rbp
    .cfi_def_cfa_register %rbp
    subq $192, %rsp
    movq %rdi, 0(%rsp)
    movq %rsi, 8(%rsp)
    movq %rdx, 16(%rsp)
    movq %rcx, 24(%rsp)
    movq %r8, 32(%rsp)
    movq %r9, 40(%rsp)
    movq %rax, 48(%rsp)
    movq %r10, 56(%rsp)
    movaps %xmm0, 64(%rsp)
    movaps %xmm1, 80(%rsp)
    movaps %xmm2, 96(%rsp)
    movaps %xmm3, 112(%rsp)
    movaps %xmm4, 128(%rsp)
    movaps %xmm5, 144(%rsp)
    movaps %xmm6, 160(%rsp)
    movaps %xmm7, 176(%rsp)
    movq %r11, %rdi
    movq %rsp, %rsi
    call *(%r11)
    movq %rax, %r11
    movq 0(%rsp), %rdi
    movq 8(%rsp), %rsi
    movq 16(%rsp), %rdx
    movq 24(%rsp), %rcx
    movq 32(%rsp), %r8
    movq 40(%rsp), %r9
    movq 48(%rsp), %rax
    movq 56(%rsp), %r10
    movaps 64(%rsp), %xmm0
    movaps 80(%rsp), %xmm1
    movaps 96(%rsp), %xmm2
    movaps 112(%rsp), %xmm3
    movaps 128(%rsp), %xmm4
    movaps 144(%rsp), %xmm5
    movaps 160(%rsp), %xmm6
    movaps 176(%rsp), %xmm7
    leave
    .cfi_def_cfa %rsp, 8
    jmpq *%r11
    .cfi_endproc
    .size phoneLateCall, . - phoneLateCall
)");

#elif defined(__aarch64__)

// x16 holds the call. x0 to x7 and q0 to q7 carry arguments, x8 the place of a large result.
asm(R"(
    .text
    .p2align 2
    .hidden phoneLateCall
    .globl phoneLateCall
    .type phoneLateCall, %function
phoneLateCall:
    .cfi_startproc
    stp x29, x30, [sp, #-224]!
    .cfi_def_cfa_offset 224
    .cfi_offset x29, -224
    .cfi_offset x30, -216
    mov x29, sp
    stp x0, x1, [sp, #16]
    stp x2, x3, [sp, #32]
    stp x4, x5, [sp, #48]
    stp x6, x7, [sp, #64]
    str x8, [sp, #80]
    stp q0, q1, [sp, #96]
    stp q2, q3, [sp, #128]
    stp q4, q5, [sp, #160]
    stp q6, q7, [sp, #192]
    mov x0, x16
    add x1, sp, #16
    ldr x17, [x16]
    blr x17
    mov x17, x0
    ldp x0, x1, [sp, #16]
    ldp x2, x3, [sp, #32]
    ldp x4, x5, [sp, #48]
    ldp x6, x7, [sp, #64]
    ldr x8, [sp, #80]
    ldp q0, q1, [sp, #96]
    ldp q2, q3, [sp, #128]
    ldp q4, q5, [sp, #160]
    ldp q6, q7, [sp, #192]
    ldp x29, x30, [sp], #224
    .cfi_def_cfa_offset 0
    .cfi_restore x29
    .cfi_restore x30
    br x17
    .cfi_endproc
    .size phoneLateCall, . - phoneLateCall
)");

#endif
