/// What playing a flow takes of a phone.
#pragma once

#include "phone/device/Screen.h"
#include "phone/flow/PhoneOptions.h"

#include <string>
#include <vector>

namespace phone {

/// A phone application that can be started and ended. Whatever talks to it throws ApplicationDied when it dies.
class FlowPhone {
public:
    virtual ~FlowPhone() = default;

    /// The running application; nullptr when none runs.
    virtual Screen* screen() = 0;
    /// Starts it with the wall clock standing at this moment. Only while none runs.
    virtual void start(const LaunchSettings& settings, double now) = 0;
    /// Ends it.
    virtual void end() = 0;
    /// It has died: none runs any more.
    virtual void forget() = 0;
    /// What the loader said while it came up.
    virtual std::vector<std::string> loaderLines() = 0;
};

} // namespace phone
