/// What the page says about the phone.
#pragma once

#include "phone/server/PageDesk.h"

#include <nlohmann/json.hpp>

namespace phone {

/// The moment: `life` (running, ended, died), `epitaph`, `launch`, `settings`, `screen` (its size in points, held
/// upright), `clockStands`, `localTime` (of a clock that stands), `loader` (lines), `recording` and `play`; of an
/// application that runs also `moving` (whether anything does by itself), `orientation`, `call`, `keyboard`, `logged`.
nlohmann::json pageState(PageDesk& desk);

/// What lies in the phone's files: `switches`, `permissions` and `languages`.
nlohmann::json pageSettings(const PageDesk& desk);

/// What a screen reader meets, in reading order: a list of `identity`, `type`, `label`, `value`, `enabled`, `selected`,
/// `rect`, and the point where a touch reaches it.
nlohmann::json pageElements(LivePhone& phone);

} // namespace phone
