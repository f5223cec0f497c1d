/// The words and signs of a predicate.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace phone::webdriver {

struct Token {
    enum class Kind { End, Word, Text, Number, Sign };

    Kind kind = Kind::End;
    std::string text;     // a word or sign as it stands; of a text what it stands for
    double number = 0;    // of a number
    std::size_t byte = 0; // where it begins

    bool isSign(std::string_view sign) const { return kind == Kind::Sign && text == sign; }
    /// In capitals or not.
    bool isKeyword(std::string_view capitals) const;
};

/// Ends with a token of the kind End. Throws Refusal (invalid selector) at what is no token.
std::vector<Token> predicateTokens(std::string_view predicate);

/// Throws Refusal (invalid selector) with the place and the predicate.
[[noreturn]] void refusePredicate(std::string_view predicate, std::size_t byte, const std::string& what);

} // namespace phone::webdriver
