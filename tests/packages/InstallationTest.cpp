#include "tests/packages/InstallTest.h"

using namespace phone;
using testing::HasSubstr;

namespace fs = std::filesystem;

TEST_F(InstallTest, PutsFilesAtTheirDevicePathsAndRecordsTheirOwners) {
    DebBuilder package = packageWith("1.0", {});
    package.files = {debFolder("./"),
                     debFolder("./Library/"),
                     debFolder("./Library/Test/", 0775, 501),
                     DebFile{"./Library/Test/kept.plist", "kept", 0644, 501, 501},
                     DebFile{"./Library/Test/run", "run", 0755},
                     debLink("./Library/Test/link", "run"),
                     DebFile{"./Library/Test/second", "", 0755, 0, 0, AE_IFREG, "./Library/Test/run"}};
    package.information["md5sums"] = "d41d8cd98f00b204e9800998ecf8427e  Library/Test/run\n";
    package.furtherFields = "Name: Test\n";

    EXPECT_EQ(install(package), 0) << errors;

    EXPECT_EQ(errors, "");
    EXPECT_EQ(output, "mirelda.test 1.0: installed\n");
    EXPECT_EQ(file("/Library/Test/kept.plist"), "kept");
    EXPECT_EQ(fs::read_symlink(root() + "/Library/Test/link"), "run");
    EXPECT_TRUE(fs::equivalent(root() + "/Library/Test/second", root() + "/Library/Test/run"));
    EXPECT_EQ(fs::status(root() + "/Library/Test/run").permissions(), fs::perms(0755));
    EXPECT_EQ(fs::status(root() + "/Library/Test").permissions(), fs::perms(0775));
    EXPECT_EQ(file("/Library/dpkg/info/mirelda.test.list"),
              "/.\n/Library\n/Library/Test\n/Library/Test/kept.plist\n/Library/Test/run\n/Library/Test/link\n"
              "/Library/Test/second\n");
    EXPECT_THAT(file("/Library/dpkg/info/mirelda.test.owners"), HasSubstr("0775 501 501 /Library/Test\n"
                                                                          "0644 501 501 /Library/Test/kept.plist\n"
                                                                          "0755 0 0 /Library/Test/run\n"));
    EXPECT_EQ(file("/Library/dpkg/info/mirelda.test.md5sums"), package.information["md5sums"]);
    EXPECT_THAT(file("/Library/dpkg/status"), testing::StartsWith("Package: mirelda.test\n"
                                                                  "Status: install ok installed\n"
                                                                  "Version: 1.0\n"));
    EXPECT_THAT(file("/Library/dpkg/status"), HasSubstr("Description: a package\n more of it\nName: Test\n\n"));
    EXPECT_FALSE(has("/Library/dpkg/unpacking"));
}

TEST_F(InstallTest, LetsThePhoneWriteWhatOnlyReadsInThePackage) {
    DebBuilder package = packageWith("1.0", {});
    package.files = {debFolder("./Library/"), debFolder("./Library/Test/", 0555),
                     DebFile{"./Library/Test/a", "x", 0444}};

    EXPECT_EQ(install(package), 0) << errors;

    EXPECT_EQ(fs::status(root() + "/Library/Test").permissions(), fs::perms(0755));
    EXPECT_EQ(fs::status(root() + "/Library/Test/a").permissions(), fs::perms(0644));
}

TEST_F(InstallTest, TakesEveryCompressionOfTheDevice) {
    int version = 0;
    for (const char* compression : {"gz", "xz", "lzma", ""}) {
        DebBuilder package = packageWith(std::to_string(++version), {{"a", compression}});
        package.compression = compression;
        EXPECT_EQ(install(package), 0) << errors;
        EXPECT_EQ(file("/Library/Test/a"), compression);
    }
}

TEST_F(InstallTest, TakesWhatDpkgDebMakes) {
    folder.write("tree/DEBIAN/control", packageWith("1.0", {}).control());
    folder.write("tree/DEBIAN/conffiles", "/Library/Test/a b\n");
    folder.write("tree/Library/Test/a b", "x");
    folder.write("tree/Library/Test/" + std::string(150, 'x'), "a long name");
    folder.write("tree/Library/Test/äöü", "no English name");
    ASSERT_EQ(std::system(("chmod -R go=u-w " + folder.path("tree") + "; dpkg-deb --root-owner-group -Zgzip -b " +
                           folder.path("tree") + " " + folder.path("made.deb") + " >/dev/null")
                              .c_str()),
              0);

    EXPECT_EQ(phone("install " + folder.path("made.deb") + " --root " + root()), 0) << errors;

    EXPECT_EQ(file("/Library/Test/" + std::string(150, 'x')), "a long name");
    EXPECT_EQ(file("/Library/Test/äöü"), "no English name");
    EXPECT_THAT(file("/Library/dpkg/status"),
                HasSubstr("Conffiles:\n /Library/Test/a b 9dd4e461268c8034f5c8564e155c67a6"));
}

