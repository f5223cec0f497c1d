/// Blocks: the compiler's closures, owned by a value.
#pragma once

#include "platform/objc/Encoding.h"
#include "platform/objc/Memory.h"

extern "C" {
void* _Block_copy(const void* block);
void _Block_release(const void* block);
}

namespace objc {

template <class Signature>
class Block;

/// An owned block, or none. Copied and released by the block runtime alone: a block is no object on
/// every runtime, so it never goes into a collection or a pool. Objects among its arguments are plain
/// `id`s: a handle is passed by reference in C++ and would not be understood.
template <class R, class... A>
class Block<R(A...)> {
public:
    static_assert((!Handle<A> && ... && !Handle<R>), "objects travel into and out of blocks as plain ids");
    using Pointer = R (^)(A...);

    constexpr Block() = default;
    constexpr Block(std::nullptr_t) {} // NOLINT: none converts
    Block(Pointer block)               // NOLINT: a literal converts
        : _block(block == nullptr ? Pointer() : (Pointer)_Block_copy((const void*)block)) {}
    Block(const Block& other) : Block(other._block) {}
    Block(Block&& other) noexcept : _block(other._block) { other._block = nullptr; }
    Block& operator=(Block other) noexcept {
        Pointer mine = _block;
        _block = other._block;
        other._block = mine;
        return *this;
    }
    ~Block() {
        if (_block != nullptr) {
            _Block_release(_block);
        }
    }

    explicit operator bool() const { return _block != nullptr; }
    Pointer get() const { return _block; }
    /// Calls the block; none answers a zero.
    R operator()(A... arguments) const { return _block == nullptr ? R() : _block(objc::move(arguments)...); }

private:
    Pointer _block = nullptr;
};

template <class R, class... A>
struct Encoding<Block<R(A...)>> {
    static constexpr FixedString text = "@?";
};

namespace detail {
template <class R, class... A>
struct Wire<R (^)(A...)> {
    using Pointer = R (^)(A...);
    using Out = Pointer;
    static Pointer send(const Pointer& block) { return block; }
    static Pointer receive(Pointer block) { return block; }
};

template <class R, class... A>
struct Wire<Block<R(A...)>> {
    using Pointer = R (^)(A...);
    using Out = Pointer;
    static Pointer send(const Block<R(A...)>& block) { return block.get(); }
    static Block<R(A...)> receive(Pointer block) { return Block<R(A...)>(block); }
};
} // namespace detail

} // namespace objc
