/// Getting a finger to an element.
#pragma once

#include "phone/webdriver/Session.h"

namespace phone::webdriver {

/// Where a finger reaches the element, after scrolling to it where it is out of sight. Throws Refusal, invalid element
/// state, where nothing helps.
Point reach(Session& session, const std::string& reference);

/// One short touch, and what follows from it.
void touchAt(Session& session, const Point& point, double seconds = Engine::tapSeconds);

/// From one point to the other, after being held still.
void drag(Session& session, const Point& from, const Point& to, double seconds, double held = 0);

/// Throws Refusal, invalid coordinates, for a point that is not on the screen.
void checkOnScreen(Session& session, const Point& point);

} // namespace phone::webdriver
