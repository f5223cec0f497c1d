/// How far the phone's calendar goes.
#pragma once

namespace phone {

/// Neither the calendar store nor a date picker's wheel goes further: later dates are invalid to what reads the
/// store's files.
inline constexpr int lastYear = 3000;

} // namespace phone
