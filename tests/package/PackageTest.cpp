#include "tests/package/ShippedPackage.h"

#include <gmock/gmock.h>

#include <algorithm>

using testing::ElementsAre;
using testing::HasSubstr;

namespace package {

namespace {

const Lines languages = {"de", "en", "es", "fr", "it", "ja", "nl", "pt", "ru", "zh-Hans"};

class Package : public ShippedPackage {
protected:
    static inline const Lines suffixes = {"iphoneos-arm", "x86_64"};

    /// What lies in the package, a line a path: mode, owner, path.
    Lines content(const std::string& suffix) {
        return lines(output("dpkg-deb --fsys-tarfile '" + package(suffix) +
                            "' | tar tv --numeric-owner | awk '{ print $1, $2, $6 }'"));
    }
    static Lines expectedContent() {
        Lines expected;
        const auto folder = [&](const std::string& path, const std::string& owner = "0/0") {
            expected.push_back("drwxr-xr-x " + owner + " ./" + path);
        };
        const auto file = [&](const std::string& path, const std::string& owner = "0/0") {
            expected.push_back("-rw-r--r-- " + owner + " ./" + path);
        };
        folder("");
        folder("Library/");
        folder("Library/MobileSubstrate/");
        folder("Library/MobileSubstrate/DynamicLibraries/");
        expected.push_back("-rwxr-xr-x 0/0 ./Library/MobileSubstrate/DynamicLibraries/Quorvan.dylib");
        file("Library/MobileSubstrate/DynamicLibraries/Quorvan.plist");
        folder("Library/PreferenceLoader/");
        folder("Library/PreferenceLoader/Preferences/");
        const std::string pane = "Library/PreferenceLoader/Preferences/Quorvan/";
        folder(pane);
        for (const char* name : {"Info.plist", "Quorvan.plist", "icon.png", "icon@2x.png", "icon@3x.png"}) {
            file(pane + name);
        }
        const std::string resources = "Library/Quorvan/";
        folder(resources, "501/501");
        for (const char* name : {"Events.plist", "Reminders.plist", "noteText.plist"}) {
            file(resources + name, "501/501");
        }
        for (const char* name : {"Events", "Reminders", "notes", "bg", "arrow", "back"}) {
            file(resources + name + ".png");
            file(resources + name + "@2x.png");
        }
        const std::string words = resources + "Translations.bundle/";
        folder(words);
        file(words + "Info.plist");
        for (const std::string& language : languages) {
            for (const std::string& place : {pane, words}) {
                folder(place + language + ".lproj/");
                file(place + language + ".lproj/Localizable.strings");
            }
        }
        return expected;
    }
};

TEST_F(Package, HoldsTheseFilesWithTheseOwnersAndModes) {
    Lines expected = expectedContent();
    std::ranges::sort(expected);
    for (const std::string& suffix : suffixes) {
        SCOPED_TRACE(suffix);
        Lines found = content(suffix);
        std::ranges::sort(found);
        EXPECT_EQ(found, expected);
    }
}

TEST_F(Package, NamesEveryFolderBeforeWhatLiesInIt) {
    std::set<std::string> folders;
    for (const std::string& line : content("iphoneos-arm")) {
        const std::string path = line.substr(line.find("./"));
        if (path.back() == '/') {
            folders.insert(path);
        }
        if (path != "./") {
            EXPECT_TRUE(folders.contains(path.substr(0, path.rfind('/', path.size() - 2) + 1))) << path;
        }
    }
}

TEST_F(Package, HasMembersThatOldSystemsUnpack) {
    for (const std::string& suffix : suffixes) {
        SCOPED_TRACE(suffix);
        EXPECT_THAT(lines(output("ar t '" + package(suffix) + "'")),
                    ElementsAre("debian-binary", "control.tar.gz", "data.tar.gz"));
        EXPECT_EQ(output("ar p '" + package(suffix) + "' debian-binary"), "2.0\n");
        for (const char* member : {"control.tar.gz", "data.tar.gz"}) {
            output("ar p '" + package(suffix) + "' " + member + " | gzip -t");
        }
    }
}

TEST_F(Package, HasTheseFields) {
    for (const std::string& suffix : suffixes) {
        SCOPED_TRACE(suffix);
        const auto field = [&](const std::string& name) {
            const std::string value = output("dpkg-deb -f '" + package(suffix) + "' " + name);
            return value.substr(0, value.find('\n'));
        };
        EXPECT_EQ(field("Package"), "mirelda.quorvan");
        EXPECT_EQ(field("Name"), "Quorvan");
        EXPECT_EQ(field("Version"), VERSION);
        EXPECT_EQ(field("Architecture"), "iphoneos-arm");
        EXPECT_EQ(field("Depends"), "firmware (>= 6.0), mobilesubstrate (>= 0.9.5000), preferenceloader");
        EXPECT_EQ(field("Section"), "Tweaks");
        EXPECT_NE(field("Maintainer"), "");
        EXPECT_NE(field("Description"), "");
        std::size_t kibibytes = 0;
        output("dpkg-deb -x '" + package(suffix) + "' '" + folder.path(suffix) + "'");
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path(suffix))) {
            kibibytes += entry.is_regular_file() ? (entry.file_size() + 1023) / 1024 : 1;
        }
        EXPECT_EQ(field("Installed-Size"), std::to_string(kibibytes + 1)); // the topmost folder is not below itself
    }
}

