/// Move, forward and placement construction, for a target that has no `<utility>` and no `<new>`.
#pragma once

#include <cstddef>
#include <type_traits>

namespace objc {

template <class T>
constexpr std::remove_reference_t<T>&& move(T&& value) noexcept {
    return static_cast<std::remove_reference_t<T>&&>(value);
}

template <class T>
constexpr T&& forward(std::remove_reference_t<T>& value) noexcept {
    return static_cast<T&&>(value);
}

/// Chooses the kernel's placement new: `new (at, objc::Here{}) T(...)`.
struct Here {};

} // namespace objc

inline void* operator new(std::size_t, void* at, objc::Here) noexcept { return at; }
inline void operator delete(void*, void*, objc::Here) noexcept {}
