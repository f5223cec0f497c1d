/// How a person may hold the device, in the words of scripts.
#pragma once

#include <array>
#include <string_view>

namespace phone {

/// Each turned a quarter clockwise from the one before: LANDSCAPE_LEFT has its top pointing left.
inline constexpr std::array<std::string_view, 4> orientationNames = {"PORTRAIT", "LANDSCAPE_RIGHT", "UPSIDE_DOWN",
                                                                     "LANDSCAPE_LEFT"};

} // namespace phone
