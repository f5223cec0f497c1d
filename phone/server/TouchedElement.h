/// How a flow names what a finger has touched.
#pragma once

#include "phone/flow/ScreenTree.h"

#include <optional>
#include <string>

namespace phone {

/// What stands behind `tapOn:` for a touch at this point of the screen: the text by which the same thing is found
/// again, or the point where no text is as good. The tree has to be that for the point (Screen::treeAt).
std::string nameOfTouched(const ScreenTree& tree, const ScreenPoint& point);

/// The date, without its zone, of the picker whose wheels lie at the point; nullopt where there is none.
std::optional<std::string> dateOfPicker(const ScreenTree& tree, const ScreenPoint& point);

} // namespace phone
