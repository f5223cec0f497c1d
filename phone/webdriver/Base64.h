/// Bytes as text, the way the protocol carries them.
#pragma once

#include <optional>
#include <string>

namespace phone::webdriver {

std::string base64(const std::string& bytes);
/// nullopt for a text that is no such encoding.
std::optional<std::string> fromBase64(const std::string& text);

} // namespace phone::webdriver
