/// The languages that the phone's own words come in.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace phone {

enum class Language { English, German, French, Spanish, Italian, Dutch, Portuguese, Russian, Japanese, Chinese };
inline constexpr std::size_t languageCount = 10;

/// One text in each language, in the order of the enumeration (UTF-8).
struct Translations {
    template <class... Text>
        requires(sizeof...(Text) == languageCount) // none may be forgotten
    constexpr Translations(Text... each) : texts{each...} {}

    std::array<const char*, languageCount> texts;
};

/// The language of a tag ("de-AT", "zh-Hans"); English for one that the phone does not speak.
Language languageOf(std::string_view tag);

/// The text for a language tag.
const char* translated(const Translations& texts, std::string_view tag);

} // namespace phone
