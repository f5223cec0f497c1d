/// NSNotification and NSNotificationCenter, as the platform documents them. Every call is safe on nil.
#pragma once

#include "platform/foundation/NSDictionary.h"

class NSNotification : public NSObject {
public:
    static constexpr auto objc_name = "NSNotification";
    using NSObject::NSObject;

    NSString name() const { return send<"name", NSString>(); }
    NSDictionary userInfo() const { return send<"userInfo", NSDictionary>(); }
};

class NSNotificationCenter : public NSObject {
public:
    static constexpr auto objc_name = "NSNotificationCenter";
    using NSObject::NSObject;
    static NSNotificationCenter defaultCenter() {
        return objc::sendClass<NSNotificationCenter, "defaultCenter", NSNotificationCenter>();
    }

    /// The center does not retain the observer. A nil object means any sender.
    void addObserver(const objc::Object& observer, SEL action, const NSString& name, const objc::Object& object) const {
        send<"addObserver:selector:name:object:">(observer, action, name, object);
    }
    void removeObserver(const objc::Object& observer) const { send<"removeObserver:">(observer); }
    void post(const NSString& name, const objc::Object& object, const NSDictionary& userInfo) const {
        send<"postNotificationName:object:userInfo:">(name, object, userInfo);
    }
};
