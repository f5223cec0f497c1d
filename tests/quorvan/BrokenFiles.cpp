#include "tests/quorvan/BrokenFiles.h"

#include <sys/stat.h>

#include <cstdint>
#include <fstream>
#include <iterator>

namespace {

namespace fs = std::filesystem;

constexpr int tooDeep = 100'000;
constexpr const char* xmlHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

std::string readFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

std::string bigEndian(std::uint64_t value, int size) {
    std::string bytes;
    for (int i = size - 1; i >= 0; --i) {
        bytes += static_cast<char>(value >> (8 * i));
    }
    return bytes;
}

/// The objects, of which the first is the root, with their table; references are four bytes wide.
std::string binary(const std::vector<std::string>& objects) {
    std::string bytes = "bplist00";
    std::string table;
    for (const std::string& object : objects) {
        table += bigEndian(bytes.size(), 4);
        bytes += object;
    }
    const std::size_t tableAt = bytes.size();
    return bytes + table + std::string(6, '\0') + "\4\4" + bigEndian(objects.size(), 8) + bigEndian(0, 8) +
           bigEndian(tableAt, 8);
}

std::string reference(std::size_t object) { return bigEndian(object, 4); }

/// Objects of which each holds the next `times` times.
std::string chain(int length, int times) {
    std::vector<std::string> objects;
    for (int i = 0; i < length; ++i) {
        objects.push_back(static_cast<char>(0xa0 | times) + repeated(reference(objects.size() + 1), times));
    }
    objects.emplace_back("\x51x");
    return binary(objects);
}

/// Ten million million laughs.
std::string entities() {
    std::string text = std::string(xmlHead) + "<!DOCTYPE plist [<!ENTITY a \"ha\">";
    for (char name = 'b'; name <= 'n'; ++name) {
        text += std::string("<!ENTITY ") + name + " \"" +
                repeated(std::string("&") + static_cast<char>(name - 1) + ";", 10) + "\">";
    }
    return text + "]>\n<plist version=\"1.0\"><dict><key>Title</key><string>&n;</string></dict></plist>\n";
}

std::string xml(const std::string& body) {
    return std::string(xmlHead) + "<plist version=\"1.0\">" + body + "</plist>\n";
}

/// What it holds is made when it is put: every test's process makes the list.
BrokenFile content(const std::string& name, std::function<std::string()> bytes) {
    return {name, [bytes = std::move(bytes)](const fs::path& path) { writeFile(path, bytes()); }};
}

void putSparse(const fs::path& path, std::uintmax_t size) {
    writeFile(path, "");
    fs::resize_file(path, size);
}

} // namespace

