#include "phone/elements/PredicateParser.h"

#include "phone/elements/Attributes.h"

#include <array>
#include <utility>

namespace phone::webdriver {

namespace {

using Operator = Comparison::Operator;
using OperatorName = std::pair<std::string_view, Operator>;

constexpr std::array<OperatorName, 10> operatorSigns = {{
    {"==", Operator::Equal},
    {"=", Operator::Equal},
    {"!=", Operator::NotEqual},
    {"<>", Operator::NotEqual},
    {"<", Operator::Less},
    {">", Operator::Greater},
    {"<=", Operator::LessOrEqual},
    {"=<", Operator::LessOrEqual},
    {">=", Operator::GreaterOrEqual},
    {"=>", Operator::GreaterOrEqual},
}};
constexpr std::array<OperatorName, 7> operatorWords = {{
    {"BEGINSWITH", Operator::BeginsWith},
    {"ENDSWITH", Operator::EndsWith},
    {"CONTAINS", Operator::Contains},
    {"LIKE", Operator::Like},
    {"MATCHES", Operator::Matches},
    {"IN", Operator::In},
    {"BETWEEN", Operator::Between},
}};
constexpr std::array<std::string_view, 8> unknownWords = {"ANY",  "SOME", "ALL",      "NONE",
                                                          "SELF", "CAST", "SUBQUERY", "FUNCTION"};

bool isOfText(Operator how) {
    return how == Operator::BeginsWith || how == Operator::EndsWith || how == Operator::Contains ||
           how == Operator::Like || how == Operator::Matches;
}

/// Parts of the rectangle, behind `rect.`.
constexpr std::array<std::pair<std::string_view, const char*>, 8> rectParts = {{
    {"x", "x"},
    {"y", "y"},
    {"width", "width"},
    {"height", "height"},
    {"origin.x", "x"},
    {"origin.y", "y"},
    {"size.width", "width"},
    {"size.height", "height"},
}};

const char* rectPart(std::string_view path) {
    for (const auto& [name, stored] : rectParts) {
        if (name == path) {
            return stored;
        }
    }
    return nullptr;
}

Operand::Type operandType(Attribute::Type type) {
    return type == Attribute::Type::Truth    ? Operand::Type::Truth
           : type == Attribute::Type::Number ? Operand::Type::Number
                                             : Operand::Type::Text;
}

} // namespace

Predicate Predicate::parse(std::string_view text) {
    Predicate predicate;
    predicate._root = PredicateParser(text).whole();
    return predicate;
}

bool PredicateParser::takeSign(std::string_view sign) {
    const bool found = token().isSign(sign);
    _at += found ? 1 : 0;
    return found;
}

bool PredicateParser::takeKeyword(std::string_view capitals) {
    const bool found = token().isKeyword(capitals);
    _at += found ? 1 : 0;
    return found;
}

void PredicateParser::expectSign(std::string_view sign, const std::string& what) {
    if (!takeSign(sign)) {
        refuse(what);
    }
}

Predicate::Node PredicateParser::whole() {
    if (token().kind == Token::Kind::End) {
        refuse("it is empty");
    }
    Node node = alternatives();
    if (token().kind != Token::Kind::End) {
        refuse("the condition is complete before this; join conditions with AND or OR");
    }
    return node;
}

Predicate::Node PredicateParser::alternatives() {
    Node first = conditions();
    if (!token().isKeyword("OR") && !token().isSign("||")) {
        return first;
    }
    Node all{Node::Kind::Or, {}, {}};
    all.parts.push_back(std::move(first));
    while (takeKeyword("OR") || takeSign("||")) {
        all.parts.push_back(conditions());
    }
    return all;
}

Predicate::Node PredicateParser::conditions() {
    Node first = negation();
    if (!token().isKeyword("AND") && !token().isSign("&&")) {
        return first;
    }
    Node all{Node::Kind::And, {}, {}};
    all.parts.push_back(std::move(first));
    while (takeKeyword("AND") || takeSign("&&")) {
        all.parts.push_back(negation());
    }
    return all;
}

Predicate::Node PredicateParser::negation() {
    bool negated = false;
    while (takeKeyword("NOT") || takeSign("!")) {
        negated = !negated;
    }
    Node node = primary();
    if (!negated) {
        return node;
    }
    Node opposite{Node::Kind::Not, {}, {}};
    opposite.parts.push_back(std::move(node));
    return opposite;
}

Predicate::Node PredicateParser::primary() {
    if (takeKeyword("TRUEPREDICATE")) {
        return {Node::Kind::True, {}, {}};
    }
    if (takeKeyword("FALSEPREDICATE")) {
        return {Node::Kind::False, {}, {}};
    }
    if (!token().isSign("(")) {
        return compared();
    }
    if (++_depth > deepest) {
        refuse("more than " + std::to_string(deepest) + " parentheses are open");
    }
    ++_at;
    Node node = alternatives();
    expectSign(")", "a closing parenthesis is missing");
    --_depth;
    return node;
}

Predicate::Node PredicateParser::compared() {
    Comparison comparison;
    comparison.left = operand();
    const std::size_t place = token().byte;
    comparison.how = comparisonOperator();
    comparison.folding = options();
    const bool takesList = comparison.how == Operator::In || comparison.how == Operator::Between;
    if (takesList && token().isSign("{")) {
        comparison.right = list();
    } else {
        comparison.right.push_back(operand());
    }
    checkOperands(comparison, place);
    Node node{Node::Kind::Compare, {}, {}};
    node.comparison.push_back(std::move(comparison));
    return node;
}

Comparison::Operator PredicateParser::comparisonOperator() {
    for (const auto& [sign, how] : operatorSigns) {
        if (takeSign(sign)) {
            return how;
        }
    }
    for (const auto& [word, how] : operatorWords) {
        if (takeKeyword(word)) {
            return how;
        }
    }
    refuse(
        "an operator is missing: ==, !=, <, >, <=, >=, BEGINSWITH, ENDSWITH, CONTAINS, LIKE, MATCHES, IN or BETWEEN");
}

Folding PredicateParser::options() {
    Folding folding;
    if (token().kind == Token::Kind::Sign && token().text.starts_with("[")) {
        folding.letterCase = token().text.find('c') != std::string::npos;
        folding.accents = token().text.find('d') != std::string::npos;
        ++_at;
    }
    return folding;
}

Operand PredicateParser::operand() {
    const Token& now = token();
    Operand made;
    if (now.kind == Token::Kind::Text) {
        made.type = Operand::Type::Text;
        made.value = now.text;
    } else if (now.kind == Token::Kind::Number) {
        made.type = Operand::Type::Number;
        made.value = now.number;
    } else if (now.isKeyword("TRUE") || now.isKeyword("YES") || now.isKeyword("FALSE") || now.isKeyword("NO")) {
        made.type = Operand::Type::Truth;
        made.value = now.isKeyword("TRUE") || now.isKeyword("YES");
    } else if (now.kind == Token::Kind::Word && !now.isKeyword("NIL") && !now.isKeyword("NULL")) {
        made = key();
    } else if (now.kind != Token::Kind::Word) {
        refuse("a name or a value is missing");
    }
    ++_at;
    return made;
}

Operand PredicateParser::key() {
    const std::string& word = token().text;
    for (const std::string_view unknown : unknownWords) {
        if (token().isKeyword(unknown)) {
            refuse("`" + word + "` is not known here");
        }
    }
    const std::size_t dot = word.find('.');
    const Attribute* attribute = findAttribute(word.substr(0, dot));
    if (attribute == nullptr) {
        refuse("there is no attribute `" + word + "`; there are " + attributeNames() +
               ". A text stands between quotes");
    }
    Operand made;
    if (attribute->type == Attribute::Type::Rect) {
        made.key = dot == std::string::npos ? nullptr : rectPart(std::string_view(word).substr(dot + 1));
        made.type = Operand::Type::Number;
        if (made.key == nullptr) {
            refuse("of a rectangle only its x, y, width and height can be compared: `rect.x`");
        }
        return made;
    }
    if (dot != std::string::npos) {
        refuse("`" + std::string(attribute->name) + "` has no parts");
    }
    made.key = attribute->stored;
    made.type = operandType(attribute->type);
    return made;
}

std::vector<Operand> PredicateParser::list() {
    expectSign("{", "a list is missing");
    std::vector<Operand> all;
    if (takeSign("}")) {
        return all;
    }
    do {
        all.push_back(operand());
    } while (takeSign(","));
    expectSign("}", "the values of a list are separated by commas, and it ends with }");
    return all;
}

/// What can never hold is a mistake, and is better told than found nowhere.
void PredicateParser::checkOperands(Comparison& comparison, std::size_t place) {
    const bool isList = comparison.right.size() != 1 || _tokens[_at - 1].isSign("}");
    if (comparison.how == Operator::Between && comparison.right.size() != 2) {
        refusePredicate(_predicate, place, "BETWEEN wants two values: {1, 5}");
    }
    if (comparison.how == Operator::In && !isList) {
        std::swap(comparison.left, comparison.right[0]); // a text in another
        comparison.how = Operator::Contains;
    }
    if (isOfText(comparison.how)) {
        checkTexts(comparison, place);
    }
    for (const Operand& right : comparison.right) {
        checkTypes(comparison.left, right, place);
        checkTypes(right, comparison.left, place);
    }
    if (comparison.how == Operator::Matches) {
        compilePattern(comparison, place);
    }
}

void PredicateParser::checkTypes(const Operand& left, const Operand& right, std::size_t place) {
    if (left.key != nullptr && left.type != Operand::Type::Text && right.type == Operand::Type::Text) {
        refusePredicate(_predicate, place,
                        left.type == Operand::Type::Truth
                            ? "`" + std::string(left.key) +
                                  "` is true or false and no text: write true or 1 without quotes"
                            : "`" + std::string(left.key) + "` is a number and no text: write it without quotes");
    }
}

void PredicateParser::checkTexts(const Comparison& comparison, std::size_t place) {
    if (comparison.left.type != Operand::Type::Text || comparison.right[0].type != Operand::Type::Text) {
        refusePredicate(_predicate, place, "this operator compares texts, and not both sides are texts");
    }
}

void PredicateParser::compilePattern(Comparison& comparison, std::size_t place) {
    const auto* expression = std::get_if<std::string>(&comparison.right[0].value);
    if (expression == nullptr) {
        refusePredicate(_predicate, place, "behind MATCHES stands a regular expression between quotes");
    }
    const Folding folding = comparison.folding;
    try {
        comparison.pattern.emplace(folding.accents ? utf8(folded(*expression, {false, true})) : *expression,
                                   TextPattern::Options{folding.letterCase, true});
    } catch (const PatternError& error) {
        refusePredicate(_predicate, place, "\"" + *expression + "\" is no regular expression: " + error.what());
    }
}

} // namespace phone::webdriver
