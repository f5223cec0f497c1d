#include "tests/packages/InstallTest.h"

using namespace phone;
using testing::HasSubstr;

namespace {

class RefusedPackageTest : public InstallTest {
protected:
    DebBuilder package = packageWith("1.0", {{"a", "content"}});
};

} // namespace

TEST_F(RefusedPackageTest, WhatIsNoPackage) {
    expectRefused(std::string(), "not a Debian package");
    expectRefused(std::string("PK\3\4 a zip"), "not a Debian package");
    expectRefused(std::string("!<arch>\n"), "not a Debian package");
    expectRefused(DebBuilder::ar({{"control.tar.gz", package.controlTar()}}), "does not begin with debian-binary");
    expectRefused(DebBuilder::ar({{"debian-binary", "2.0\n"}, {"control.tar.gz", package.controlTar()}}),
                  "control.tar and data.tar have to follow");
    EXPECT_EQ(phone("install " + folder.path("nothing.deb") + " --root " + root()), 2);
    EXPECT_THAT(errors, HasSubstr("nothing.deb: no such file"));
    EXPECT_EQ(phone("install " + folder.path() + " --root " + root()), 2);
    EXPECT_THAT(errors, HasSubstr("no such file"));
}

TEST_F(RefusedPackageTest, WhatIsCutOffAnywhere) {
    const std::string whole = package.bytes();
    for (std::size_t length = 0; length + 1 < whole.size(); length += 97) {
        const auto before = snapshot(root());
        EXPECT_EQ(installBytes(whole.substr(0, length)), 2) << length;
        EXPECT_EQ(snapshot(root()), before) << length;
    }
}

TEST_F(RefusedPackageTest, AnotherFormat) {
    package.format = "3.0\n";
    expectRefused(package, "a package of the format `3.0`; the device's dpkg reads 2.0");
}

TEST_F(RefusedPackageTest, ACompressionThatTheDeviceDoesNotKnow) {
    package.compression = "zst";
    expectRefused(package, "control.tar.zst: compressed in a way that the device's dpkg does not know");
    package.compression = "gz";
    expectRefused(DebBuilder::ar({{"debian-binary", "2.0\n"},
                                  {"control.tar.gz", package.controlTar()},
                                  {"data.tar.zst", DebBuilder::tar(package.files, "zst")}}),
                  "data.tar.zst: compressed in a way");
}

TEST_F(RefusedPackageTest, ATarOfTheExtendedForm) {
    package.files.push_back({"./Library/Test/" + std::string(300, 'x'), "x"});
    expectRefused(
        package.with(package.controlTar(), DebBuilder::tar(package.files, "gz", ARCHIVE_FORMAT_TAR_PAX_INTERCHANGE)),
        "use the plain or GNU form of tar");
}

TEST_F(RefusedPackageTest, BrokenGzipData) {
    std::string data = DebBuilder::tar(package.files, "gz");
    data[data.size() - 6] = static_cast<char>(~data[data.size() - 6]); // in the checksum
    expectRefused(package.with(package.controlTar(), data), "data.tar.gz: broken gzip data");
    expectRefused(package.with(package.controlTar(), "no gzip"), "data.tar.gz: broken gzip data");
}

TEST_F(RefusedPackageTest, AnotherArchitecture) {
    package.architecture = "iphoneos-arm64";
    expectRefused(package, "built for iphoneos-arm64; the phone takes packages for iphoneos-arm");
}

TEST_F(RefusedPackageTest, FieldsThatAreMissingOrWrong) {
    const auto withControl = [&](const std::string& text) {
        return package.with(DebBuilder::tar({{"./control", text}}, "gz"), DebBuilder::tar(package.files, "gz"));
    };
    expectRefused(withControl("Version: 1\nArchitecture: iphoneos-arm\n"), "lacks the field Package");
    expectRefused(withControl("Package: aa\nArchitecture: iphoneos-arm\n"), "lacks the field Version");
    expectRefused(withControl("Package: aa\nVersion: 1\n"), "lacks the field Architecture");
    expectRefused(withControl("Package: aa\nVersion:\nArchitecture: iphoneos-arm\n"), "lacks the field Version");
    expectRefused(withControl("Package: aa\nno field\n"), "control: line 2: no field");
    expectRefused(withControl(" x\nPackage: aa\n"), "control: line 1: goes on with a field");
    expectRefused(withControl("Package: aa\npackage: bb\n"), "the field package stands twice");
    expectRefused(withControl(package.control() + "\n" + package.control()), "one paragraph is needed, there are 2");
    expectRefused(withControl(""), "one paragraph is needed, there are 0");
    expectRefused(package.with(DebBuilder::tar({{"./other", ""}}, "gz"), DebBuilder::tar(package.files, "gz")),
                  "it has no control file");
    package.version = "one";
    expectRefused(package, "`one` is no version");
    package.version = "1.0";
    package.furtherFields = "Depends: a (>> )\n";
    expectRefused(package, "Depends: ");
}

TEST_F(RefusedPackageTest, ANameInCapitals) {
    package.package = "Mirelda.Quorvan";
    expectRefused(package, "`Mirelda.Quorvan` is no name of a package: lower-case letters");
}

TEST_F(RefusedPackageTest, PathsThatLeadOut) {
    for (const char* name : {"../out", "./Library/../../out", "/out"}) {
        package.files = {debFolder("./"), {name, "x"}};
        expectRefused(package, std::string("`") + name + "` ");
        EXPECT_FALSE(std::filesystem::exists(folder.path("out")));
    }
    for (const char* target : {"/etc", "../../../etc", ""}) {
        package.files = {debFolder("./"), debFolder("./Library"), debLink("./Library/out", target)};
        expectRefused(package, "which leads out of the root folder; make it relative");
    }
}

