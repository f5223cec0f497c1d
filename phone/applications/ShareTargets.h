/// What the share sheet can reach on this phone: the system's own activities for text.
#pragma once

namespace phone {

/// Registers their classes and has every sheet offer them: AirDrop, Message, Mail, Twitter, Facebook and
/// Weibo in the upper row, Copy in the lower one.
void registerShareTargets();

} // namespace phone
