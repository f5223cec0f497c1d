#include "phone/flow/TextPattern.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <array>
#include <pcre2.h>

namespace phone {

namespace {

constexpr std::size_t longestExpression = 20000; // bytes
constexpr std::uint32_t mostSteps = 3000000;     // of one match
constexpr std::uint32_t mostMemory = 256 * 1024; // of one match, in KiB

/// What makes the engine's syntax ECMAScript's, on characters.
constexpr std::uint32_t syntax = PCRE2_UTF | PCRE2_MATCH_INVALID_UTF | PCRE2_ALT_BSUX | PCRE2_ALLOW_EMPTY_CLASS |
                                 PCRE2_MATCH_UNSET_BACKREF | PCRE2_DOLLAR_ENDONLY | PCRE2_NEVER_BACKSLASH_C |
                                 PCRE2_ANCHORED | PCRE2_ENDANCHORED;

std::string messageOf(int error) {
    std::array<PCRE2_UCHAR, 200> text{};
    pcre2_get_error_message(error, text.data(), text.size());
    return reinterpret_cast<const char*>(text.data());
}

template <auto Free>
struct Freed {
    template <class T>
    void operator()(T* made) const {
        Free(made);
    }
};
template <class T, auto Free>
using Owned = std::unique_ptr<T, Freed<Free>>;

using CompileContext = Owned<pcre2_compile_context, pcre2_compile_context_free>;
using MatchContext = Owned<pcre2_match_context, pcre2_match_context_free>;
using MatchData = Owned<pcre2_match_data, pcre2_match_data_free>;

} // namespace

struct TextPattern::Compiled {
    Owned<pcre2_code, pcre2_code_free> code;
};

TextPattern::TextPattern(const std::string& expression, Options options) : _expression(expression) {
    if (!options.ignoresCase && expression.find_first_of("\\^$.|?*+()[]{}") == std::string::npos) {
        return;
    }
    if (expression.size() > longestExpression) {
        throw PatternError("the expression is too long");
    }
    const CompileContext context(pcre2_compile_context_create(nullptr));
    pcre2_set_newline(context.get(), PCRE2_NEWLINE_ANYCRLF);
    int error = 0;
    PCRE2_SIZE place = 0;
    const std::uint32_t bits = syntax | (options.ignoresCase ? PCRE2_CASELESS : 0) | (options.unicode ? PCRE2_UCP : 0);
    Owned<pcre2_code, pcre2_code_free> code(pcre2_compile(reinterpret_cast<PCRE2_SPTR>(expression.data()),
                                                          expression.size(), bits, &error, &place, context.get()));
    if (!code) {
        throw PatternError(messageOf(error));
    }
    _compiled = std::make_shared<const Compiled>(std::move(code));
}

bool TextPattern::matches(const std::string& utf8) const {
    if (!_compiled) {
        return utf8 == _expression;
    }
    const pcre2_code* code = _compiled->code.get();
    const MatchContext context(pcre2_match_context_create(nullptr));
    pcre2_set_match_limit(context.get(), mostSteps);
    pcre2_set_heap_limit(context.get(), mostMemory);
    const MatchData data(pcre2_match_data_create_from_pattern(code, nullptr));
    const int result =
        pcre2_match(code, reinterpret_cast<PCRE2_SPTR>(utf8.data()), utf8.size(), 0, 0, data.get(), context.get());
    if (result < 0 && result != PCRE2_ERROR_NOMATCH) {
        throw PatternError(messageOf(result));
    }
    return result >= 0;
}

} // namespace phone