TEST_F(InstallTest, AnUpgradeRemovesWhatTheNewVersionLacks) {
    DebBuilder old = packageWith("1.0", {{"a", "1"}, {"gone", "x"}});
    old.files.push_back(debFolder("./Library/Test/empty"));
    old.files.push_back({"./Library/Test/empty/gone", "x"});
    old.files.push_back(debFolder("./Library/Test/mine"));
    old.files.push_back({"./Library/Test/mine/gone", "x"});
    ASSERT_EQ(install(old), 0) << errors;
    folder.write("root/Library/Test/mine/own", "a person's");

    EXPECT_EQ(install(packageWith("2.0", {{"a", "2"}, {"new", "x"}})), 0) << errors;

    EXPECT_EQ(output, "mirelda.test 2.0: upgraded from 1.0\n");
    EXPECT_EQ(file("/Library/Test/a"), "2");
    EXPECT_TRUE(has("/Library/Test/new"));
    EXPECT_FALSE(has("/Library/Test/gone"));
    EXPECT_FALSE(has("/Library/Test/empty"));
    EXPECT_FALSE(has("/Library/Test/mine/gone"));
    EXPECT_EQ(file("/Library/Test/mine/own"), "a person's");
    const std::string status = file("/Library/dpkg/status");
    EXPECT_THAT(status, HasSubstr("Version: 2.0\n"));
    EXPECT_EQ(status.find("Package:", 1), std::string::npos);
}

TEST_F(InstallTest, SaysWhenAVersionIsInstalledAgainOrAnOlderOne) {
    ASSERT_EQ(install(packageWith("2.0", {{"a", "2"}})), 0) << errors;
    folder.write("root/Library/Test/a", "broken");

    EXPECT_EQ(install(packageWith("2.0", {{"a", "2"}})), 0) << errors;
    EXPECT_EQ(output, "mirelda.test 2.0: installed again\n");
    EXPECT_EQ(file("/Library/Test/a"), "2");

    EXPECT_EQ(install(packageWith("1.10", {{"a", "1"}})), 0) << errors;
    EXPECT_EQ(output, "mirelda.test 1.10: downgraded from 2.0\n");
    EXPECT_EQ(file("/Library/Test/a"), "1");
}

TEST_F(InstallTest, AFolderTakesThePlaceOfTheOldVersionsFile) {
    ASSERT_EQ(install(packageWith("1.0", {{"a", "1"}})), 0) << errors;
    DebBuilder next = packageWith("2.0", {});
    next.files.push_back(debFolder("./Library/Test/a"));
    next.files.push_back({"./Library/Test/a/b", "2"});

    EXPECT_EQ(install(next), 0) << errors;

    EXPECT_EQ(file("/Library/Test/a/b"), "2");
}

TEST_F(InstallTest, SaysWhichScriptsDoNotRun) {
    DebBuilder package = packageWith("1.0", {{"a", "1"}});
    package.information["postinst"] = "#!/bin/sh\ntouch " + folder.path("ran") + "\n";

    EXPECT_EQ(install(package), 0) << errors;

    EXPECT_THAT(output, HasSubstr("\ndid not run postinst: "));
    EXPECT_FALSE(fs::exists(folder.path("ran")));
    EXPECT_TRUE(has("/Library/dpkg/info/mirelda.test.postinst"));
    EXPECT_EQ(install(packageWith("1.1", {{"a", "1"}})), 0) << errors;
    EXPECT_FALSE(has("/Library/dpkg/info/mirelda.test.postinst"));
}

TEST_F(InstallTest, TakesOverFilesOfAPackageThatItReplaces) {
    ASSERT_EQ(install(packageWith("1.0", {{"a", "1"}, {"b", "1"}})), 0) << errors;
    DebBuilder other = packageWith("1.0", {{"a", "other's"}});
    other.package = "mirelda.other";
    other.furtherFields = "Replaces: mirelda.test\n";

    EXPECT_EQ(install(other), 0) << errors;
    EXPECT_EQ(remove("mirelda.test"), 0) << errors;

    EXPECT_EQ(file("/Library/Test/a"), "other's");
    EXPECT_FALSE(has("/Library/Test/b"));
}

