#include "platform/objc/Object.h"

namespace objc::detail {

namespace {

constinit bool taken = false;

/// Held for a few instructions, by whoever reads or replaces any of the variables: between reading an object and
/// retaining it nobody else may release it.
class Moment {
public:
    Moment() {
        while (__atomic_test_and_set(&taken, __ATOMIC_ACQUIRE)) {
        }
    }
    ~Moment() { __atomic_clear(&taken, __ATOMIC_RELEASE); }
    Moment(const Moment&) = delete;
    Moment& operator=(const Moment&) = delete;
};

} // namespace

id ownedValue(const id& variable) {
    const Moment moment;
    if (variable != nullptr) {
        Object::retain(variable);
    }
    return variable;
}

void replaceValue(id& variable, id owned) {
    id before = nullptr;
    {
        const Moment moment;
        before = variable;
        __atomic_store_n(&variable, owned, __ATOMIC_RELAXED);
    }
    if (before != nullptr) {
        Object::release(before); // only now: an end may run anybody's code
    }
}

} // namespace objc::detail
