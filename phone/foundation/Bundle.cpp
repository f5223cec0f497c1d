#include "phone/foundation/Bundle.h"

#include "phone/device/RootFolder.h"
#include "phone/device/Settings.h"
#include "phone/foundation/Correct.h"
#include "phone/foundation/FileLog.h"
#include "phone/foundation/PropertyList.h"
#include "phone/foundation/Text.h"
#include "platform/foundation/NSBundle.h"
#include "platform/foundation/NSDictionary.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <map>
#include <mutex>
#include <utility>

namespace phone {

namespace {

namespace fs = std::filesystem;

constexpr const char* defaultTable = "Localizable";
constexpr const char* defaultRegion = "en";

/// How tags are compared: "de_at" and "de-AT" are one.
std::string normal(std::string tag) {
    for (char& c : tag) {
        c = c == '_' ? '-' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return tag;
}

/// The name of the bundle's language folder for a tag or its nearest parent, without ".lproj"; "" for none.
std::string localisation(const std::string& bundle, const std::string& tag) {
    std::map<std::string, std::string> present;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(RootFolder::hostPath(bundle), error)) {
        if (entry.path().extension() == ".lproj") {
            const std::string name = entry.path().stem().string();
            present.emplace(normal(name), name);
        }
    }
    for (std::string wanted = normal(tag); !wanted.empty();) {
        if (const auto found = present.find(wanted); found != present.end()) {
            return found->second;
        }
        const auto dash = wanted.rfind('-');
        wanted.erase(dash == std::string::npos ? 0 : dash);
    }
    return "";
}

std::string developmentRegion(const std::string& bundle) {
    const auto bytes = readFile(bundle + "/Info.plist");
    const NSObject info = bytes ? parsePropertyList(*bytes) : NSObject();
    if (objc::isKind<NSDictionary>(info)) {
        const auto region = objc::as<NSDictionary>(info).at("CFBundleDevelopmentRegion"_ns);
        if (objc::isKind<NSString>(region)) {
            return text(objc::as<NSString>(region));
        }
    }
    return defaultRegion;
}

/// The table's file, in the platform's order of looking; "" when there is none.
std::string tableFile(const std::string& bundle, const std::string& table) {
    const auto exists = [](const std::string& path) {
        std::error_code error;
        return fs::is_regular_file(RootFolder::hostPath(path), error);
    };
    const std::string name = "/" + table + ".strings";
    if (exists(bundle + name)) {
        return bundle + name;
    }
    for (const std::string& language : {settings().language, developmentRegion(bundle)}) {
        const std::string folder = localisation(bundle, language);
        const std::string path = bundle + "/" + folder + ".lproj" + name;
        if (!folder.empty() && exists(path)) {
            return path;
        }
    }
    return "";
}

/// Empty when the table is missing or corrupt.
NSDictionary readTable(const std::string& bundle, const std::string& table) {
    const std::string path = tableFile(bundle, table);
    if (path.empty()) {
        return nullptr;
    }
    FileEntry entry(FileEntry::Action::Read, path);
    const auto bytes = readFile(path);
    const NSObject contents = bytes ? parsePropertyList(*bytes) : NSObject();
    return entry.finish(objc::isKind<NSDictionary>(contents)) ? objc::as<NSDictionary>(contents) : NSDictionary();
}

NSDictionary tableNamed(const std::string& bundle, const std::string& table) {
    static auto* tables = new std::map<std::pair<std::string, std::string>, NSDictionary>;
    static std::mutex mutex;
    std::lock_guard lock(mutex);
    const auto key = std::pair(bundle, table);
    auto known = tables->find(key);
    if (known == tables->end()) {
        known = tables->emplace(key, readTable(bundle, table)).first;
    }
    return known->second;
}

NSString localizedString(const NSBundle& bundle, const NSString& key, const NSString& value, const NSString& table) {
    if (!key) {
        return value ? value : ""_ns;
    }
    const std::string name = table.length() == 0 ? defaultTable : text(table);
    const auto words = tableNamed(text(bundle.send<"bundlePath", NSString>()), name);
    if (const auto found = words.at(key); objc::isKind<NSString>(found)) {
        return objc::as<NSString>(found);
    }
    return value.length() == 0 ? key : value;
}

/// What the bundles bring that the phone has built in, by their paths; nullptr once it has been done.
std::map<std::string, void (*)()>& provided() {
    static auto* all = new std::map<std::string, void (*)()>;
    return *all;
}

constinit signed char (*loadOwn)(id, SEL) = nullptr;

signed char load(id self, SEL selector) {
    const auto found = provided().find(text(objc::borrow<NSBundle>(self).send<"bundlePath", NSString>()));
    if (found == provided().end()) {
        return loadOwn(self, selector);
    }
    if (auto* work = std::exchange(found->second, nullptr)) {
        work();
    }
    return true;
}

id localizedStringForKey(id self, SEL, id key, id value, id table) {
    const NSString word = localizedString(objc::borrow<NSBundle>(self), objc::borrow<NSString>(key),
                                          objc::borrow<NSString>(value), objc::borrow<NSString>(table));
    id given = word.raw();
    objc::Object::retain(given);
    return objc::detail::call<id>(given, objc::selector<"autorelease">());
}

} // namespace

void installBundles() {
    correct<"localizedStringForKey:value:table:">(objc::classOf<NSBundle>(), &localizedStringForKey);
    loadOwn = correct<"load">(objc::classOf<NSBundle>(), &load);
}

void provideBundle(const char* devicePath, void (*work)()) { provided()[devicePath] = work; }

} // namespace phone
