#include "phone/substrate/Loader.h"
#include "phone/applications/Boot.h"
#include "platform/uikit/UIApplication.h"
#include "tests/foundation/FoundationTest.h"

#include <algorithm>
#include <vector>

namespace {

std::vector<std::string> recorded;
objc::UInt windowsWhileLoading = 0;

/// The name of the class that a library of this name defines while it is loaded.
std::string className(const std::string& library) { return "LoaderTest" + library; }

} // namespace

/// What the constructor of each library calls.
extern "C" __attribute__((visibility("default"))) void recordLoading(const char* path) {
    const std::string library = std::filesystem::path(path).stem().string();
    recorded.push_back(library);
    if (Class made = objc_allocateClassPair(objc::classOf<NSObject>(), className(library).c_str(), 0)) {
        objc_registerClassPair(made);
    }
    windowsWhileLoading = objc::sendClass<UIApplication, "sharedApplication", UIApplication>().windows().count();
}

namespace phone {
namespace {

using Names = std::vector<std::string>;

class LoaderTest : public FoundationTest {
protected:
    LoaderTest() { std::filesystem::create_directories(host(librariesFolder)); }

    /// Installs a library that records being loaded; `filter` is the text of its property list, none for "".
    void install(const std::string& name, const std::string& filter) const {
        const std::string base = std::string(librariesFolder) + "/" + name;
        std::filesystem::copy_file(RECORDER, host(base + ".dylib"));
        if (!filter.empty()) {
            put(base + ".plist", filter);
        }
    }
    /// Whether a library with this filter is loaded.
    bool loads(const std::string& filter) const {
        recorded.clear();
        static int number = 0;
        const std::string name = "Library" + std::to_string(++number);
        install(name, filter);
        loadLibraries();
        std::filesystem::remove(host(std::string(librariesFolder) + "/" + name + ".dylib"));
        return recorded == Names{name};
    }
};

// Holds: load-order
TEST_F(LoaderTest, LibrariesLoadInAlphabeticalOrder) {
    Names names = {"K", "D", "I", "A", "H", "L", "C", "F", "B", "J", "G", "E"};
    for (const std::string& name : names) {
        install(name, "");
    }

    const auto loaded = loadLibraries();

    std::sort(names.begin(), names.end());
    EXPECT_EQ(recorded, names);
    EXPECT_EQ(loaded.front(), "/Library/MobileSubstrate/DynamicLibraries/A.dylib");
    EXPECT_EQ(loaded.size(), names.size());
}

// Holds: load-order
TEST_F(LoaderTest, WhatALibraryDefinesIsThereForLaterOnesAlone) {
    const std::string asksForMiddle = "{ Filter = { Classes = ( " + className("Middle") + " ); }; }";
    install("Apple", asksForMiddle);
    install("Middle", "");
    install("Zebra", asksForMiddle);

    loadLibraries();

    EXPECT_EQ(recorded, (Names{"Middle", "Zebra"}));
}

// Holds: load-order
TEST_F(LoaderTest, LibrariesLoadBeforeTheApplicationHasAWindow) {
    install("Early", "");

    boot(settings());

    EXPECT_EQ(recorded, Names{"Early"});
    EXPECT_EQ(windowsWhileLoading, 0u);
    EXPECT_GT(UIApplication::shared().windows().count(), 0u);
}

TEST_F(LoaderTest, AMissingFolderLoadsNothing) {
    std::filesystem::remove_all(host(librariesFolder));

    EXPECT_TRUE(loadLibraries().empty());
}

// Holds: filter-missing-or-corrupt
TEST_F(LoaderTest, WithoutAFilterALibraryIsLoadedEverywhere) {
    EXPECT_TRUE(loads(""));
    EXPECT_TRUE(loads("{ Other = 1; }"));
    EXPECT_TRUE(loads("{ Filter = { }; }"));
}

// Holds: filter-keys
TEST_F(LoaderTest, BundlesMatchTheRunningApplication) {
    EXPECT_TRUE(loads("{ Filter = { Bundles = ( \"com.apple.InCallService\", \"com.apple.mobilephone\" ); }; }"));
    EXPECT_FALSE(loads("{ Filter = { Bundles = ( \"com.apple.springboard\" ); }; }"));
    EXPECT_FALSE(loads("{ Filter = { Bundles = ( ); }; }"));
}

// Holds: filter-keys
TEST_F(LoaderTest, BundlesMatchWhateverIsLoadedInIt) {
    EXPECT_TRUE(loads("{ Filter = { Bundles = ( \"com.apple.UIKit\" ); }; }"));
    EXPECT_FALSE(loads("{ Filter = { Bundles = ( \"com.apple.EventKitUI\" ); }; }"));
}

// Holds: filter-keys
TEST_F(LoaderTest, ExecutablesMatchTheProgramsName) {
    EXPECT_TRUE(loads("{ Filter = { Executables = ( InCallService ); }; }"));
    EXPECT_FALSE(loads("{ Filter = { Executables = ( MobilePhone ); }; }"));
}

// Holds: filter-keys
TEST_F(LoaderTest, ClassesMatchWhatIsRegistered) {
    EXPECT_TRUE(loads("{ Filter = { Classes = ( NoSuchClass, NSString ); }; }"));
    EXPECT_FALSE(loads("{ Filter = { Classes = ( NoSuchClass ); }; }"));
}

// Holds: filter-keys
TEST_F(LoaderTest, TheVersionLiesBetweenTheBounds) {
    const auto filter = [](const std::string& numbers) {
        return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><dict><key>Filter</key><dict>"
               "<key>CoreFoundationVersion</key><array>" +
               numbers + "</array></dict></dict></plist>";
    };
    EXPECT_TRUE(loads(filter("<real>847.20</real>")));
    EXPECT_TRUE(loads(filter("<real>793.00</real><real>900</real>")));
    EXPECT_FALSE(loads(filter("<real>793.00</real><real>847.20</real>")));
    EXPECT_FALSE(loads(filter("<integer>1000</integer>")));
    EXPECT_FALSE(loads(filter("<string>793</string>")));
}

// Holds: filter-keys
TEST_F(LoaderTest, EveryListMustMatchUnlessTheModeIsAny) {
    const std::string lists = "Bundles = ( \"com.apple.InCallService\" ); Executables = ( MobilePhone );";

    EXPECT_FALSE(loads("{ Filter = { " + lists + " }; }"));
    EXPECT_TRUE(loads("{ Filter = { Mode = Any; " + lists + " }; }"));
    EXPECT_FALSE(loads("{ Filter = { Mode = Any; Executables = ( MobilePhone ); }; }"));
}

// Holds: filter-missing-or-corrupt
TEST_F(LoaderTest, ACorruptFilterSkipsItsLibraryWithAWarning) {
    testing::internal::CaptureStderr();

    EXPECT_FALSE(loads("{ Filter = { Bundles = ( "));

    const std::string warning = testing::internal::GetCapturedStderr();
    EXPECT_TRUE(warning.starts_with("loader: /Library/MobileSubstrate/DynamicLibraries/Library"));
    EXPECT_EQ(std::count(warning.begin(), warning.end(), '\n'), 1);
}

TEST_F(LoaderTest, AFileThatIsNoLibraryIsAWarningAndTheOthersLoad) {
    put("/Library/MobileSubstrate/DynamicLibraries/Broken.dylib", "no library");
    install("Whole", "");
    testing::internal::CaptureStderr();

    loadLibraries();

    EXPECT_NE(testing::internal::GetCapturedStderr().find("Broken.dylib"), std::string::npos);
    EXPECT_EQ(recorded, Names{"Whole"});
}

TEST_F(LoaderTest, ALibraryOfTheDevicesFormatIsLoadedAndABrokenOneIsAWarning) {
    const std::string folder = std::string(librariesFolder) + "/";
    std::filesystem::copy_file(SLICE, host(folder + "Whole.dylib"));
    put(folder + "Broken.dylib", bytes(folder + "Whole.dylib").substr(0, 5000));
    testing::internal::CaptureStderr();

    const auto loaded = loadLibraries();

    EXPECT_EQ(loaded, Names{folder + "Whole.dylib"});
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "loader: " + folder + "Broken.dylib: not loaded: the file ends before segment __TEXT\n");
}

} // namespace
} // namespace phone
