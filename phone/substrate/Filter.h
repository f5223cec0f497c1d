/// Which processes a library wants to be loaded into.
#pragma once

#include "platform/foundation/NSDictionary.h"

namespace phone {

/// Whether a library whose property list this is belongs into this process. Its `Filter` holds lists:
/// `Bundles` (identifiers of what is loaded: the application and the frameworks under it), `Executables`,
/// `Classes`, `CoreFoundationVersion` (from, and below). Within a list one match suffices. Every list present
/// must match, or with `Mode` "Any" one of them. Without a filter, or with an empty one, the library matches
/// everywhere.
bool filterMatches(const NSDictionary& propertyList);

} // namespace phone
