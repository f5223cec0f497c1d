/// Messages as they come, with who receives them and what comes with them: for tests of their order.
#pragma once

#include "phone/foundation/Text.h"
#include "platform/coregraphics/CGGeometry.h"
#include "platform/foundation/NSDate.h"
#include "platform/uikit/UITableView.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

#include <mutex>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What was heard since the last call, in order: "RECEIVER MESSAGE ARGUMENT...".
class Messages {
public:
    /// From now on the message `Selector` to objects of the class is written down, before it is obeyed. R and A are the
    /// types as they travel: `id`, words, rectangles.
    template <objc::FixedString Name, objc::FixedString Selector, class R = void, class... A>
    void watch() {
        Heard<Name, Selector, R, A...>::install();
    }

    static std::vector<std::string> take() {
        const std::lock_guard lock(mutex);
        return std::exchange(heard, {});
    }

    /// A receiver or an object that came along: its class, of a table the screen whose rows it shows, of a text the
    /// text.
    static std::string described(id object) {
        if (object == nullptr) {
            return "nil";
        }
        if (objc::isKind<NSString>(objc::borrow<objc::Object>(object))) {
            return '"' + phone::text(objc::borrow<NSString>(object)) + '"';
        }
        if (objc::isKind<NSDate>(objc::borrow<objc::Object>(object))) {
            return "a date";
        }
        const std::string name = object_getClassName(object);
        if (!objc::isKind<UITableView>(objc::borrow<objc::Object>(object))) {
            return name;
        }
        const id screen = objc::borrow<UITableView>(object).send<"dataSource", objc::Object>().raw();
        return screen == nullptr ? "rows of nobody" : std::string("rows of ") + object_getClassName(screen);
    }
    static std::string described(objc::UInt word) { return std::to_string(word); }
    static std::string described(SEL selector) { return sel_getName(selector); }
    static std::string described(CGRect frame) {
        std::ostringstream text;
        text << frame.origin.x << ' ' << frame.origin.y << ' ' << frame.size.width << ' ' << frame.size.height;
        return text.str();
    }

    /// From now on only what the library sends is written down, not what the platform tells itself.
    static void hearTheLibraryAlone() { onlyTheLibrary = true; }

private:
    template <objc::FixedString Name, objc::FixedString Selector, class R, class... A>
    struct Heard {
        static inline R (*obey)(id, SEL, A...) = nullptr;

        static R hear(id self, SEL selector, A... arguments) {
            if (!onlyTheLibrary || isOfTheLibrary(__builtin_return_address(0))) {
                std::string line = described(self) + " " + Selector.text;
                ((line += " " + described(arguments)), ...);
                const std::lock_guard lock(mutex);
                heard.push_back(line);
            }
            return obey(self, selector, arguments...);
        }

        static void install() {
            if (obey != nullptr) {
                return;
            }
            const Class cls = objc_getClass(Name.text);
            const SEL selector = objc::selector<Selector>();
            const Method method = class_getInstanceMethod(cls, selector);
            ASSERT_NE(method, nullptr) << Name.text << " does not answer " << Selector.text;
            obey = reinterpret_cast<R (*)(id, SEL, A...)>(method_getImplementation(method));
            class_replaceMethod(cls, selector, reinterpret_cast<IMP>(hear), method_getTypeEncoding(method));
        }
    };

    /// Code of no file that the system has loaded is the library's too: the phone maps libraries of the device's
    /// format.
    static bool isOfTheLibrary(void* code) {
        Dl_info info;
        return dladdr(code, &info) == 0 || std::string_view(info.dli_fname).ends_with("/Quorvan.dylib");
    }

    static inline bool onlyTheLibrary = false;
    static inline std::mutex mutex;
    static inline std::vector<std::string> heard;
};
