#include "phone/notes/NotesFramework.h"

#include <fstream>

namespace phone {

namespace {

constexpr const char* information = R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0">
<dict>
	<key>CFBundleName</key><string>Notes</string>
	<key>CFBundlePackageType</key><string>FMWK</string>
</dict>
</plist>
)";

} // namespace

void NotesFramework::create(const std::filesystem::path& root) {
    const std::filesystem::path folder = root.string() + devicePath;
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "Info.plist") << information;
}

} // namespace phone