TEST_F(RefusedPackageTest, PathsThatLeadThroughALink) {
    package.files = {debFolder("./Library"), debLink("./Library/a", "b"), {"./Library/a/file", "x"}};
    expectRefused(package, "lies below /Library/a, which is no folder");

    const std::string outside = folder.path("outside");
    std::filesystem::create_directories(outside);
    std::filesystem::create_directory_symlink(outside, root() + "/Library/Test");
    expectRefused(packageWith("1.0", {{"a", "x"}}), "is a link that leads out of the root folder");
    EXPECT_TRUE(std::filesystem::is_empty(outside));
}

TEST_F(RefusedPackageTest, ARecordThatLiesOutside) {
    std::filesystem::create_directories(folder.path("outside"));
    std::filesystem::create_directory_symlink(folder.path("outside"), root() + "/Library/dpkg");
    expectRefused(package, "is a link that leads out of the root folder");
}

TEST_F(RefusedPackageTest, DeviceFilesAndOtherUsersRights) {
    package.files.push_back({"./Library/Test/tty", "", 0644, 0, 0, AE_IFCHR, ""});
    expectRefused(package, "is a device file");
    package.files.back().type = AE_IFIFO;
    expectRefused(package, "is neither a file, a folder nor a link");
    for (const unsigned mode : {04755U, 02755U}) {
        package.files.back() = {"./Library/Test/run", "x", mode};
        expectRefused(package, "would run as another user");
    }
}

TEST_F(RefusedPackageTest, ContradictionsAmongItsFiles) {
    package.files.push_back({"./Library/Test/a", "again"});
    expectRefused(package, "/Library/Test/a stands twice");
    package.files.back() = {"./Library/Test/b", "", 0644, 0, 0, AE_IFREG, "./Library/Test/none"};
    expectRefused(package, "is a link to /Library/Test/none, which is no file before it");
    package.files.back() = {"./Library/Test/a/b", "x"};
    expectRefused(package, "lies below /Library/Test/a, which is no folder");
    package.files.back() = {"./Library/dpkg/status", "x"};
    expectRefused(package, "belongs to dpkg itself");
    package.files.back() = {"./Library/None/b", "x"};
    expectRefused(package, "lies in /Library/None, which neither the package nor the phone has");
}

TEST_F(RefusedPackageTest, ConffilesThatItDoesNotHave) {
    package.information["conffiles"] = "/Library/Test/none\n";
    expectRefused(package, "conffiles: /Library/Test/none is no file of the package");
    package.information["conffiles"] = "Library/Test/a\n";
    expectRefused(package, "conffiles: `Library/Test/a` is no path from the root");
    package.information["conffiles"] = "/Library/Test\n";
    expectRefused(package, "conffiles: /Library/Test is no file of the package");
    package.information["conffiles"] = "/Library/Test/a";
    expectRefused(package, "conffiles: the last line does not end");
}

TEST_F(RefusedPackageTest, DependenciesThatThePhoneLacks) {
    package.furtherFields = "Depends: mobilesubstrate, something (>= 2) | other\n";
    expectRefused(package, "mirelda.test depends on something (>= 2) or other, which the phone lacks");
    package.furtherFields = "Depends: mobilesubstrate (>= 99)\n";
    expectRefused(package, "depends on mobilesubstrate (>= 99)");
    package.furtherFields = "Pre-Depends: firmware (>= 9.0)\n";
    expectRefused(package, "depends on firmware (>= 9.0)");
}

TEST_F(RefusedPackageTest, ConflictsInEitherDirection) {
    package.furtherFields = "Conflicts: mirelda.other (<< 2)\n";
    ASSERT_EQ(install(package), 0) << errors;
    DebBuilder other;
    other.package = "mirelda.other";
    expectRefused(other, "mirelda.test, which is installed, conflicts with mirelda.other 1.0");
    other.version = "2.0";
    other.furtherFields = "Provides: something\nConflicts: mirelda.test\n";
    expectRefused(other, "mirelda.other conflicts with mirelda.test 1.0, which is installed");
    package.package = "preferenceloader";
    expectRefused(package, "preferenceloader is part of the phone");
}

TEST_F(RefusedPackageTest, FilesOfAnotherPackage) {
    ASSERT_EQ(install(package), 0) << errors;
    package.package = "mirelda.other";
    expectRefused(package, "/Library/Test/a belongs to mirelda.test 1.0");
}

TEST_F(RefusedPackageTest, FilesInThePlaceOfFoldersAndTheOtherWayRound) {
    std::filesystem::create_directories(root() + "/Library/Test/a");
    expectRefused(package, "/Library/Test/a is a file in the package and a folder on the phone");
    std::filesystem::remove_all(root() + "/Library/Test");
    folder.write("root/Library/Test", "a file");
    expectRefused(package, "/Library/Test is a folder in the package and a file on the phone");
}

TEST_F(RefusedPackageTest, ARecordThatCannotBeRead) {
    folder.write("root/Library/dpkg/status", "no field\n");
    const auto before = snapshot(root());
    EXPECT_EQ(install(package), 2);
    EXPECT_THAT(errors, HasSubstr("/Library/dpkg/status: line 1: no field"));
    EXPECT_EQ(snapshot(root()), before);
}

TEST_F(RefusedPackageTest, CommandsThatSayTooLittleOrTooMuch) {
    EXPECT_EQ(phone("install --root " + root()), 2);
    EXPECT_EQ(phone("install x.deb --remove x --root " + root()), 2);
    EXPECT_EQ(phone("install x.deb"), 2);
    EXPECT_EQ(phone("install x.deb --root " + folder.path("none")), 2);
    EXPECT_THAT(errors, HasSubstr("no such phone"));
}
