#include "phone/elements/XPathCost.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <vector>

namespace phone::webdriver {

namespace {

constexpr double attributesOfAnElement = 24;

/// Steps that lead to many nodes.
constexpr std::array<std::string_view, 4> wideSteps = {"//", "descendant", "following", "preceding"};
constexpr std::array<std::string_view, 2> attributeSteps = {"@*", "attribute::"};

/// What a path gives, and whether two paths are held against each other.
struct Level {
    double width = 1;
    bool isCompared = false;
};

template <std::size_t Size>
std::size_t lengthOfOne(const std::array<std::string_view, Size>& known, std::string_view rest) {
    const auto found =
        std::find_if(known.begin(), known.end(), [&](std::string_view step) { return rest.starts_with(step); });
    return found == known.end() ? 0 : found->size();
}

} // namespace

double xpathCost(std::string_view expression, std::size_t elements) {
    const auto many = static_cast<double>(elements);
    std::vector<Level> levels(1);
    double cost = many;
    for (std::size_t at = 0; at < expression.size();) {
        const std::string_view rest = expression.substr(at);
        Level& level = levels.back();
        if (rest[0] == '"' || rest[0] == '\'') {
            at = std::min(expression.find(rest[0], at + 1), expression.size() - 1);
        } else if (rest[0] == '[' || rest[0] == '(') {
            levels.emplace_back();
        } else if ((rest[0] == ']' || rest[0] == ')') && levels.size() > 1) {
            const Level inner = levels.back();
            levels.pop_back();
            if (rest[0] == ')') { // the path goes on from what it gave
                levels.back().width = std::max(levels.back().width, inner.width);
            }
        } else if (rest[0] == '=' || rest[0] == '<' || rest[0] == '>') {
            level.isCompared = true;
        } else if (const std::size_t length = lengthOfOne(wideSteps, rest); length > 0) {
            level.width = level.isCompared ? level.width * many : std::max(level.width * 2, many);
            at += length - 1;
        } else if (lengthOfOne(attributeSteps, rest) > 0) {
            level.width *= attributesOfAnElement;
        }
        ++at;
        cost += std::accumulate(levels.begin(), levels.end(), 1.0,
                                [](double product, const Level& one) { return product * one.width; });
    }
    return cost;
}

} // namespace phone::webdriver
