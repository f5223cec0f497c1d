#include "phone/substrate/Loader.h"

#include "phone/device/RootFolder.h"
#include "phone/foundation/PropertyList.h"
#include "phone/macho/Library.h"
#include "phone/macho/Slice.h"
#include "phone/substrate/Filter.h"
#include "platform/foundation/NSDictionary.h"
#include "platform/objc/Pool.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>

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

void warn(const std::string& path, const std::string& what) {
    std::fprintf(stderr, "%s%s: %s\n", loaderMark, path.c_str(), what.c_str());
}

/// A shared object of the machine, or a library as the device has it. False, with a warning, when it does not load.
bool load(const std::string& library) {
    const std::string path = RootFolder::hostPath(library);
    std::string beginning(sizeof(std::uint32_t), '\0');
    std::ifstream(path, std::ios::binary).read(beginning.data(), static_cast<std::streamsize>(beginning.size()));
    if (!macho::isMachO(beginning)) {
        const bool loads = dlopen(path.c_str(), RTLD_LAZY | RTLD_GLOBAL) != nullptr;
        if (!loads) {
            warn(library, std::string("not loaded: ") + dlerror());
        }
        return loads;
    }
    try {
        macho::load(path);
        return true;
    } catch (const macho::Refusal& refusal) {
        warn(library, std::string("not loaded: ") + refusal.what());
        return false;
    }
}

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
        if (load(library)) {
            loaded.push_back(library);
        }
    }
    return loaded;
}

} // namespace phone
