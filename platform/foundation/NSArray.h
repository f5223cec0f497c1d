/// NSArray and NSMutableArray, as the platform documents them. Every call is safe on nil.
#pragma once

#include "platform/foundation/NSObject.h"

class NSArray : public NSObject {
public:
    static constexpr auto objc_name = "NSArray";
    using NSObject::NSObject;
    /// Of these objects; a nil one is left out.
    template <class... T>
    static NSArray of(const T&... objects);
    /// nil for a file that is missing, is no property list, or holds something else than an array.
    static NSArray withContentsOfFile(const NSObject& path) {
        return objc::make<NSArray, "initWithContentsOfFile:">(path);
    }

    /// Writes an XML property list. False when an element is no property list object or the file cannot be
    /// written; the old file then stays.
    bool writeToFile(const NSObject& path, bool atomically) const {
        return send<"writeToFile:atomically:", bool>(path, atomically);
    }

    objc::UInt count() const { return send<"count", objc::UInt>(); }
    /// Raises NSRangeException past the end; nil when this is nil.
    template <class T = NSObject>
    T at(objc::UInt index) const {
        return send<"objectAtIndex:", T>(index);
    }
    template <class T = NSObject>
    T last() const {
        return send<"lastObject", T>();
    }
    bool contains(const objc::Object& object) const { return send<"containsObject:", bool>(object); }

    /// `for (const auto& object : array)`, as NSObject.
    class Iterator {
    public:
        Iterator(const NSArray& array, objc::UInt at) : _array(array), _at(at) {}
        NSObject operator*() const { return _array.at(_at); }
        Iterator& operator++() {
            ++_at;
            return *this;
        }
        friend bool operator==(const Iterator& a, const Iterator& b) { return a._at == b._at; }

    private:
        const NSArray& _array;
        objc::UInt _at;
    };
    Iterator begin() const { return {*this, 0}; }
    Iterator end() const { return {*this, count()}; }
};

class NSMutableArray : public NSArray {
public:
    static constexpr auto objc_name = "NSMutableArray";
    using NSArray::NSArray;
    /// As `NSArray::withContentsOfFile`.
    static NSMutableArray withContentsOfFile(const NSObject& path) {
        return objc::make<NSMutableArray, "initWithContentsOfFile:">(path);
    }

    /// Raises NSInvalidArgumentException for nil.
    void add(const objc::Object& object) const { send<"addObject:">(object); }
    /// Raises for nil, and for a place past the end.
    void insert(const objc::Object& object, objc::UInt index) const { send<"insertObject:atIndex:">(object, index); }
    void removeAt(objc::UInt index) const { send<"removeObjectAtIndex:">(index); }
    void removeAll() const { send<"removeAllObjects">(); }
};

template <class... T>
NSArray NSArray::of(const T&... objects) {
    auto array = objc::make<NSMutableArray>();
    ((objects ? array.add(objects) : void()), ...);
    return array;
}
