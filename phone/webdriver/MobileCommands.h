/// The commands that clients send as scripts: `mobile: tap` and the like.
#pragma once

#include "phone/webdriver/Commands.h"

namespace phone::webdriver {

/// Does the command of this name, the word after `mobile:`; its arguments are the call's body. Throws Refusal, unknown
/// command, for a name that is none.
json perform(const std::string& name, Session& session, const Call& call);

} // namespace phone::webdriver
