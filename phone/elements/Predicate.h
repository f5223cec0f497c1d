/// A condition that an element meets or does not: `type == "XCUIElementTypeCell" AND label BEGINSWITH[c] "a"`.
#pragma once

#include "phone/elements/Element.h"
#include "phone/elements/TextFolding.h"
#include "phone/flow/TextPattern.h"

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace phone::webdriver {

/// What stands at one side of a comparison: a value, or what an element has under a name.
struct Operand {
    /// Nothing is nil.
    using Value = std::variant<std::monostate, std::string, double, bool>;
    enum class Type { Nil, Text, Number, Truth };

    /// The attribute of the document; nullptr for a value.
    const char* key = nullptr;
    Type type = Type::Nil;
    Value value;

    Value of(const Element& element) const;
};

struct Comparison {
    enum class Operator {
        Equal,
        NotEqual,
        Less,
        LessOrEqual,
        Greater,
        GreaterOrEqual,
        BeginsWith,
        EndsWith,
        Contains,
        Like,
        Matches,
        In,
        Between,
    };

    Operand left;
    Operator how = Operator::Equal;
    Folding folding;
    std::vector<Operand> right;         // several for In, two for Between
    std::optional<TextPattern> pattern; // of Matches

    bool holds(const Element& element) const;
};

class Predicate {
public:
    /// Throws Refusal (invalid selector) with the place and what is wrong there.
    static Predicate parse(std::string_view text);

    /// Throws Refusal when a regular expression takes too long.
    bool matches(const Element& element) const { return holds(_root, element); }

private:
    friend class PredicateParser;

    struct Node {
        enum class Kind { True, False, And, Or, Not, Compare };

        Kind kind = Kind::True;
        std::vector<Node> parts;
        std::vector<Comparison> comparison; // of Compare: one
    };

    static bool holds(const Node& node, const Element& element);

    Node _root;
};

} // namespace phone::webdriver
