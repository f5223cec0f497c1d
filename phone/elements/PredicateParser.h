/// The grammar of predicates.
#pragma once

#include "phone/elements/Predicate.h"
#include "phone/elements/PredicateTokens.h"

#include <string_view>
#include <vector>

namespace phone::webdriver {

/// Goes down one token after the other: OR binds least, then AND, then NOT.
class PredicateParser {
public:
    explicit PredicateParser(std::string_view predicate) : _predicate(predicate), _tokens(predicateTokens(predicate)) {}

    /// All of it; throws Refusal (invalid selector).
    Predicate::Node whole();

private:
    using Node = Predicate::Node;
    using Operator = Comparison::Operator;

    static constexpr int deepest = 100; // parentheses

    const Token& token() const { return _tokens[_at]; }
    bool takeSign(std::string_view sign);
    bool takeKeyword(std::string_view capitals);
    void expectSign(std::string_view sign, const std::string& what);

    Node alternatives();
    Node conditions();
    Node negation();
    Node primary();
    Node compared();
    Operator comparisonOperator();
    Folding options();
    Operand operand();
    Operand key();
    std::vector<Operand> list();
    void checkOperands(Comparison& comparison, std::size_t place);
    void checkTypes(const Operand& left, const Operand& right, std::size_t place);
    void checkTexts(const Comparison& comparison, std::size_t place);
    void compilePattern(Comparison& comparison, std::size_t place);
    [[noreturn]] void refuse(const std::string& what) const { refusePredicate(_predicate, token().byte, what); }

    std::string_view _predicate;
    std::vector<Token> _tokens;
    std::size_t _at = 0;
    int _depth = 0;
};

} // namespace phone::webdriver
