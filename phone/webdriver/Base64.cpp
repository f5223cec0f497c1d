#include "phone/webdriver/Base64.h"

#include <cstdint>
#include <nettle/base64.h>

namespace phone::webdriver {

std::string base64(const std::string& bytes) {
    std::string text(BASE64_ENCODE_RAW_LENGTH(bytes.size()), '\0');
    base64_encode_raw(text.data(), bytes.size(), reinterpret_cast<const std::uint8_t*>(bytes.data()));
    return text;
}

std::optional<std::string> fromBase64(const std::string& text) {
    base64_decode_ctx context{};
    base64_decode_init(&context);
    std::string bytes(BASE64_DECODE_LENGTH(text.size()), '\0');
    std::size_t length = bytes.size();
    const bool isEncoding = base64_decode_update(&context, &length, reinterpret_cast<std::uint8_t*>(bytes.data()),
                                                 text.size(), text.data()) != 0 &&
                            base64_decode_final(&context) != 0;
    bytes.resize(length);
    return isEncoding ? std::optional(bytes) : std::nullopt;
}

} // namespace phone::webdriver
