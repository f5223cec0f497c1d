#include "phone/substrate/Loader.h"

#include "phone/device/RootFolder.h"
#include "phone/foundation/PropertyList.h"
#include "phone/substrate/Filter.h"
#include "platform/foundation/NSDictionary.h"
#include "platform/objc/Pool.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>

namespace phone {

namespace {

namespace fs = std::filesystem;

/// The names of the libraries without their extension, in alphabetical order.
std::vector<std::string> libraryNames() {
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(RootFolder::hostPath(librariesFolder), error)) {
        if (entry.path().extension() == ".dylib") {
            names.push_back(entry.path().stem().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

void warn(const std::string& path, const char* what) { std::fprintf(stderr, "loader: %s: %s\n", path.c_str(), what); }

bool wanted(const std::string& filterPath) {
    const auto bytes = readFile(filterPath);
    if (!bytes) {
        return true;
    }
    const NSObject contents = parsePropertyList(*bytes);
    if (!objc::isKind<NSDictionary>(contents)) {
        warn(filterPath, "no property list; its library is skipped");
        return false;
    }
    return filterMatches(objc::as<NSDictionary>(contents));
}

} // namespace

std::vector<std::string> loadLibraries() {
    std::vector<std::string> loaded;
    for (const std::string& name : libraryNames()) {
        const objc::Pool pool;
        const std::string base = std::string(librariesFolder) + "/" + name;
        const std::string library = base + ".dylib";
        if (!wanted(base + ".plist")) {
            continue;
        }
        // Only now: what one library defines, the filter of the next may ask for.
        if (dlopen(RootFolder::hostPath(library).c_str(), RTLD_LAZY | RTLD_GLOBAL) == nullptr) {
            warn(library, dlerror());
            continue;
        }
        loaded.push_back(library);
    }
    return loaded;
}

} // namespace phone
