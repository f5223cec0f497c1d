/// How many objects there are: for finding what is never released.
#pragma once

#include <map>
#include <string>

namespace phone {

/// Starts counting. Objects made before are not known; those that go afterwards count negative.
void countLiveObjects();

/// Of each class, the library's and Foundation's own included, how many objects there are more than when counting
/// started. Classes without a change are left out. Objects of the main thread's making only are counted right while
/// another thread works.
std::map<std::string, int> liveObjects();

} // namespace phone