TEST_F(InstallTest, InstallsThroughALinkThatStaysInside) {
    fs::create_directories(root() + "/var/Test");
    fs::create_directory_symlink("../var/Test", root() + "/Library/Test");

    EXPECT_EQ(install(packageWith("1.0", {{"a", "1"}})), 0) << errors;

    EXPECT_TRUE(fs::is_symlink(root() + "/Library/Test"));
    EXPECT_EQ(file("/var/Test/a"), "1");
}

TEST_F(InstallTest, RemovalLeavesALinkToTheFolderOfConffiles) {
    fs::create_directories(root() + "/var/Test");
    fs::create_directory_symlink("../var/Test", root() + "/Library/Test");
    DebBuilder package = packageWith("1.0", {{"a", "1"}, {"kept.plist", "1"}});
    package.information["conffiles"] = "/Library/Test/kept.plist\n";
    ASSERT_EQ(install(package), 0) << errors;

    EXPECT_EQ(remove("mirelda.test"), 0) << errors;

    EXPECT_TRUE(fs::is_symlink(root() + "/Library/Test"));
    EXPECT_TRUE(has("/Library/Test/kept.plist"));
    EXPECT_FALSE(has("/Library/Test/a"));
}

TEST_F(InstallTest, RemovalLeavesConffilesAndWhatIsNotThePackages) {
    DebBuilder package = packageWith("1.0", {{"a", "1"}, {"kept.plist", "1"}});
    package.files.push_back(debFolder("./Library/Test/inner"));
    package.files.push_back({"./Library/Test/inner/b", "1"});
    package.information["conffiles"] = "/Library/Test/kept.plist\n";
    ASSERT_EQ(install(package), 0) << errors;

    EXPECT_EQ(remove("mirelda.test"), 0) << errors;

    EXPECT_THAT(output, testing::StartsWith("mirelda.test 1.0: removed\nkept /Library/Test/kept.plist"));
    EXPECT_FALSE(has("/Library/Test/a"));
    EXPECT_FALSE(has("/Library/Test/inner"));
    EXPECT_TRUE(has("/Library/Test/kept.plist"));
    EXPECT_THAT(file("/Library/dpkg/status"), HasSubstr("Status: deinstall ok config-files\n"));
    EXPECT_EQ(file("/Library/dpkg/info/mirelda.test.list"), "/.\n/Library\n/Library/Test\n/Library/Test/kept.plist\n");
    EXPECT_EQ(remove("mirelda.test"), 2);
    EXPECT_THAT(errors, HasSubstr("mirelda.test: no package of this name is installed"));
}

TEST_F(InstallTest, RemovalWithoutConffilesLeavesNothing) {
    ASSERT_EQ(install(packageWith("1.0", {{"a", "1"}})), 0) << errors;

    EXPECT_EQ(remove("mirelda.test"), 0) << errors;

    EXPECT_FALSE(has("/Library/Test"));
    EXPECT_TRUE(has("/Library"));
    EXPECT_EQ(file("/Library/dpkg/status"), "");
    EXPECT_TRUE(fs::is_empty(root() + "/Library/dpkg/info"));
}

TEST_F(InstallTest, DoesNotRemoveWhatAnotherPackageNeeds) {
    ASSERT_EQ(install(packageWith("1.0", {{"a", "1"}})), 0) << errors;
    DebBuilder other;
    other.package = "mirelda.other";
    other.furtherFields = "Depends: mirelda.test (>= 1.0)\n";
    ASSERT_EQ(install(other), 0) << errors;

    EXPECT_EQ(remove("mirelda.test"), 2);
    EXPECT_THAT(errors, HasSubstr("mirelda.other depends on mirelda.test; remove that first"));
    EXPECT_EQ(remove("mirelda.other"), 0) << errors;
    EXPECT_EQ(remove("mirelda.test"), 0) << errors;
}

TEST_F(InstallTest, TwoAtOnceWaitForEachOther) {
    for (int number = 0; number < 6; ++number) {
        DebBuilder package = packageWith("1.0", {{"of-" + std::to_string(number), std::string(100000, 'x')}});
        package.package += std::to_string(number);
        folder.write(std::to_string(number) + ".deb", package.bytes());
    }
    const std::string all = "for i in 0 1 2 3 4 5; do " BUILD_DIRECTORY "/phone install " + folder.path("") +
                            "/$i.deb --root " + root() + " >/dev/null 2>>" + folder.path("err.txt") + " & done; wait";

    EXPECT_EQ(std::system(all.c_str()), 0);

    EXPECT_EQ(folder.read("err.txt"), "");
    const std::string status = file("/Library/dpkg/status");
    for (int number = 0; number < 6; ++number) {
        EXPECT_THAT(status, HasSubstr("Package: mirelda.test" + std::to_string(number) + "\n"));
        EXPECT_TRUE(has("/Library/Test/of-" + std::to_string(number)));
    }
}
