/// The style sheets' selectors that web testers' programs send for a name, an identifier or a class.
#pragma once

#include <string>
#include <string_view>

namespace phone::webdriver {

/// What such a selector asks for.
struct CssSelector {
    enum class Kind { Name, Type };

    Kind kind = Kind::Name;
    std::string value;

    /// Takes `*[id="x"]`, `*[name="x"]`, both without the star as well, `#x` and `.X`; throws Refusal (invalid
    /// selector) for anything else.
    static CssSelector parse(std::string_view text);
};

} // namespace phone::webdriver
