#include "phone/foundation/PropertyListGuard.h"

#include <cctype>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>

namespace phone {

namespace {

/// Counts how deep one is.
class Depth {
public:
    /// False when that is too deep.
    bool enter() { return ++_now <= deepestPropertyList; }
    void leave() { _now -= _now > 0 ? 1 : 0; }

private:
    int _now = 0;
};

/// The text's characters, one byte each; what is not ASCII stands as some other byte.
std::string characters(const std::string& bytes) {
    const bool little = bytes.starts_with("\xff\xfe");
    if (!little && !bytes.starts_with("\xfe\xff")) {
        return bytes.substr(bytes.starts_with("\xef\xbb\xbf") ? 3 : 0);
    }
    std::string text;
    for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
        const char low = bytes[little ? i : i + 1];
        const char high = bytes[little ? i + 1 : i];
        text += high == 0 ? low : '\x80';
    }
    return text;
}

/// The position behind the next `end` at or after `at`; `npos` when there is none.
std::size_t behind(std::string_view text, std::string_view end, std::size_t at) {
    const auto found = text.find(end, at);
    return found == std::string_view::npos ? found : found + end.size();
}

/// Not too deep, and nothing that begins with an angle bracket lacks its end: Foundation would read beyond the text.
bool isSafeXml(std::string_view text) {
    Depth depth;
    for (std::size_t at = text.find('<'); at != std::string_view::npos; at = text.find('<', at)) {
        const std::string_view rest = text.substr(at);
        if (rest.starts_with("<!--")) {
            at = behind(text, "-->", at);
        } else if (rest.starts_with("<![CDATA[")) {
            at = behind(text, "]]>", at);
        } else {
            const std::size_t end = behind(text, ">", at);
            if (end == std::string_view::npos) {
                return false;
            }
            const bool container = rest.starts_with("<array") || rest.starts_with("<dict");
            if (container && !text.substr(0, end).ends_with("/>") && !depth.enter()) {
                return false;
            }
            if (rest.starts_with("</array") || rest.starts_with("</dict")) {
                depth.leave();
            }
            at = end;
        }
        if (at == std::string_view::npos) {
            return false;
        }
    }
    return true;
}

/// Whether an old-style property list may hold the character without quotes.
bool isPlain(char c) { return std::isalnum(static_cast<unsigned char>(c)) || (c != 0 && std::strchr("_$/:.-", c)); }

bool isShallowOldStyle(std::string_view text) {
    Depth depth;
    for (std::size_t at = 0; at < text.size();) {
        const std::string_view rest = text.substr(at);
        if (rest.starts_with("/*")) {
            at = behind(text, "*/", at + 2);
        } else if (rest.starts_with("//")) {
            at = behind(text, "\n", at);
        } else if (rest[0] == '"') {
            for (++at; at < text.size() && text[at] != '"'; ++at) {
                at += text[at] == '\\' ? 1 : 0;
            }
            ++at;
        } else if (isPlain(rest[0])) {
            while (at < text.size() && isPlain(text[at])) {
                ++at;
            }
        } else {
            if ((rest[0] == '(' || rest[0] == '{') && !depth.enter()) {
                return false;
            }
            if (rest[0] == ')' || rest[0] == '}') {
                depth.leave();
            }
            ++at;
        }
    }
    return true;
}

/// A binary property list: objects one after the other, a table of where they are, and a trailer.
class Binary {
public:
    explicit Binary(std::string_view bytes) : _bytes(bytes) {}

    bool isSafe() {
        if (_bytes.size() < headSize + trailerSize) {
            return false;
        }
        const std::size_t trailer = _bytes.size() - trailerSize;
        _offsetSize = byte(trailer + 6);
        _referenceSize = byte(trailer + 7);
        _count = *number(trailer + 8, 8);
        const std::uint64_t top = *number(trailer + 16, 8);
        _table = *number(trailer + 24, 8);
        const bool fits = _offsetSize >= 1 && _offsetSize <= 8 && _referenceSize >= 1 && _referenceSize <= 8 &&
                          _table <= trailer && _count <= (trailer - _table) / _offsetSize;
        return fits && isSafe(top, 0);
    }

private:
    static constexpr std::size_t headSize = 8;
    static constexpr std::size_t trailerSize = 32;

