#include "phone/flow/InputError.h"
#include "phone/packages/Installer.h"
#include "tests/packages/InstallTest.h"
#include "tests/packages/SystemFaults.h"

#include <functional>
#include <unistd.h>

using namespace phone;

namespace fs = std::filesystem;

namespace {

/// A phone with a first version on it, and a second that changes, adds and removes files, folders and a conffile.
class BrokenOffTest : public InstallTest {
protected:
    void SetUp() override {
        InstallTest::SetUp();
        DebBuilder old = packageWith("1.0", {{"a", "1"}, {"gone", "1"}, {"kept.plist", "1"}});
        old.information["conffiles"] = "/Library/Test/kept.plist\n";
        old.files.push_back(debFolder("./Library/Test/folder"));
        old.files.push_back({"./Library/Test/folder/gone", "1"});
        old.files.push_back({"./Library/Test/turns", "1"});
        ASSERT_EQ(install(old), 0) << errors;
        folder.write("root/Library/Test/kept.plist", "mine");
        DebBuilder next = packageWith("2.0", {{"a", "2"}, {"kept.plist", "2"}});
        next.information["conffiles"] = old.information["conffiles"];
        next.files.push_back(debFolder("./Library/Test/new"));
        next.files.push_back({"./Library/Test/new/b", "2"});
        next.files.push_back(debLink("./Library/Test/new/link", "b"));
        next.files.push_back(debFolder("./Library/Test/turns"));
        next.files.push_back({"./Library/Test/turns/c", "2"});
        package = folder.write("next.deb", next.bytes());
        fs::rename(root(), folder.path("pristine"));
        before = snapshot(folder.path("pristine"));
        begin();
        installPackage(root(), package);
        after = snapshot(root());
    }
    /// The first version again.
    void begin() {
        fs::remove_all(root());
        fs::copy(folder.path("pristine"), root(), fs::copy_options::recursive | fs::copy_options::copy_symlinks);
    }
    /// Runs it in a process that ends at its nth change; true when it got so far.
    bool breaksOff(int calls, const std::function<void()>& change) {
        const pid_t child = fork();
        if (child == 0) {
            SystemFaults::after(SystemFaults::Kind::Crash, calls);
            change();
            _exit(0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFEXITED(status));
        return WEXITSTATUS(status) == SystemFaults::crashed;
    }
    /// What the next installation does before it looks at anything else.
    void mend() { EXPECT_THROW(removePackage(root(), "none"), InputError); }

    std::string package;
    std::map<std::string, std::string> before;
    std::map<std::string, std::string> after;
};

constexpr int most = 1000;

} // namespace

TEST_F(BrokenOffTest, ADiskThatFailsLeavesTheOldVersion) {
    int refused = 0;
    for (int calls = 0; calls < most; ++calls) {
        begin();
        SystemFaults::after(SystemFaults::Kind::Fail, calls);
        bool isInstalled = true;
        try {
            installPackage(root(), package);
        } catch (const InputError&) {
            isInstalled = false;
            ++refused;
        }
        const bool isOver = SystemFaults::kind != SystemFaults::Kind::None;
        SystemFaults::kind = SystemFaults::Kind::None;
        if (!isInstalled) {
            EXPECT_EQ(snapshot(root()), before) << calls;
        } else {
            mend(); // the folder of what is new may be left
            EXPECT_EQ(snapshot(root()), after) << calls;
        }
        if (isOver) {
            EXPECT_GT(refused, 20);
            return;
        }
    }
    FAIL() << "the installation never ends";
}

TEST_F(BrokenOffTest, ACrashIsMendedByTheNextInstallation) {
    for (int calls = 0; calls < most; ++calls) {
        begin();
        if (!breaksOff(calls, [&] { installPackage(root(), package); })) {
            EXPECT_GT(calls, 30);
            return;
        }
        mend();
        const auto mended = snapshot(root());
        EXPECT_TRUE(mended == before || mended == after) << calls;

        installPackage(root(), package);
        EXPECT_EQ(file("/Library/Test/turns/c"), "2");
        EXPECT_EQ(file("/Library/Test/kept.plist"), "mine");
        EXPECT_FALSE(has("/Library/Test/gone"));
        EXPECT_FALSE(has("/Library/dpkg/unpacking"));
    }
    FAIL() << "the installation never ends";
}

TEST_F(BrokenOffTest, ACrashWhileMendingIsMendedToo) {
    int broken = 0;
    for (int first = 10; first < most; first += 7) {
        begin();
        if (!breaksOff(first, [&] { installPackage(root(), package); })) {
            EXPECT_GT(broken, 20);
            return;
        }
        const auto half = folder.path("half");
        fs::remove_all(half);
        fs::copy(root(), half, fs::copy_options::recursive | fs::copy_options::copy_symlinks);
        for (int second = 0; second < most; ++second) {
            fs::remove_all(root());
            fs::copy(half, root(), fs::copy_options::recursive | fs::copy_options::copy_symlinks);
            if (!breaksOff(second, [&] {
                    try {
                        removePackage(root(), "none");
                    } catch (const InputError&) {
                    }
                })) {
                break;
            }
            ++broken;
            mend();
            const auto mended = snapshot(root());
            EXPECT_TRUE(mended == before || mended == after) << first << " " << second;
        }
    }
    FAIL() << "the installation never ends";
}

TEST_F(BrokenOffTest, ARemovalIsCarriedOutAsAWholeToo) {
    for (int calls = 0; calls < most; ++calls) {
        begin();
        if (!breaksOff(calls, [&] { removePackage(root(), "mirelda.test"); })) {
            EXPECT_GT(calls, 10);
            return;
        }
        mend();
        EXPECT_TRUE(snapshot(root()) == before || !has("/Library/Test/a")) << calls;
    }
    FAIL() << "the removal never ends";
}
