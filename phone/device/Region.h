/// Where a person lives and how clocks show the hours there.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace phone {

/// How many hours a clock shows.
enum class Hours { Twelve, TwentyFour };

/// "12" or "24"; nullopt for another word.
std::optional<Hours> hoursNamed(std::string_view name);
/// Both words, for whoever has written another: "12, 24".
std::string hoursNames();

/// Whether there is a region of this code: "DE".
bool isRegion(const std::string& code);

/// The tag's own region ("AT" of "de-AT"), or the one where most people of the language live ("DE" of "de"). "" for a
/// language that nobody knows.
std::string regionOf(const std::string& languageTag);

/// What the platform calls a person of this language in this region: "de_AT". An empty region is the language's own.
std::string localeIdentifier(const std::string& languageTag, const std::string& region);

} // namespace phone
