#include "tests/packages/InstallTest.h"

using namespace phone;
using testing::HasSubstr;

namespace {

constexpr const char* conffile = "/Library/Test/kept.plist";
constexpr const char* beside = "/Library/Test/kept.plist.dpkg-dist";

/// A package whose one conffile has this content.
DebBuilder keeping(const std::string& version, const std::string& content) {
    DebBuilder package = packageWith(version, {{"kept.plist", content}});
    package.information["conffiles"] = std::string(conffile) + "\n";
    return package;
}

class ConffileTest : public InstallTest {
protected:
    void change(const std::string& content) { folder.write(std::string("root") + conffile, content); }
};

} // namespace

TEST_F(ConffileTest, ThatNobodyChangedIsReplaced) {
    ASSERT_EQ(install(keeping("1.0", "one")), 0) << errors;

    EXPECT_EQ(install(keeping("2.0", "two")), 0) << errors;

    EXPECT_EQ(file(conffile), "two");
    EXPECT_FALSE(has(beside));
    EXPECT_THAT(file("/Library/dpkg/status"), HasSubstr("kept.plist b8a9f715dbb64fd5c56e7783c6820a61\n"));
}

TEST_F(ConffileTest, ThatWasChangedStaysWhenThePackagesDidNotChange) {
    ASSERT_EQ(install(keeping("1.0", "one")), 0) << errors;
    change("mine");

    EXPECT_EQ(install(keeping("2.0", "one")), 0) << errors;

    EXPECT_EQ(output, "mirelda.test 2.0: upgraded from 1.0\n");
    EXPECT_EQ(file(conffile), "mine");
    EXPECT_FALSE(has(beside));
}

TEST_F(ConffileTest, ThatBothChangedStaysWithThePackagesBeside) {
    ASSERT_EQ(install(keeping("1.0", "one")), 0) << errors;
    change("mine");

    EXPECT_EQ(install(keeping("2.0", "two")), 0) << errors;

    EXPECT_THAT(output, HasSubstr("kept /Library/Test/kept.plist as it was changed here"));
    EXPECT_EQ(file(conffile), "mine");
    EXPECT_EQ(file(beside), "two");
    // The same again says nothing: the person has chosen.
    EXPECT_EQ(install(keeping("2.0", "two")), 0) << errors;
    EXPECT_EQ(output, "mirelda.test 2.0: installed again\n");
    EXPECT_EQ(file(conffile), "mine");
}

TEST_F(ConffileTest, ThatBothChangedAlikeStays) {
    ASSERT_EQ(install(keeping("1.0", "one")), 0) << errors;
    change("two");

    EXPECT_EQ(install(keeping("2.0", "two")), 0) << errors;
    EXPECT_EQ(install(keeping("3.0", "three")), 0) << errors;

    EXPECT_EQ(file(conffile), "three");
    EXPECT_FALSE(has(beside));
}

TEST_F(ConffileTest, ThatWasPutBackIsReplacedAndTheOneBesideGoes) {
    ASSERT_EQ(install(keeping("1.0", "one")), 0) << errors;
    change("mine");
    ASSERT_EQ(install(keeping("2.0", "two")), 0) << errors;
    change("two");

    EXPECT_EQ(install(keeping("3.0", "three")), 0) << errors;

    EXPECT_EQ(file(conffile), "three");
    EXPECT_FALSE(has(beside));
}

TEST_F(ConffileTest, ThatWasRemovedStaysAway) {
    ASSERT_EQ(install(keeping("1.0", "one")), 0) << errors;
    std::filesystem::remove(root() + conffile);

    EXPECT_EQ(install(keeping("2.0", "one")), 0) << errors;
    EXPECT_FALSE(has(conffile));
    EXPECT_FALSE(has(beside));

    EXPECT_EQ(install(keeping("3.0", "two")), 0) << errors;
    EXPECT_FALSE(has(conffile));
    EXPECT_EQ(file(beside), "two");
    EXPECT_THAT(output, HasSubstr("left /Library/Test/kept.plist away"));
}

TEST_F(ConffileTest, ThatLaysThereBeforeTheFirstInstallationStays) {
    change("mine");

    EXPECT_EQ(install(keeping("1.0", "one")), 0) << errors;

    EXPECT_EQ(file(conffile), "mine");
    EXPECT_EQ(file(beside), "one");
}

TEST_F(ConffileTest, ThatTheNewVersionLacksStays) {
    ASSERT_EQ(install(keeping("1.0", "one")), 0) << errors;

    EXPECT_EQ(install(packageWith("2.0", {{"a", "x"}})), 0) << errors;

    EXPECT_EQ(file(conffile), "one");
    EXPECT_THAT(file("/Library/dpkg/status"), HasSubstr("kept.plist f97c5d29941bfb1b2fdab0874906ab82 obsolete\n"));
    EXPECT_EQ(install(keeping("3.0", "three")), 0) << errors;
    EXPECT_EQ(file(conffile), "three");
}

TEST_F(ConffileTest, ThatIsNoneAnyMoreIsReplaced) {
    ASSERT_EQ(install(keeping("1.0", "one")), 0) << errors;
    change("mine");

    EXPECT_EQ(install(packageWith("2.0", {{"kept.plist", "two"}})), 0) << errors;

    EXPECT_EQ(file(conffile), "two");
    EXPECT_THAT(file("/Library/dpkg/status"), testing::Not(HasSubstr("Conffiles")));
}

TEST_F(ConffileTest, ThatOutlivedARemovalIsKeptByTheNextInstallation) {
    ASSERT_EQ(install(keeping("1.0", "one")), 0) << errors;
    change("mine");
    ASSERT_EQ(remove("mirelda.test"), 0) << errors;

    EXPECT_EQ(install(keeping("1.0", "one")), 0) << errors;

    EXPECT_EQ(output, "mirelda.test 1.0: installed\n");
    EXPECT_EQ(file(conffile), "mine");
    EXPECT_FALSE(has(beside));
}

TEST_F(ConffileTest, ThatIsALinkInsideIsWrittenWhereItEnds) {
    folder.write("root/var/kept", "one");
    ASSERT_EQ(install(keeping("1.0", "one")), 0) << errors;
    std::filesystem::remove(root() + conffile);
    std::filesystem::create_symlink("../../var/kept", root() + conffile);

    EXPECT_EQ(install(keeping("2.0", "two")), 0) << errors;

    EXPECT_TRUE(std::filesystem::is_symlink(root() + conffile));
    EXPECT_EQ(file("/var/kept"), "two");
}
