/// Property lists as XML text, as the platform writes them.
#pragma once

#include "platform/foundation/NSObject.h"

#include <string>

namespace phone {

/// The whole document, in UTF-8, the keys of dictionaries in order. For what `isPropertyList` accepts; anything
/// else in it is left out.
std::string xmlPropertyList(const NSObject& object);

} // namespace phone
