#include "phone/substrate/SuperThunk.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>

// A thunk is a few instructions that load the address of its target into a register that the calling
// convention leaves free, and jump to the code below. That code saves every register that can carry an
// argument, asks for the implementation, restores them and jumps there: the stack is as the caller left it.

namespace phone {

namespace {

struct Target {
    Class cls;
    SEL selector;
};

} // namespace

} // namespace phone

extern "C" {

// What the assembly below calls.
[[gnu::used, gnu::visibility("hidden")]] IMP phoneSuperImplementation(const phone::Target* target) {
    return class_getMethodImplementation(class_getSuperclass(target->cls), target->selector);
}

void phoneSuperThunk();
}

#if defined(__x86_64__)

// r11 holds the target. The eight vector registers and seven general ones (rax counts the vector registers
// of a variadic call, r10 is the static chain) take 192 bytes, which keeps the stack aligned after the
// return address and the saved frame pointer.
asm(R"(
    .text
    .p2align 4
    .hidden phoneSuperThunk
    .globl phoneSuperThunk
    .type phoneSuperThunk, @function
phoneSuperThunk:
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
    call phoneSuperImplementation
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
    .size phoneSuperThunk, . - phoneSuperThunk
)");

#elif defined(__aarch64__)

// x16 holds the target. x0 to x7 and q0 to q7 carry arguments, x8 the place of a large result.
asm(R"(
    .text
    .p2align 2
    .hidden phoneSuperThunk
    .globl phoneSuperThunk
    .type phoneSuperThunk, %function
phoneSuperThunk:
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
    bl phoneSuperImplementation
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
    .size phoneSuperThunk, . - phoneSuperThunk
)");

#endif

namespace phone {

namespace {

/// The instructions of one thunk and, behind them, the two addresses that they load.
struct Code {
#if defined(__x86_64__)
    unsigned char instructions[16] = {
        0x4c, 0x8b, 0x1d, 0x09, 0x00, 0x00, 0x00, // mov r11, [rip + 9]: the target
        0xff, 0x25, 0x0b, 0x00, 0x00, 0x00,       // jmp [rip + 11]: the common code
        0xcc, 0xcc, 0xcc,
    };
#elif defined(__aarch64__)
    std::uint32_t instructions[4] = {
        0x58000090, // ldr x16, [pc + 16]: the target
        0x580000b1, // ldr x17, [pc + 20]: the common code
        0xd61f0220, // br x17
        0xd503201f, // nop
    };
#endif
    const Target* target = nullptr;
    void (*common)() = &phoneSuperThunk;
};
static_assert(offsetof(Code, target) == 16 && offsetof(Code, common) == 24);

} // namespace

// A page each: hooks are few, and a page is never written to again once it can run.
IMP superThunk(Class cls, SEL selector) {
    const auto size = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    void* page = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (page == MAP_FAILED) {
        throw std::bad_alloc();
    }
    auto* code = new (page) Code;
    code->target = new (code + 1) Target{cls, selector};
    mprotect(page, size, PROT_READ | PROT_EXEC);
    __builtin___clear_cache(static_cast<char*>(page), static_cast<char*>(page) + sizeof(Code));
    return reinterpret_cast<IMP>(page);
}

} // namespace phone