    enum Kind { Simple, Integer, Real, Date, Data, Ascii, Utf16, Uid = 8, Array = 10, Set = 12, Dictionary };

    std::uint8_t byte(std::uint64_t at) const { return static_cast<std::uint8_t>(_bytes[at]); }

    std::optional<std::uint64_t> number(std::uint64_t at, std::uint64_t size) const {
        if (at > _bytes.size() || size > _bytes.size() - at) {
            return std::nullopt;
        }
        std::uint64_t value = 0;
        for (std::uint64_t i = 0; i < size; ++i) {
            value = value << 8 | byte(at + i);
        }
        return value;
    }

    /// Whether the object is safe with everything in it.
    bool isSafe(std::uint64_t object, int depth) {
        if (object >= _count || depth > deepestPropertyList || ++_unfolded > mostPropertyListObjects) {
            return false;
        }
        const auto place = number(_table + object * _offsetSize, _offsetSize);
        if (!place || *place < headSize || *place >= _table) {
            return false;
        }
        std::uint64_t at = *place + 1;
        const int kind = byte(*place) >> 4;
        std::uint64_t length = byte(*place) & 15;
        const bool counted = kind >= Data && kind != Uid;
        if (counted && length == 15) { // the length stands in an integer of its own
            const auto marker = number(at, 1);
            const auto size = marker && *marker >> 4 == Integer && (*marker & 15) <= 3 ? 1U << (*marker & 15) : 0;
            const auto given = size == 0 ? std::nullopt : number(at + 1, size);
            if (!given) {
                return false;
            }
            length = *given;
            at += 1 + size;
        }
        switch (kind) {
        case Simple:
            return true;
        case Integer:
        case Real:
        case Date:
            return length <= 4 && fits(at, 1U << length, 1);
        case Uid:
            return fits(at, length + 1, 1);
        case Data:
        case Ascii:
            return fits(at, length, 1);
        case Utf16:
            return fits(at, length, 2);
        case Array:
        case Set:
            return fits(at, length, _referenceSize) && areSafe(at, length, depth);
        case Dictionary:
            return fits(at, length, 2 * _referenceSize) && areSafe(at, 2 * length, depth);
        default:
            return false;
        }
    }

    bool areSafe(std::uint64_t at, std::uint64_t count, int depth) {
        for (std::uint64_t i = 0; i < count; ++i) {
            if (!isSafe(*number(at + i * _referenceSize, _referenceSize), depth + 1)) {
                return false;
            }
        }
        return true;
    }

    bool fits(std::uint64_t at, std::uint64_t count, std::uint64_t size) const {
        return at <= _table && count <= (_table - at) / size;
    }

    std::string_view _bytes;
    std::uint64_t _offsetSize = 0;
    std::uint64_t _referenceSize = 0;
    std::uint64_t _count = 0;
    std::uint64_t _table = 0;
    std::size_t _unfolded = 0;
};

} // namespace

bool isSafeToParse(const std::string& bytes) {
    if (bytes.starts_with("bplist")) {
        return Binary(bytes).isSafe();
    }
    const bool wide = bytes.starts_with("\xff\xfe") || bytes.starts_with("\xfe\xff");
    if (!wide && bytes.find('\0') != std::string::npos) {
        return false; // no text
    }
    const std::string text = characters(bytes);
    const auto first = text.find_first_not_of(" \t\r\n");
    const bool xml = first != std::string::npos && text[first] == '<';
    // What begins like XML may turn out to be an old-style property list that begins with data.
    return (!xml || isSafeXml(text)) && (isShallowOldStyle(text) || (xml && text.find("<?xml", first) == first));
}

} // namespace phone
