#include "phone/foundation/HourPattern.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace phone {

namespace {

/// One letter, repeated; or what stands between two fields, quotes included.
struct Piece {
    std::string text;
    bool isField = false;

    bool isOneOf(std::string_view letters) const {
        return isField && letters.find(text.front()) != std::string_view::npos;
    }
};

constexpr std::string_view anyOf12 = "hK";
constexpr std::string_view anyOf24 = "Hk";
constexpr std::string_view halfOfTheDay = "abB";
constexpr std::string_view timeOfDay = "hHkKmsSA";
constexpr std::string_view spaces[] = {" ", "\u00a0", "\u202f"};

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

std::vector<Piece> pieces(const std::string& pattern) {
    std::vector<Piece> all;
    bool quoted = false;
    for (const char c : pattern) {
        const bool isField = !quoted && isLetter(c);
        const bool goesOn = !all.empty() && all.back().isField == isField && (!isField || all.back().text.front() == c);
        if (!goesOn) {
            all.push_back({"", isField});
        }
        all.back().text += c;
        quoted = quoted != (c == '\'');
    }
    return all;
}

bool have(const std::vector<Piece>& all, std::string_view letters) {
    return std::any_of(all.begin(), all.end(), [&](const Piece& piece) { return piece.isOneOf(letters); });
}

void count(std::vector<Piece>& all, std::string_view letters, char letter) {
    for (Piece& piece : all) {
        if (piece.isOneOf(letters)) {
            piece.text.assign(piece.text.size(), letter);
        }
    }
}

/// Behind the last field that belongs to the first time: a date may follow.
void addHalfOfTheDay(std::vector<Piece>& all) {
    auto last = std::find_if(all.begin(), all.end(), [](const Piece& piece) { return piece.isOneOf(anyOf12); });
    for (auto at = last; at != all.end() && (!at->isField || at->isOneOf(timeOfDay)); ++at) {
        last = at->isField ? at : last;
    }
    all.insert(std::next(last), {{" "}, {"a", true}});
}

bool dropSpace(std::string& text, bool atEnd) {
    for (const std::string_view space : spaces) {
        if (atEnd ? text.ends_with(space) : text.starts_with(space)) {
            text.erase(atEnd ? text.size() - space.size() : 0, space.size());
            return true;
        }
    }
    return false;
}

/// With the space that set it apart.
void dropHalfOfTheDay(std::vector<Piece>& all) {
    for (std::size_t at = 0; at < all.size(); ++at) {
        if (all[at].isOneOf(halfOfTheDay)) {
            all[at].text.clear();
            const bool droppedBefore = at > 0 && !all[at - 1].isField && dropSpace(all[at - 1].text, true);
            if (!droppedBefore && at + 1 < all.size() && !all[at + 1].isField) {
                dropSpace(all[at + 1].text, false);
            }
            all[at].isField = false;
        }
    }
}

} // namespace

std::string withHours(const std::string& pattern, Hours hours) {
    std::vector<Piece> all = pieces(pattern);
    if (hours == Hours::Twelve && have(all, anyOf24)) {
        count(all, anyOf24, 'h');
        if (!have(all, halfOfTheDay)) {
            addHalfOfTheDay(all);
        }
    } else if (hours == Hours::TwentyFour && have(all, anyOf12)) {
        count(all, anyOf12, 'H');
        dropHalfOfTheDay(all);
    }
    std::string written;
    for (const Piece& piece : all) {
        written += piece.text;
    }
    return written;
}

std::string withoutQuotes(const std::string& pattern) {
    std::string rest;
    bool quoted = false;
    for (const char c : pattern) {
        if (c == '\'') {
            quoted = !quoted;
        } else if (!quoted) {
            rest += c;
        }
    }
    return rest;
}

std::string templateWithHours(std::string fields, Hours hours) {
    std::replace(fields.begin(), fields.end(), 'j', hours == Hours::Twelve ? 'h' : 'H');
    return fields;
}

} // namespace phone