TEST_F(Package, TellsWhereItDoesNothingAndHowThePhoneApplicationTakesItIn) {
    for (const std::string& suffix : suffixes) {
        const std::string description = output("dpkg-deb -f '" + package(suffix) + "' Description");
        for (const char* words : {"\n killall -9 InCallService MobilePhone\n", "as root", "never during a call",
                                  "After installing and after removing", "arm64e", "/Library"}) {
            EXPECT_THAT(description, HasSubstr(words));
        }
        for (const std::string& line : lines(description)) {
            EXPECT_LE(line.size(), 80U) << line;
        }
    }
}

TEST_F(Package, KeepsWhatThePhoneApplicationWroteThroughAnUpgrade) {
    for (const std::string& suffix : suffixes) {
        EXPECT_EQ(output("dpkg-deb -I '" + package(suffix) + "' conffiles"),
                  "/Library/Quorvan/Events.plist\n/Library/Quorvan/Reminders.plist\n/Library/Quorvan/noteText.plist\n");
    }
}

TEST_F(Package, RunsNothingWhenItIsInstalled) {
    for (const std::string& suffix : suffixes) {
        EXPECT_EQ(output("dpkg-deb --ctrl-tarfile '" + package(suffix) + "' | tar t"), "./\n./conffiles\n./control\n");
    }
}

TEST_F(Package, LoadsIntoBothPhoneApplicationsAndNothingElse) {
    EXPECT_EQ(output("dpkg-deb --fsys-tarfile '" + package("iphoneos-arm") +
                     "' | tar xO ./Library/MobileSubstrate/DynamicLibraries/Quorvan.plist"),
              "{ Filter = { Bundles = ( \"com.apple.InCallService\", \"com.apple.mobilephone\" ); }; }\n");
}

TEST_F(Package, ForThePhoneHereDiffersInTheSliceAlone) {
    for (const std::string& suffix : suffixes) {
        output("dpkg-deb -R '" + package(suffix) + "' '" + folder.path(suffix) + "'");
    }
    EXPECT_EQ(status("diff -rq '" + folder.path(suffixes[0]) + "' '" + folder.path(suffixes[1]) + "'"), 1);
    const Lines different = lines(folder.read("output"));
    // The size that the fields tell follows from the slice.
    ASSERT_EQ(different.size(), 2U);
    EXPECT_THAT(different[0], HasSubstr("DEBIAN/control"));
    EXPECT_THAT(different[1], HasSubstr("Quorvan.dylib"));
    const auto fields = [&](const std::string& suffix) {
        return output("grep -v Installed-Size '" + folder.path(suffix + "/DEBIAN/control") + "'");
    };
    EXPECT_EQ(fields(suffixes[0]), fields(suffixes[1]));
}

TEST_F(Package, SaysNothingOfWhereItWasBuilt) {
    for (const char* arch : {"arm64", "armv7", "x86_64"}) {
        EXPECT_EQ(status("grep -c '" SOURCE_DIRECTORY "' '" + slice(arch) + "'"), 1) << arch;
    }
}

} // namespace

} // namespace package
