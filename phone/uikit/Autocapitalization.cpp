#include "phone/uikit/Autocapitalization.h"

#include <string_view>

namespace phone {

namespace {

constexpr std::string_view spaces = " \t\n";
constexpr std::string_view sentenceEnds = ".!?";

bool startsSentence(const std::string& before) {
    const auto last = before.find_last_not_of(spaces);
    if (last == std::string::npos) {
        return true; // nothing but spaces so far
    }
    const std::string_view gap = std::string_view(before).substr(last + 1);
    return gap.find('\n') != std::string_view::npos ||
           (!gap.empty() && sentenceEnds.find(before[last]) != std::string_view::npos);
}

} // namespace

bool capitalIsNext(UITextAutocapitalizationType kind, const std::string& before) {
    switch (kind) {
    case UITextAutocapitalizationType::None:
        return false;
    case UITextAutocapitalizationType::Words:
        return before.empty() || spaces.find(before.back()) != std::string_view::npos;
    case UITextAutocapitalizationType::Sentences:
        return startsSentence(before);
    case UITextAutocapitalizationType::AllCharacters:
        return true;
    }
    return false;
}

} // namespace phone
