/// A regular expression that has to match a whole text.
#pragma once

#include <regex>
#include <string>

namespace phone {

/// ECMAScript's syntax, case-sensitive; works on characters, not on the bytes of UTF-8.
class TextPattern {
public:
    /// Throws std::regex_error when the expression is none.
    explicit TextPattern(const std::string& expression);

    bool matches(const std::string& utf8) const;
    const std::string& expression() const { return _expression; }

private:
    std::string _expression;
    bool _isLiteral; // without special characters: compared as it stands
    std::wregex _regex;
};

} // namespace phone
