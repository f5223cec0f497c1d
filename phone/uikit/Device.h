/// What an application may know of the device it runs on.
#pragma once

#include "phone/device/Settings.h"
#include "phone/foundation/Text.h"
#include "platform/uikit/UIDevice.h"

namespace phone {

/// UIDevice.
class Device : public objc::Implements<Device, UIDevice, NSObject> {
public:
    static void define(objc::ClassTable<Device>& c) {
        c.classMethod<"currentDevice", &Device::currentDevice>()
            .def<"userInterfaceIdiom", &Device::userInterfaceIdiom>()
            .def<"model", &Device::model>()
            .def<"systemVersion", &Device::systemVersion>()
            .overrides<"respondsToSelector:", &Device::respondsToSelector>();
    }

    static UIDevice currentDevice();
    objc::Int userInterfaceIdiom() const { return settings().device.idiom; }
    NSString model() const { return string(std::string(settings().device.model)); }
    NSString systemVersion() const { return string(std::string(settings().system.version)); }
    /// Denies the idiom on a device whose system is too old to know it.
    bool respondsToSelector(SEL selector) const;
};

} // namespace phone
