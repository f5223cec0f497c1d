/// Reading what may be broken: nothing outside the bytes given is ever touched.
#pragma once

#include "phone/macho/Refusal.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

namespace phone::macho {

/// Bytes that belong to somebody else. Every way of reading past their end is a Refusal.
class Bytes {
public:
    Bytes() = default;
    explicit Bytes(std::string_view bytes) : _bytes(bytes) {}

    std::uint64_t size() const { return _bytes.size(); }
    const char* data() const { return _bytes.data(); }
    bool holds(std::uint64_t offset, std::uint64_t length) const {
        return offset <= _bytes.size() && length <= _bytes.size() - offset;
    }

    /// The part of this length; `what` names it where it is not there.
    Bytes part(std::uint64_t offset, std::uint64_t length, const char* what) const {
        if (!holds(offset, length)) {
            throw Refusal(std::string("the file ends before ") + what);
        }
        return Bytes(_bytes.substr(offset, length));
    }

    template <class T>
    T at(std::uint64_t offset, const char* what) const {
        static_assert(std::is_trivially_copyable_v<T>);
        T value;
        std::memcpy(&value, part(offset, sizeof(T), what).data(), sizeof(T));
        return value;
    }

    /// The text up to its terminating zero.
    std::string_view text(std::uint64_t offset, const char* what) const {
        const std::size_t end = offset < size() ? _bytes.find('\0', offset) : std::string_view::npos;
        if (end == std::string_view::npos) {
            throw Refusal(std::string("a text without an end: ") + what);
        }
        return _bytes.substr(offset, end - offset);
    }

private:
    std::string_view _bytes;
};

/// Reads one thing after the other.
class ByteReader {
public:
    ByteReader(const Bytes& bytes, const char* what) : _bytes(bytes), _what(what) {}

    bool atEnd() const { return _at == _bytes.size(); }
    std::uint64_t left() const { return _bytes.size() - _at; }
    std::uint8_t byte() { return next<std::uint8_t>(); }
    template <class T>
    T next() {
        const T value = _bytes.at<T>(_at, _what);
        _at += sizeof(T);
        return value;
    }
    std::string_view text() {
        const std::string_view read = _bytes.text(_at, _what);
        _at += read.size() + 1;
        return read;
    }

    /// A number of seven bits a byte, the lowest first.
    std::uint64_t unsignedNumber() { return number().value; }
    std::int64_t signedNumber() {
        const Number read = number();
        const bool negative = read.shift < 64 && (read.last & 0x40) != 0;
        return static_cast<std::int64_t>(negative ? read.value | (~std::uint64_t{0} << read.shift) : read.value);
    }

private:
    struct Number {
        std::uint64_t value;
        unsigned shift;
        std::uint8_t last;
    };

    Number number() {
        Number read{0, 0, 0};
        do {
            read.last = byte();
            if (read.shift >= 64) {
                throw Refusal(std::string("a number that is too long: ") + _what);
            }
            read.value |= static_cast<std::uint64_t>(read.last & 0x7f) << read.shift;
            read.shift += 7;
        } while ((read.last & 0x80) != 0);
        return read;
    }

    Bytes _bytes;
    const char* _what;
    std::uint64_t _at = 0;
};

} // namespace phone::macho
