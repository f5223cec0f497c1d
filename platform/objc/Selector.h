/// Selectors as template arguments: arity and ownership are known when the program is compiled.
#pragma once

#include "platform/objc/Runtime.h"

#include <cstddef>

namespace objc {

/// A text that can be a template argument.
template <std::size_t N>
struct FixedString {
    char text[N] = {};

    constexpr FixedString() = default;
    constexpr FixedString(const char (&literal)[N]) { // NOLINT: converts from literals by intent
        for (std::size_t i = 0; i < N; ++i) {
            text[i] = literal[i];
        }
    }

    static constexpr std::size_t length() { return N - 1; }
};

/// How many arguments a message with this selector takes.
template <std::size_t N>
constexpr std::size_t arity(const FixedString<N>& selector) {
    std::size_t count = 0;
    for (char c : selector.text) {
        count += c == ':';
    }
    return count;
}

/// The platform's rule of ownership: which reference the sender of a message receives.
enum class Family { None, Alloc, Copy, Init, MutableCopy, New };

/// The family of a selector: its first word after leading underscores, as a whole word
/// ("copyWithZone:" copies, "copying" does not).
template <std::size_t N>
constexpr Family family(const FixedString<N>& selector) {
    std::size_t start = 0;
    while (selector.text[start] == '_') {
        ++start;
    }
    auto begins = [&](const char* word) {
        std::size_t at = start;
        for (; *word != 0; ++word, ++at) {
            if (selector.text[at] != *word) {
                return false;
            }
        }
        const char next = selector.text[at];
        return next < 'a' || next > 'z';
    };
    return begins("alloc")         ? Family::Alloc
           : begins("copy")        ? Family::Copy
           : begins("init")        ? Family::Init
           : begins("mutableCopy") ? Family::MutableCopy
           : begins("new")         ? Family::New
                                   : Family::None;
}

/// Whether the result of a message with this selector belongs to the sender.
template <std::size_t N>
constexpr bool givesOwnership(const FixedString<N>& selector) {
    return family(selector) != Family::None;
}

namespace detail {
template <FixedString Name>
inline constinit SEL registered = nullptr;
}

/// The runtime's selector for `Name`, registered at first use.
template <FixedString Name>
SEL selector() {
    SEL known = __atomic_load_n(&detail::registered<Name>, __ATOMIC_RELAXED);
    if (known == nullptr) {
        known = sel_registerName(Name.text);
        __atomic_store_n(&detail::registered<Name>, known, __ATOMIC_RELAXED);
    }
    return known;
}

/// Whether two selectors name the same message. On some runtimes one name has several selectors.
inline bool same(SEL a, SEL b) { return a == b || (a != nullptr && b != nullptr && sel_isEqual(a, b)); }

} // namespace objc
