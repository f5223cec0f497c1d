#include "phone/packages/PackageVersion.h"

#include "phone/packages/PackageError.h"

#include <algorithm>
#include <cctype>
#include <climits>
#include <string_view>

namespace phone {

namespace {

bool isDigit(char character) { return character >= '0' && character <= '9'; }
bool isLetter(char character) { return std::isalpha(static_cast<unsigned char>(character)) != 0; }

bool consistsOf(std::string_view text, std::string_view others) {
    return std::all_of(text.begin(), text.end(), [&](char character) {
        return isDigit(character) || isLetter(character) || others.find(character) != std::string_view::npos;
    });
}

/// A tilde comes before the end, letters before all other characters.
int weight(std::string_view text, std::size_t index) {
    const char character = index < text.size() ? text[index] : '\0';
    if (character == '\0' || isDigit(character)) {
        return 0;
    }
    if (character == '~') {
        return -1;
    }
    return isLetter(character) ? character : character + UCHAR_MAX;
}

std::string_view takeDigits(std::string_view text, std::size_t& index) {
    while (index < text.size() && text[index] == '0') {
        ++index;
    }
    const std::size_t first = index;
    while (index < text.size() && isDigit(text[index])) {
        ++index;
    }
    return text.substr(first, index - first);
}

/// Stretches without digits and numbers, in turn.
std::weak_ordering compareParts(std::string_view one, std::string_view other) {
    std::size_t here = 0;
    std::size_t there = 0;
    while (here < one.size() || there < other.size()) {
        while ((here < one.size() && !isDigit(one[here])) || (there < other.size() && !isDigit(other[there]))) {
            if (const auto order = weight(one, here) <=> weight(other, there); order != 0) {
                return order;
            }
            ++here;
            ++there;
        }
        const std::string_view number = takeDigits(one, here);
        const std::string_view otherNumber = takeDigits(other, there);
        if (const auto order = number.size() <=> otherNumber.size(); order != 0) {
            return order;
        }
        if (const auto order = number.compare(otherNumber) <=> 0; order != 0) {
            return order;
        }
    }
    return std::weak_ordering::equivalent;
}

} // namespace

PackageVersion PackageVersion::parse(const std::string& text) {
    PackageVersion version;
    version._text = text;
    std::string rest = text;
    if (const auto colon = rest.find(':'); colon != std::string::npos) {
        constexpr std::size_t mostDigits = 9;
        if (colon == 0 || colon > mostDigits || !std::all_of(rest.begin(), rest.begin() + colon, isDigit)) {
            throw PackageError("`" + text + "` is no version: what stands before the colon is no number");
        }
        version._epoch = std::stoul(rest.substr(0, colon));
        rest.erase(0, colon + 1);
    }
    if (const auto dash = rest.rfind('-'); dash != std::string::npos) {
        version._revision = rest.substr(dash + 1);
        rest.erase(dash);
        if (version._revision.empty()) {
            throw PackageError("`" + text + "` is no version: nothing follows the dash");
        }
    }
    version._upstream = rest;
    if (rest.empty() || !isDigit(rest.front())) {
        throw PackageError("`" + text + "` is no version: it has to begin with a digit");
    }
    if (!consistsOf(version._upstream, ".+-~:") || !consistsOf(version._revision, ".+~")) {
        throw PackageError("`" + text + "` is no version: it holds a character that none may have");
    }
    return version;
}

std::weak_ordering operator<=>(const PackageVersion& one, const PackageVersion& other) {
    if (const auto order = one._epoch <=> other._epoch; order != 0) {
        return order;
    }
    if (const auto order = compareParts(one._upstream, other._upstream); order != 0) {
        return order;
    }
    return compareParts(one._revision, other._revision);
}

} // namespace phone
