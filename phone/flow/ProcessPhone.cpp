#include "phone/flow/ProcessPhone.h"

namespace phone {

void ProcessPhone::start(const LaunchSettings& settings, double now) {
    _process =
        std::make_unique<ApplicationProcess>(ApplicationProcess::Start{_executable, _root, settings, now, false, -1});
}

void ProcessPhone::end() {
    _process->stop();
    _process.reset();
}

} // namespace phone
