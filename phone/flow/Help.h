/// What `phone help` prints.
#pragma once

namespace phone {

/// The commands of the program, of flows, and how things on the screen are named.
extern const char* const helpText;

} // namespace phone
