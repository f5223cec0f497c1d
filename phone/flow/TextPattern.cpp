#include "phone/flow/TextPattern.h"

#include <algorithm>
#include <sys/resource.h>

namespace phone {

namespace {

/// Unicode scalars of a text; a byte that is no UTF-8 counts as one character.
std::wstring characters(const std::string& utf8) {
    std::wstring all;
    all.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const auto lead = static_cast<unsigned char>(utf8[at]);
        const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
        if (length == 1 || at + length > utf8.size()) {
            all.push_back(static_cast<wchar_t>(lead));
            ++at;
            continue;
        }
        wchar_t character = lead & (0xFF >> (length + 1));
        for (std::size_t i = 1; i < length; ++i) {
            character = (character << 6) | (static_cast<unsigned char>(utf8[at + i]) & 0x3F);
        }
        all.push_back(character);
        at += length;
    }
    return all;
}

/// Lets the main thread's stack grow further for a while: the standard library's matching calls itself
/// for every character, and a note may be long.
class DeepStack {
public:
    DeepStack() {
        constexpr rlim_t wanted = 120 * 1024 * 1024; // what the kernel leaves free below a stack
        _raised = getrlimit(RLIMIT_STACK, &_before) == 0 && _before.rlim_cur < wanted;
        if (_raised) {
            const rlimit deeper = {std::min(wanted, _before.rlim_max), _before.rlim_max};
            setrlimit(RLIMIT_STACK, &deeper);
        }
    }
    ~DeepStack() {
        if (_raised) {
            setrlimit(RLIMIT_STACK, &_before);
        }
    }
    DeepStack(const DeepStack&) = delete;
    DeepStack& operator=(const DeepStack&) = delete;

private:
    rlimit _before{};
    bool _raised = false;
};

} // namespace

TextPattern::TextPattern(const std::string& expression)
    : _expression(expression), _isLiteral(expression.find_first_of("\\^$.|?*+()[]{}") == std::string::npos),
      _regex(characters(expression), std::regex::ECMAScript) {}

bool TextPattern::matches(const std::string& utf8) const {
    if (_isLiteral) {
        return utf8 == _expression;
    }
    const DeepStack stack;
    return std::regex_match(characters(utf8), _regex);
}

} // namespace phone
