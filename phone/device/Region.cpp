#include "phone/device/Region.h"

#include <array>
#include <unicode/uloc.h>
#include <unicode/uregion.h>

namespace phone {

namespace {

constexpr std::string_view twelve = "12";
constexpr std::string_view twentyFour = "24";

/// One part of the name of a locale, or a name made from another.
template <class Ask>
std::string answer(const Ask& ask, const std::string& locale) {
    std::array<char, ULOC_FULLNAME_CAPACITY> text{};
    UErrorCode error = U_ZERO_ERROR;
    ask(locale.c_str(), text.data(), static_cast<int32_t>(text.size() - 1), &error);
    return U_SUCCESS(error) ? text.data() : "";
}

} // namespace

std::optional<Hours> hoursNamed(std::string_view name) {
    return name == twelve       ? std::optional(Hours::Twelve)
           : name == twentyFour ? std::optional(Hours::TwentyFour)
                                : std::nullopt;
}

std::string hoursNames() { return std::string(twelve) + ", " + std::string(twentyFour); }

bool isRegion(const std::string& code) {
    UErrorCode error = U_ZERO_ERROR;
    const URegion* region = uregion_getRegionFromCode(code.c_str(), &error);
    return U_SUCCESS(error) && uregion_getType(region) == URGN_TERRITORY && code == uregion_getRegionCode(region);
}

std::string regionOf(const std::string& languageTag) {
    return answer(uloc_getCountry, answer(uloc_addLikelySubtags, answer(uloc_getName, languageTag)));
}

std::string localeIdentifier(const std::string& languageTag, const std::string& region) {
    std::string identifier = answer(uloc_getLanguage, languageTag);
    for (const std::string& part :
         {answer(uloc_getScript, languageTag), region.empty() ? regionOf(languageTag) : region}) {
        identifier += part.empty() ? "" : "_" + part;
    }
    return identifier;
}

} // namespace phone
