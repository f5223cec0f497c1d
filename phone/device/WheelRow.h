/// What a finger has to know about a picker's wheels.
#pragma once

namespace phone {

/// How far a finger turns a wheel by one row, in points.
constexpr double wheelRowHeight = 34;

} // namespace phone
