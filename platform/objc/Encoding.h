/// Type encodings, made from C++ signatures while the program is compiled.
#pragma once

#include "platform/objc/Object.h"
#include "platform/objc/Selector.h"

namespace objc {

template <std::size_t N, std::size_t M>
constexpr auto operator+(const FixedString<N>& a, const FixedString<M>& b) {
    FixedString<N + M - 1> joined;
    for (std::size_t i = 0; i + 1 < N; ++i) {
        joined.text[i] = a.text[i];
    }
    for (std::size_t i = 0; i < M; ++i) {
        joined.text[N - 1 + i] = b.text[i];
    }
    return joined;
}

/// The encoding of one C++ type. Structures of a projection specialise it beside their definition.
template <class T>
struct Encoding;

namespace detail {
constexpr FixedString<2> letter(char c) {
    FixedString<2> one;
    one.text[0] = c;
    return one;
}
} // namespace detail

template <>
struct Encoding<void> {
    static constexpr auto text = detail::letter('v');
};
template <>
struct Encoding<bool> {
    static constexpr auto text = detail::letter(boolEncoding);
};
template <>
struct Encoding<int> {
    static constexpr auto text = detail::letter('i');
};
template <>
struct Encoding<unsigned> {
    static constexpr auto text = detail::letter('I');
};
template <>
struct Encoding<unsigned short> {
    static constexpr auto text = detail::letter('S');
};
template <>
struct Encoding<long> {
    static constexpr auto text = detail::letter(intEncoding);
};
template <>
struct Encoding<unsigned long> {
    static constexpr auto text = detail::letter(uintEncoding);
};
template <>
struct Encoding<long long> {
    static constexpr auto text = detail::letter('q');
};
template <>
struct Encoding<unsigned long long> {
    static constexpr auto text = detail::letter('Q');
};
template <>
struct Encoding<float> {
    static constexpr auto text = detail::letter('f');
};
template <>
struct Encoding<double> {
    static constexpr auto text = detail::letter('d');
};
template <>
struct Encoding<SEL> {
    static constexpr auto text = detail::letter(':');
};
template <>
struct Encoding<Class> {
    static constexpr auto text = detail::letter('#');
};
template <>
struct Encoding<const char*> {
    static constexpr FixedString text = "r*";
};
template <Handle T>
struct Encoding<T> {
    static constexpr auto text = detail::letter('@');
};
template <Handle T>
struct Encoding<Unretained<T>> {
    static constexpr auto text = detail::letter('@');
};
template <>
struct Encoding<id> {
    static constexpr auto text = detail::letter('@');
};
template <class T>
    requires std::is_enum_v<T>
struct Encoding<T> : Encoding<std::underlying_type_t<T>> {};
template <class T>
struct Encoding<T*> {
    static constexpr auto text = FixedString("^") + Encoding<T>::text;
};
template <>
struct Encoding<void*> {
    static constexpr FixedString text = "^v";
};
template <class R, class... A>
struct Encoding<R (^)(A...)> {
    static constexpr FixedString text = "@?";
};

/// The encoding of a method that takes A... and gives R: result, receiver, selector, arguments.
template <class R, class... A>
constexpr auto methodEncoding() {
    return ((Encoding<R>::text + FixedString("@:")) + ... + Encoding<std::remove_cvref_t<A>>::text);
}

namespace detail {
template <class R, class... A>
inline constexpr auto methodTypes = methodEncoding<R, A...>();
}

/// Whether two encodings agree, leaving offsets, qualifiers and structure names aside.
bool encodingsAgree(const char* a, const char* b);

} // namespace objc
