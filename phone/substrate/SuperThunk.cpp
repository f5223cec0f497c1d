#include "phone/substrate/SuperThunk.h"

#include "phone/substrate/LateCall.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <new>

// A thunk is a few instructions that load the address of its target into a register that the calling
// convention leaves free, and jump to the code that makes a late call.

namespace phone {

namespace {

struct Target : LateCall {
    Class cls;
    SEL selector;
};

IMP superImplementation(const LateCall* call, std::uintptr_t*) {
    const auto* target = static_cast<const Target*>(call);
    return class_getMethodImplementation(class_getSuperclass(target->cls), target->selector);
}

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
    void (*common)() = &phoneLateCall;
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
    code->target = new (code + 1) Target{{&superImplementation}, cls, selector};
    mprotect(page, size, PROT_READ | PROT_EXEC);
    __builtin___clear_cache(static_cast<char*>(page), static_cast<char*>(page) + sizeof(Code));
    return reinterpret_cast<IMP>(page);
}

} // namespace phone
