/// A regular expression that has to match a whole text.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>

namespace phone {

/// The expression is none, is too large, or takes too long on a text. Says why in one line.
class PatternError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// ECMAScript's syntax; works on characters, not on the bytes of UTF-8. Neither the expression nor the text can make
/// matching take more than a bounded number of steps, nor more of the stack.
class TextPattern {
public:
    struct Options {
        bool ignoresCase = false;
        bool unicode = false; // \w, \d and \s mean all alphabets' letters, digits and spaces, not only English ones
    };

    /// Throws PatternError when the expression is none.
    explicit TextPattern(const std::string& expression) : TextPattern(expression, Options()) {}
    TextPattern(const std::string& expression, Options options);

    /// Throws PatternError when it takes too long.
    bool matches(const std::string& utf8) const;
    const std::string& expression() const { return _expression; }

private:
    struct Compiled;

    std::string _expression;
    std::shared_ptr<const Compiled> _compiled; // none for a text without special characters: compared as it stands
};

} // namespace phone
