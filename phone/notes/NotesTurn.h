/// One message to the Notes store or to one of its objects.
#pragma once

#include "phone/notes/StoreLog.h"

#include <mutex>

namespace phone {

/// The log tells of the message, and until it has been carried out no other thread's is. What it sends itself belongs
/// to it.
class NotesTurn {
public:
    template <class... A>
    explicit NotesTurn(const char* className, const char* message, const A&... arguments) : _lock(mutex()) {
        nlohmann::json all = nlohmann::json::array();
        (all.push_back(readable(arguments)), ...);
        addStoreEntry(className, message, std::move(all));
    }

private:
    static std::recursive_mutex& mutex();

    std::unique_lock<std::recursive_mutex> _lock;
};

/// Gives the store objects of class T messages that answer or set a field.
template <class T>
class LoggedFields {
public:
    template <objc::FixedString Sel, auto Field>
    auto logged() {
        const NotesTurn turn(T::objc_name, Sel.text);
        return static_cast<T*>(this)->*Field;
    }
    template <objc::FixedString Sel, auto Field>
    void setLogged(const typename objc::detail::MemberOf<decltype(Field)>::Value& value) {
        const NotesTurn turn(T::objc_name, Sel.text, value);
        static_cast<T*>(this)->*Field = value;
    }
};

} // namespace phone
