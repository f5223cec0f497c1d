/// Between the platform's arrays and the standard library's rows of objects.
#pragma once

#include "platform/foundation/NSArray.h"

#include <vector>

namespace phone {

/// A new one, of these objects in their order.
template <class T>
NSArray arrayOf(const std::vector<T>& objects) {
    const auto all = objc::make<NSMutableArray>();
    for (const T& object : objects) {
        all.add(object);
    }
    return all;
}

/// The elements, taken for objects of this class.
template <class T>
std::vector<T> vectorOf(const NSArray& array) {
    std::vector<T> all;
    for (const NSObject& object : array) {
        all.push_back(objc::as<T>(object));
    }
    return all;
}

} // namespace phone
