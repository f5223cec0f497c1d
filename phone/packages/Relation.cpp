#include "phone/packages/Relation.h"

#include "phone/packages/PackageError.h"

#include <algorithm>
#include <array>
#include <regex>
#include <sstream>
#include <string_view>

namespace phone {

namespace {

struct Sign {
    std::string_view text;
    Relation::Order order;
};

// A single sign is the old way to write what is or-equal.
constexpr std::array<Sign, 7> signs = {{{"<<", Relation::Order::Less},
                                        {"<=", Relation::Order::LessOrEqual},
                                        {"=", Relation::Order::Equal},
                                        {">=", Relation::Order::GreaterOrEqual},
                                        {">>", Relation::Order::Greater},
                                        {"<", Relation::Order::LessOrEqual},
                                        {">", Relation::Order::GreaterOrEqual}}};

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);) {
        parts.push_back(part);
    }
    if (text.ends_with(separator)) {
        parts.emplace_back();
    }
    return parts;
}

Relation parseRelation(const std::string& text) {
    static const std::regex form(R"(\s*([^\s(:]+)(?::any)?\s*(?:\(\s*(<<|<=|=|>=|>>|<|>)\s*([^\s)]+)\s*\))?\s*)");
    std::smatch parts;
    // The expression's depth grows with the text.
    constexpr std::size_t longest = 1000;
    if (text.size() > longest || !std::regex_match(text, parts, form) || !isPackageName(parts[1])) {
        throw PackageError("`" + text.substr(0, longest) + "` names no package");
    }
    Relation relation{parts[1], Relation::Order::Equal, std::nullopt};
    if (parts[2].matched) {
        const std::string sign = parts[2];
        relation.order =
            std::find_if(signs.begin(), signs.end(), [&](const Sign& one) { return one.text == sign; })->order;
        relation.version = PackageVersion::parse(parts[3]);
    }
    return relation;
}

} // namespace

bool Relation::accepts(const PackageVersion& other) const {
    if (!version) {
        return true;
    }
    switch (order) {
    case Order::Less:
        return other < *version;
    case Order::LessOrEqual:
        return other <= *version;
    case Order::Equal:
        return other == *version;
    case Order::GreaterOrEqual:
        return other >= *version;
    case Order::Greater:
        return other > *version;
    }
    return false;
}

std::string Relation::text() const {
    if (!version) {
        return package;
    }
    const auto sign = std::find_if(signs.begin(), signs.end(), [&](const Sign& one) { return one.order == order; });
    return package + " (" + std::string(sign->text) + " " + version->text() + ")";
}

std::vector<Alternatives> parseRelations(const std::string& text) {
    std::vector<Alternatives> all;
    for (const std::string& group : split(text, ',')) {
        Alternatives alternatives;
        for (const std::string& one : split(group, '|')) {
            alternatives.push_back(parseRelation(one));
        }
        if (alternatives.empty()) {
            throw PackageError("`" + text + "` lacks a name between two commas");
        }
        all.push_back(std::move(alternatives));
    }
    return all;
}

bool isPackageName(const std::string& name) {
    const auto isPlain = [](char character) {
        return (character >= 'a' && character <= 'z') || (character >= '0' && character <= '9');
    };
    constexpr std::string_view others = "+-.";
    constexpr std::size_t longest = 200; // its record is a file of that name
    return name.size() > 1 && name.size() <= longest && isPlain(name.front()) &&
           std::all_of(name.begin(), name.end(), [&](char character) {
               return isPlain(character) || others.find(character) != std::string_view::npos;
           });
}

} // namespace phone
