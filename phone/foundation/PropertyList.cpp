#include "phone/foundation/PropertyList.h"

#include "phone/device/RootFolder.h"
#include "phone/foundation/Correct.h"
#include "phone/foundation/Data.h"
#include "phone/foundation/FileLog.h"
#include "phone/foundation/PropertyListGuard.h"
#include "phone/foundation/Text.h"
#include "phone/foundation/XmlPropertyList.h"
#include "platform/foundation/NSDate.h"
#include "platform/foundation/NSDictionary.h"
#include "platform/foundation/NSNumber.h"
#include "platform/objc/Pool.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace phone {

namespace {

// NSStringEncoding, as the platform numbers it.
constexpr unsigned utf8Encoding = 4;
constexpr unsigned utf16Encoding = 10;
constexpr mode_t filePermissions = 0644;
constexpr std::size_t largestFile = std::size_t(32) << 20; // bytes; read whole, more would exhaust a device

struct NSPropertyListSerialization : NSObject {
    static constexpr auto objc_name = "NSPropertyListSerialization";

    static NSObject parsed(const NSData& data) {
        return objc::sendClass<NSPropertyListSerialization, "propertyListWithData:options:format:error:", NSObject>(
            data, objc::UInt(0), static_cast<void*>(nullptr), static_cast<void*>(nullptr));
    }
};

/// Runs Foundation's parser. What it raises over a broken file is no one's business.
template <class Parse>
NSObject quietly(Parse parse) {
    try {
        return parse();
    } catch (...) {
        return nullptr;
    }
}

NSString decode(const std::string& bytes) {
    const bool utf16 = bytes.starts_with("\xff\xfe") || bytes.starts_with("\xfe\xff");
    const std::size_t mark = bytes.starts_with("\xef\xbb\xbf") ? 3 : 0;
    return objc::make<NSString, "initWithBytes:length:encoding:">(static_cast<const void*>(bytes.data() + mark),
                                                                  objc::UInt(bytes.size() - mark),
                                                                  utf16 ? utf16Encoding : utf8Encoding);
}

/// Writes all bytes and makes them last; closes the file.
bool fill(int file, const std::string& bytes) {
    std::size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t count = write(file, bytes.data() + written, bytes.size() - written);
        if (count < 0) {
            close(file);
            return false;
        }
        written += static_cast<std::size_t>(count);
    }
    const bool lasting = fsync(file) == 0;
    return close(file) == 0 && lasting;
}

template <class Collection, objc::FixedString Initialiser>
id initWithContentsOfFile(id self, SEL, id path) {
    objc::Pool pool;
    const auto name = objc::borrow<NSString>(path);
    FileEntry entry(FileEntry::Action::Read, name);
    const auto bytes = readFile(text(name));
    const NSObject contents = bytes ? parsePropertyList(*bytes) : NSObject();
    if (!entry.finish(objc::isKind<Collection>(contents))) {
        objc::Object::release(self);
        return nullptr;
    }
    return objc::detail::call<id>(self, objc::selector<Initialiser>(), contents.raw());
}

unsigned char writeToFile(id self, SEL, id path, unsigned char atomically) {
    objc::Pool pool;
    const auto name = objc::borrow<NSString>(path);
    FileEntry entry(FileEntry::Action::Write, name);
    const auto object = objc::borrow<NSObject>(self);
    if (!isPropertyList(object)) {
        return entry.finish(false);
    }
    return entry.finish(writeFile(text(name), xmlPropertyList(object), atomically != 0));
}

} // namespace

std::optional<std::string> readFile(const std::string& path) {
    // A pipe without a writer would keep its reader waiting for ever.
    const int file = open(RootFolder::hostPath(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) {
        return std::nullopt;
    }
    struct stat status{};
    if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode) ||
        static_cast<std::size_t>(status.st_size) > largestFile) {
        close(file);
        return std::nullopt;
    }
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(status.st_size));
    char chunk[16384];
    ssize_t count = 0;
    while ((count = read(file, chunk, sizeof chunk)) > 0) {
        bytes.append(chunk, static_cast<std::size_t>(count));
    }
    close(file);
    return count < 0 ? std::nullopt : std::optional(bytes);
}

bool writeFile(const std::string& path, const std::string& bytes, bool atomically) {
    const std::string target = RootFolder::hostPath(path);
    if (!atomically) {
        const int file = open(target.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, filePermissions);
        return file >= 0 && fill(file, bytes);
    }
    std::string temporary = target + ".XXXXXX";
    const int file = mkstemp(temporary.data());
    if (file < 0) {
        return false;
    }
    fchmod(file, filePermissions);
    if (!fill(file, bytes) || std::rename(temporary.c_str(), target.c_str()) != 0) {
        unlink(temporary.c_str());
        return false;
    }
    return true;
}

NSObject parsePropertyList(const std::string& bytes) {
    if (bytes.empty() || !isSafeToParse(bytes)) {
        return nullptr;
    }
    const NSObject parsed = quietly([&] { return NSPropertyListSerialization::parsed(NSData::of(bytes)); });
    const bool textual = !bytes.starts_with("bplist") && !bytes.starts_with("<");
    if (parsed || !textual) {
        return parsed;
    }
    // An old-style property list may be a dictionary without its braces.
    return quietly([&] { return decode(bytes).send<"propertyListFromStringsFileFormat", NSObject>(); });
}

bool isPropertyList(const NSObject& object) {
    if (objc::isKind<NSDictionary>(object)) {
        const auto dictionary = objc::as<NSDictionary>(object);
        for (const NSObject& key : dictionary.allKeys()) {
            if (!objc::isKind<NSString>(key) || !isPropertyList(dictionary.at(key))) {
                return false;
            }
        }
        return true;
    }
    if (objc::isKind<NSArray>(object)) {
        for (const NSObject& element : objc::as<NSArray>(object)) {
            if (!isPropertyList(element)) {
                return false;
            }
        }
        return true;
    }
    return objc::isKind<NSString>(object) || objc::isKind<NSNumber>(object) || objc::isKind<NSDate>(object) ||
           objc::isKind<NSData>(object);
}

void installPropertyLists() {
    const Class dictionary = objc::classOf<NSDictionary>();
    correct<"initWithContentsOfFile:">(dictionary, &initWithContentsOfFile<NSDictionary, "initWithDictionary:">);
    correct<"writeToFile:atomically:">(dictionary, &writeToFile);
    const Class array = objc::classOf<NSArray>();
    correct<"initWithContentsOfFile:">(array, &initWithContentsOfFile<NSArray, "initWithArray:">);
    correct<"writeToFile:atomically:">(array, &writeToFile);
}

} // namespace phone
