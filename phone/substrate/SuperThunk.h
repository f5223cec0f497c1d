/// Code made at run time that stands for a superclass's method.
#pragma once

#include "platform/objc/Runtime.h"

namespace phone {

/// An implementation that passes every call on, unchanged, to what the superclass of `cls` answers for
/// `selector` at that moment, whatever the arguments and the result are. It is never freed: the hook that
/// asked for it keeps it for the life of the process.
IMP superThunk(Class cls, SEL selector);

} // namespace phone
