/// Texts as they have to be written in a flow's file.
#pragma once

#include <string>

namespace phone {

/// In quotes, so that reading the file gives the text again.
std::string flowQuoted(const std::string& text);
/// A regular expression that matches this text alone.
std::string patternOf(const std::string& text);
/// In the fewest digits, a hundredth being fine enough.
std::string flowNumber(double number);

} // namespace phone
