#include "phone/elements/Predicate.h"

#include "phone/elements/Refusal.h"

#include <algorithm>
#include <charconv>
#include <compare>

namespace phone::webdriver {

namespace {

using Value = Operand::Value;
using Operator = Comparison::Operator;

bool isNil(const Value& value) { return std::holds_alternative<std::monostate>(value); }

/// A truth counts as 1 or 0, a text as the number that it is.
std::optional<double> numberIn(const Value& value) {
    if (const auto* number = std::get_if<double>(&value)) {
        return *number;
    }
    if (const auto* truth = std::get_if<bool>(&value)) {
        return *truth ? 1 : 0;
    }
    if (const auto* text = std::get_if<std::string>(&value); text != nullptr && !text->empty()) {
        double number = 0;
        const char* end = text->data() + text->size();
        const auto [stop, error] = std::from_chars(text->data(), end, number);
        return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
    }
    return std::nullopt;
}

std::partial_ordering ordered(const Value& a, const Value& b, Folding folding) {
    if (isNil(a) || isNil(b)) {
        return isNil(a) && isNil(b) ? std::partial_ordering::equivalent : std::partial_ordering::unordered;
    }
    const auto* left = std::get_if<std::string>(&a);
    const auto* right = std::get_if<std::string>(&b);
    if (left != nullptr && right != nullptr) {
        return folded(*left, folding) <=> folded(*right, folding);
    }
    const auto leftNumber = numberIn(a);
    const auto rightNumber = numberIn(b);
    return leftNumber && rightNumber ? *leftNumber <=> *rightNumber : std::partial_ordering::unordered;
}

bool isEqual(const Value& a, const Value& b, Folding folding) { return std::is_eq(ordered(a, b, folding)); }

bool textHolds(const std::string& left, const std::string& right, Operator how, Folding folding) {
    const std::u32string text = folded(left, folding);
    const std::u32string part = folded(right, folding);
    switch (how) {
    case Operator::BeginsWith:
        return text.starts_with(part);
    case Operator::EndsWith:
        return text.ends_with(part);
    case Operator::Like:
        return isLike(text, part);
    default:
        return text.find(part) != std::u32string::npos;
    }
}

bool patternHolds(const TextPattern& pattern, const std::string& text, Folding folding) {
    try {
        return pattern.matches(folding.accents ? utf8(folded(text, {false, true})) : text);
    } catch (const PatternError& error) {
        throw Refusal(Error::InvalidSelector,
                      "the regular expression \"" + pattern.expression() + "\" is too much work: " + error.what());
    }
}

} // namespace

Value Operand::of(const Element& element) const {
    if (key == nullptr) {
        return value;
    }
    const pugi::xml_attribute attribute = element.node().attribute(key);
    if (!attribute) {
        return {};
    }
    switch (type) {
    case Type::Number:
        return attribute.as_double();
    case Type::Truth:
        return attribute.as_bool();
    default:
        return std::string(attribute.value());
    }
}

bool Comparison::holds(const Element& element) const {
    const Value a = left.of(element);
    if (how == Operator::Between) {
        return std::is_gteq(ordered(a, right[0].of(element), folding)) &&
               std::is_lteq(ordered(a, right[1].of(element), folding));
    }
    if (how == Operator::In) {
        return std::any_of(right.begin(), right.end(),
                           [&](const Operand& one) { return isEqual(a, one.of(element), folding); });
    }
    const auto* text = std::get_if<std::string>(&a);
    if (pattern) {
        return text != nullptr && patternHolds(*pattern, *text, folding);
    }
    const Value b = right[0].of(element);
    switch (how) {
    case Operator::Equal:
        return isEqual(a, b, folding);
    case Operator::NotEqual:
        return !isEqual(a, b, folding);
    case Operator::Less:
        return std::is_lt(ordered(a, b, folding));
    case Operator::LessOrEqual:
        return std::is_lteq(ordered(a, b, folding));
    case Operator::Greater:
        return std::is_gt(ordered(a, b, folding));
    case Operator::GreaterOrEqual:
        return std::is_gteq(ordered(a, b, folding));
    default:
        const auto* part = std::get_if<std::string>(&b);
        return text != nullptr && part != nullptr && textHolds(*text, *part, how, folding);
    }
}

bool Predicate::holds(const Node& node, const Element& element) {
    const auto part = [&](const Node& inner) { return holds(inner, element); };
    switch (node.kind) {
    case Node::Kind::True:
        return true;
    case Node::Kind::False:
        return false;
    case Node::Kind::And:
        return std::all_of(node.parts.begin(), node.parts.end(), part);
    case Node::Kind::Or:
        return std::any_of(node.parts.begin(), node.parts.end(), part);
    case Node::Kind::Not:
        return !part(node.parts[0]);
    case Node::Kind::Compare:
        break;
    }
    return node.comparison[0].holds(element);
}

} // namespace phone::webdriver