void writeFile(const fs::path& path, const std::string& bytes) {
    fs::remove_all(path); // whatever it is, and not through a link
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string binaryPropertyList(const std::vector<std::pair<std::string, std::string>>& texts) {
    std::string dictionary(1, static_cast<char>(0xd0 | texts.size()));
    std::vector<std::string> objects(1);
    const auto string = [](const std::string& text) {
        return "\x5f\x10" + std::string(1, static_cast<char>(text.size())) + text;
    };
    for (const auto& [key, value] : texts) {
        objects.push_back(string(key));
        dictionary += reference(objects.size() - 1);
    }
    for (const auto& [key, value] : texts) {
        objects.push_back(string(value));
        dictionary += reference(objects.size() - 1);
    }
    objects[0] = dictionary;
    return binary(objects);
}

std::vector<BrokenFile> brokenFiles() {
    return {
        {"Missing", [](const fs::path& path) { fs::remove_all(path); }},
        content("Empty", [] { return ""; }),
        content("OneByteZero", [] { return std::string(1, '\0'); }),
        content("Noise", [] { return "\x8f\x02\xff\xfe\x00{(\"<"; }),
        {"CutInHalf",
         [](const fs::path& path) {
             const std::string whole = fs::is_regular_file(path) ? readFile(path) : "{Title = text;";
             writeFile(path, whole.substr(0, whole.size() / 2));
         }},
        {"SixtyFourMegabytesOfNothing", [](const fs::path& path) { putSparse(path, std::uintmax_t(64) << 20); }},
        {"OneTerabyteOfNothing", [](const fs::path& path) { putSparse(path, std::uintmax_t(1) << 40); }},
        {"Folder",
         [](const fs::path& path) {
             fs::remove_all(path);
             writeFile(path / "inside", "not empty"); // so that nothing renames a file over it
         }},
        {"DanglingLink",
         [](const fs::path& path) {
             fs::remove_all(path);
             fs::create_symlink("nowhere", path);
         }},
        {"LinkToItself",
         [](const fs::path& path) {
             fs::remove_all(path);
             fs::create_symlink(path.filename(), path);
         }},
        {"Pipe",
         [](const fs::path& path) {
             fs::remove_all(path);
             mkfifo(path.c_str(), 0644);
         }},
        {"WithoutPermissions",
         [](const fs::path& path) {
             writeFile(path, "");
             fs::permissions(path, fs::perms::none); // binds everyone but root
         }},
    };
}

std::vector<BrokenFile> brokenPropertyLists() {
    return {
        content("ABillionLaughs", [] { return entities(); }),
        content("AnExternalEntity",
                [] {
                    return std::string(xmlHead) +
                           "<!DOCTYPE plist [<!ENTITY a SYSTEM \"file:///etc/passwd\">]>\n"
                           "<plist version=\"1.0\"><dict><key>Title</key><string>&a;</string></dict></plist>";
                }),
        content("DeepXml", [] { return xml(repeated("<array>", tooDeep) + repeated("</array>", tooDeep)); }),
        content("DeepXmlWithoutEnd",
                [] { return std::string(xmlHead) + "<plist>" + repeated("<dict><key>a</key>", tooDeep); }),
        content("DeepArrays", [] { return repeated("(", tooDeep) + repeated(")", tooDeep); }),
        content("DeepArraysWithoutEnd", [] { return repeated("(", tooDeep); }),
        content("DeepDictionaries", [] { return repeated("{a=", tooDeep) + "b" + repeated(";}", tooDeep); }),
        content("DeepBinary", [] { return chain(tooDeep, 1); }),
        content("BinaryBomb", [] { return chain(60, 2); }),
        content("BinaryInItself", [] { return binary({"\xa1" + reference(0)}); }),
        content("BinaryWithoutItsEnd", [] { return binaryPropertyList({{"Title", "text"}}).substr(0, 40); }),
        content("BinaryCountBeyondTheFile", [] { return binary({"\xaf\x13" + bigEndian(UINT64_MAX >> 1, 8)}); }),
        content("BinaryTextBeyondTheFile", [] { return binary({"\x5f\x13" + bigEndian(UINT64_MAX, 8)}); }),
        content("BinaryDataBeyondTheFile", [] { return binary({"\x4f\x13" + bigEndian(UINT64_MAX, 8)}); }),
        content("BinaryOfAnUnknownType", [] { return binary({"\xf0"}); }),
        content("BinaryKeyThatIsNull",
                [] { return binary({"\xd1" + reference(1) + reference(1), std::string(1, '\0')}); }),
        content("ArrayForRoot", [] { return xml("<array><string>Title</string></array>"); }),
        content("TextForRoot", [] { return xml("<string>Title</string>"); }),
        content("NumberForRoot", [] { return xml("<integer>7</integer>"); }),
        content("DataForRoot", [] { return xml("<data>AAAA</data>"); }),
        content("KeysWithoutValues", [] { return xml("<dict><key>Title</key><key>Header</key></dict>"); }),
        content("ValuesWithoutKeys", [] { return xml("<dict><string>Title</string><true/></dict>"); }),
        content("BytesThatAreNoText", [] { return xml("<dict><key>Title</key><string>\xff\xfe\x80</string></dict>"); }),
        content("CharactersThatAreNone",
                [] { return xml("<dict><key>Title</key><string>&#0;&#xD800;&#99999999999;&none;</string></dict>"); }),
    };
}
