#include "platform/objc/Exception.h"

#include <cxxabi.h>
#include <exception>
#include <typeinfo>
#include <unwind.h>

namespace objc {

namespace {

// How the C++ runtime keeps what it has caught, by the common ABI: for an exception of another language
// only the unwinder's part at the end is real.
struct CaughtException {
    void* type;
    void (*destroy)(void*);
    void (*unexpected)();
    void (*terminate)();
    CaughtException* next;
    int handlers;
    int handlerSwitchValue;
    const unsigned char* actionRecord;
    const unsigned char* languageData;
    std::uintptr_t catchTemporary;
    void* adjusted;
    _Unwind_Exception unwindHeader;
};

struct Globals {
    CaughtException* caught;
    unsigned uncaught;
};

// The object runtime's exception: the object follows the unwinder's part.
struct PlatformException {
    _Unwind_Exception unwindHeader;
    id object;
};

/// "GNUCOBJC", as the unwinder holds it.
constexpr _Unwind_Exception_Class platformClass = 0x474e55434f424a43;

} // namespace

Object caughtObject() {
    const auto* globals = reinterpret_cast<const Globals*>(abi::__cxa_get_globals());
    CaughtException* caught = globals->caught;
    if (caught == nullptr || caught->unwindHeader.exception_class != platformClass) {
        return nullptr;
    }
    return borrow<Object>(reinterpret_cast<PlatformException*>(&caught->unwindHeader)->object);
}

} // namespace objc
