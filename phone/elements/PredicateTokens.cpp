#include "phone/elements/PredicateTokens.h"

#include "phone/elements/Refusal.h"
#include "phone/elements/TextFolding.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace phone::webdriver {

namespace {

constexpr std::array<std::string_view, 19> signs = {"&&", "||", "==", "=<", "=>", "!=", "<>", "<=", ">=", "=",
                                                    "<",  ">",  "!",  "(",  ")",  "{",  "}",  ",",  "["};
constexpr std::size_t longestShown = 200; // characters of a predicate in a message

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }
bool isWordStart(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }
bool isWordPart(char c) { return isWordStart(c) || isDigit(c) || c == '.'; }
char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c; }

class Tokeniser {
public:
    explicit Tokeniser(std::string_view predicate) : _predicate(predicate) {}

    std::vector<Token> all() {
        std::vector<Token> tokens;
        do {
            tokens.push_back(next());
        } while (tokens.back().kind != Token::Kind::End);
        return tokens;
    }

private:
    bool isAtEnd() const { return _at >= _predicate.size(); }
    char peek(std::size_t ahead = 0) const { return _at + ahead < _predicate.size() ? _predicate[_at + ahead] : '\0'; }

    Token next() {
        while (isSpace(peek())) {
            ++_at;
        }
        Token token;
        token.byte = _at;
        if (isAtEnd()) {
            return token;
        }
        const char c = peek();
        if (c == '"' || c == '\'') {
            token.kind = Token::Kind::Text;
            token.text = quoted();
        } else if (isDigit(c) || ((c == '-' || c == '.') && isDigit(peek(1))) ||
                   (c == '-' && peek(1) == '.' && isDigit(peek(2)))) {
            token.kind = Token::Kind::Number;
            token.number = number();
        } else if (isWordStart(c)) {
            token.kind = Token::Kind::Word;
            while (isWordPart(peek())) {
                token.text += _predicate[_at++];
            }
        } else {
            token.kind = Token::Kind::Sign;
            token.text = sign();
        }
        return token;
    }

    double number() {
        double value = 0;
        const char* end = _predicate.data() + _predicate.size();
        const auto [stop, error] = std::from_chars(_predicate.data() + _at, end, value);
        if (error != std::errc() || !std::isfinite(value)) {
            refusePredicate(_predicate, _at, "this number is too large");
        }
        const std::size_t begin = _at;
        _at = static_cast<std::size_t>(stop - _predicate.data());
        if (isWordStart(peek())) {
            refusePredicate(_predicate, begin, "this is neither a number nor a name");
        }
        return value;
    }

    std::string quoted() {
        const std::size_t begin = _at;
        const char quote = _predicate[_at++];
        std::string text;
        while (!isAtEnd()) {
            const char c = _predicate[_at++];
            if (c == quote) {
                return text;
            }
            if (c == '\\' && !isAtEnd()) {
                escaped(text);
            } else {
                text += c;
            }
        }
        refusePredicate(_predicate, begin,
                        "the text that begins here has no end; close it with " + std::string(1, quote));
    }

    /// Behind a backslash. One that means nothing to a text stays: it may mean something to an expression.
    void escaped(std::string& text) {
        const char c = _predicate[_at++];
        switch (c) {
        case 'n':
            text += '\n';
            return;
        case 'r':
            text += '\r';
            return;
        case 't':
            text += '\t';
            return;
        case '\\':
        case '\'':
        case '"':
            text += c;
            return;
        case 'u':
        case 'U':
            text += utf8(std::u32string(1, character()));
            return;
        default:
            text += '\\';
            text += c;
        }
    }

    char32_t character() {
        constexpr std::size_t digits = 4;
        unsigned value = 0;
        const std::string_view hex = _predicate.substr(_at, digits);
        const auto [stop, error] = std::from_chars(hex.data(), hex.data() + hex.size(), value, 16);
        const bool isSurrogate = value >= 0xD800 && value < 0xE000;
        if (hex.size() < digits || error != std::errc() || stop != hex.data() + digits || value == 0 || isSurrogate) {
            refusePredicate(_predicate, _at - 2, "\\u wants the four digits of a character");
        }
        _at += digits;
        return value;
    }

    std::string sign() {
        for (const std::string_view known : signs) {
            if (_predicate.substr(_at).starts_with(known)) {
                _at += known.size();
                if (known == "[") {
                    return options();
                }
                return std::string(known);
            }
        }
        refusePredicate(_predicate, _at,
                        _predicate[_at] == '%' || _predicate[_at] == '@' || _predicate[_at] == '$'
                            ? "placeholders, collections and variables are not known here; write the value itself"
                            : "this sign has no meaning in a predicate");
    }

    /// The letters between brackets behind an operator, lower case and in brackets.
    std::string options() {
        const std::size_t begin = _at - 1;
        std::string letters = "[";
        while (!isAtEnd() && peek() != ']') {
            const char c = static_cast<char>(upper(_predicate[_at++]) | 0x20);
            if ((c != 'c' && c != 'd') || letters.find(c) != std::string::npos) {
                refusePredicate(_predicate, begin, "behind an operator stand [c], [d] or [cd]");
            }
            letters += c;
        }
        if (isAtEnd() || letters.size() == 1) {
            refusePredicate(_predicate, begin, "behind an operator stand [c], [d] or [cd]");
        }
        ++_at;
        return letters;
    }

    std::string_view _predicate;
    std::size_t _at = 0;
};

} // namespace

bool Token::isKeyword(std::string_view capitals) const {
    return kind == Kind::Word && text.size() == capitals.size() &&
           std::equal(text.begin(), text.end(), capitals.begin(), [](char a, char b) { return upper(a) == b; });
}

std::vector<Token> predicateTokens(std::string_view predicate) { return Tokeniser(predicate).all(); }

void refusePredicate(std::string_view predicate, std::size_t byte, const std::string& what) {
    const std::u32string all = characters(predicate);
    std::string shown = utf8(std::u32string_view(all).substr(0, longestShown));
    if (all.size() > longestShown) {
        shown += "…";
    }
    throw Refusal(Error::InvalidSelector, "the predicate `" + shown + "` cannot be read at character " +
                                              std::to_string(characterAt(predicate, byte) + 1) + ": " + what);
}

} // namespace phone::webdriver
