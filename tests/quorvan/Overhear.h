/// Messages between the library and the platform, written down as they come and let through.
#pragma once

#include "phone/foundation/Correct.h"
#include "platform/foundation/NSString.h"

#include <string>
#include <vector>

/// What was heard so far, in order: "CLASS SELECTOR ARGUMENT…". A text is written as it stands, of another object the
/// class, of a pointer whether it is "nil" or "set"; rectangles and seconds are left out.
inline std::vector<std::string>& heard() {
    static std::vector<std::string> lines;
    return lines;
}

/// What was heard, of these messages alone.
inline std::vector<std::string> heardOf(const std::vector<std::string>& beginnings) {
    std::vector<std::string> found;
    for (const std::string& line : heard()) {
        for (const std::string& beginning : beginnings) {
            if (line.starts_with(beginning)) {
                found.push_back(line);
                break;
            }
        }
    }
    return found;
}

namespace overhearing {

inline std::string text(id object) {
    if (object == nullptr) {
        return " nil";
    }
    const auto handle = objc::borrow<NSString>(object);
    return " " +
           std::string(objc::isKind<NSString>(handle) ? handle.UTF8String() : class_getName(object_getClass(object)));
}

template <class T>
std::string text(const T& value) {
    if constexpr (std::integral<T>) {
        return " " + std::to_string(value);
    } else if constexpr (std::is_pointer_v<T>) {
        return value == nullptr ? " nil" : " set";
    } else {
        return "";
    }
}

template <objc::FixedString Class, objc::FixedString Sel, class R, class... A>
struct Ear {
    static inline R (*through)(id, SEL, A...) = nullptr;
    static R hear(id self, SEL selector, A... arguments) {
        std::string line = class_getName(object_getClass(self));
        line += std::string(" ") + Sel.text;
        ((line += text(arguments)), ...);
        heard().push_back(line);
        return through(self, selector, arguments...);
    }
};

} // namespace overhearing

/// From now on listens to the message, sent to whatever is of this class. R and A are what travels: objects as plain
/// ids, small numbers as words.
template <objc::FixedString Class, objc::FixedString Sel, class R, class... A>
void overhear() {
    using Ear = overhearing::Ear<Class, Sel, R, A...>;
    Ear::through = phone::correct<Sel>(objc_getClass(Class.text), &Ear::hear);
}

/// The same of a message to the class itself.
template <objc::FixedString Class, objc::FixedString Sel, class R, class... A>
void overhearClass() {
    using Ear = overhearing::Ear<Class, Sel, R, A...>;
    Ear::through = phone::correctClass<Sel>(objc_getClass(Class.text), &Ear::hear);
}
