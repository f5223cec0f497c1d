/// NSDictionary and NSMutableDictionary, as the platform documents them. Every call is safe on nil.
#pragma once

#include "platform/foundation/NSArray.h"
#include "platform/foundation/NSString.h"

class NSDictionary : public NSObject {
public:
    static constexpr auto objc_name = "NSDictionary";
    using NSObject::NSObject;
    /// nil for a file that is missing, is no property list, or holds something else than a dictionary.
    static NSDictionary withContentsOfFile(const NSString& path) {
        return objc::make<NSDictionary, "initWithContentsOfFile:">(path);
    }

    objc::UInt count() const { return send<"count", objc::UInt>(); }
    NSArray allKeys() const { return send<"allKeys", NSArray>(); }
    template <class T = NSObject>
    T at(const objc::Object& key) const {
        return send<"objectForKey:", T>(key);
    }

    /// Writes an XML property list. False when a value is no property list object or the file cannot be
    /// written; the old file then stays.
    bool writeToFile(const NSString& path, bool atomically) const {
        return send<"writeToFile:atomically:", bool>(path, atomically);
    }
};

class NSMutableDictionary : public NSDictionary {
public:
    static constexpr auto objc_name = "NSMutableDictionary";
    using NSDictionary::NSDictionary;

    /// Raises NSInvalidArgumentException for a nil object or key.
    void set(const objc::Object& object, const objc::Object& key) const { send<"setObject:forKey:">(object, key); }
    void remove(const objc::Object& key) const { send<"removeObjectForKey:">(key); }
};
