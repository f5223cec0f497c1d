/// The messages to UIView itself that animate: the block kind and the older begin/commit kind.
#pragma once

#include "platform/objc/Class.h"

namespace phone {

class View;

void defineViewAnimations(objc::ClassTable<View>& c);

} // namespace phone
