#include "phone/uikit/Language.h"

#include <algorithm>

namespace phone {

namespace {
constexpr std::array<std::string_view, languageCount> tags = {"en", "de", "fr", "es", "it",
                                                              "nl", "pt", "ru", "ja", "zh"};
} // namespace

Language languageOf(std::string_view tag) {
    const auto* const found = std::find(tags.begin(), tags.end(), tag.substr(0, tag.find_first_of("-_")));
    return found == tags.end() ? Language::English : static_cast<Language>(found - tags.begin());
}

const char* translated(const Translations& texts, std::string_view tag) {
    return texts.texts[static_cast<std::size_t>(languageOf(tag))];
}

} // namespace phone
