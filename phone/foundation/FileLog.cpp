#include "phone/foundation/FileLog.h"

#include "phone/device/Log.h"
#include "phone/device/RootFolder.h"
#include "phone/foundation/Correct.h"
#include "phone/foundation/Data.h"
#include "phone/foundation/Text.h"

namespace phone {

namespace {

thread_local int depth = 0;

/// Stands around one of Foundation's own methods whose first argument is a path. `Key` tells apart the
/// methods that share a signature; the result, an object or a truth value, says whether it went well.
template <FileEntry::Action Action, int Key, class Signature>
struct Around;

template <FileEntry::Action Action, int Key, class R, class... A>
struct Around<Action, Key, R(A...)> {
    static inline R (*previous)(id, SEL, id, A...) = nullptr;

    static R call(id self, SEL selector, id path, A... arguments) {
        FileEntry entry(Action, objc::borrow<NSString>(path));
        const R result = previous(self, selector, path, arguments...);
        entry.finish(result != 0);
        return result;
    }

    template <objc::FixedString Sel>
    static void install(Class cls) {
        previous = correct<Sel>(cls, &call);
    }
};

} // namespace

FileEntry::FileEntry(Action action, const NSString& path) : FileEntry(action, text(path)) {}

FileEntry::FileEntry(Action action, std::string path) : _action(action), _path(std::move(path)) { ++depth; }

FileEntry::~FileEntry() {
    if (--depth == 0 && RootFolder::isDevicePath(_path)) {
        Log::shared().add("file",
                          {{"action", _action == Action::Read ? "read" : "write"}, {"path", _path}, {"ok", _ok}});
    }
}

void installFileLog() {
    using enum FileEntry::Action;
    using Encoding = unsigned;
    const Class data = objc::classOf<NSData>();
    Around<Read, 0, id()>::install<"initWithContentsOfFile:">(data);
    Around<Write, 0, unsigned char(unsigned char)>::install<"writeToFile:atomically:">(data);
    Around<Write, 0, unsigned char(objc::UInt, id*)>::install<"writeToFile:options:error:">(data);

    const Class string = objc::classOf<NSString>();
    Around<Read, 1, id()>::install<"initWithContentsOfFile:">(string);
    Around<Read, 1, id(Encoding, id*)>::install<"initWithContentsOfFile:encoding:error:">(string);
    Around<Read, 1, id(Encoding*, id*)>::install<"initWithContentsOfFile:usedEncoding:error:">(string);
    Around<Write, 1, unsigned char(unsigned char)>::install<"writeToFile:atomically:">(string);
    Around<Write, 1, unsigned char(unsigned char, Encoding, id*)>::install<"writeToFile:atomically:encoding:error:">(
        string);
}

} // namespace phone
