#include "phone/uikit/Device.h"

namespace phone {

UIDevice Device::currentDevice() {
    static constinit objc::Global<UIDevice> device;
    if (!device) {
        device = objc::make<UIDevice>();
    }
    return device;
}

bool Device::respondsToSelector(SEL selector) const {
    if (!settings().device.answersIdiom && objc::same(selector, objc::selector<"userInterfaceIdiom">())) {
        return false;
    }
    return super<"respondsToSelector:", bool>(selector);
}

} // namespace phone
