#include "phone/flow/InputError.h"
#include "phone/packages/Installer.h"
#include "phone/packages/Package.h"
#include "phone/packages/PackageError.h"
#include "tests/packages/InstallTest.h"

#include <functional>
#include <random>

using namespace phone;

namespace fs = std::filesystem;

namespace {

/// Broken variants of a package, the same at every run. Each is refused and changes nothing, or is sound after all.
class BrokenPackageTest : public InstallTest {
protected:
    void SetUp() override {
        InstallTest::SetUp();
        whole = packageWith("1.0", {{"a", "first"}, {"b", "second"}});
        whole.files.push_back(debLink("./Library/Test/link", "a"));
        whole.files.push_back({"./Library/Test/hard", "", 0644, 0, 0, AE_IFREG, "./Library/Test/a"});
        whole.files.push_back({"./Library/Test/" + std::string(120, 'n'), "long"});
        whole.information["conffiles"] = "/Library/Test/b\n";
        whole.furtherFields = "Depends: mobilesubstrate (>= 0.9), firmware | other\n";
    }
    unsigned below(std::size_t limit) {
        return std::uniform_int_distribution<unsigned>(0, static_cast<unsigned>(limit) - 1)(random);
    }
    /// A few bytes changed, taken out, doubled or cut off.
    std::string broken(std::string bytes) {
        for (unsigned times = 1 + below(3); times > 0 && bytes.size() > 1; --times) {
            const std::size_t at = below(bytes.size());
            switch (below(5)) {
            case 0:
                bytes[at] = static_cast<char>(bytes[at] ^ (1U << below(8)));
                break;
            case 1:
                bytes[at] = static_cast<char>(below(256));
                break;
            case 2:
                bytes.erase(at, 1 + below(16));
                break;
            case 3:
                bytes.insert(at, bytes.substr(at, 1 + below(600)));
                break;
            default:
                bytes.resize(at);
                break;
            }
        }
        return bytes;
    }
    /// Installs a sound variant, and expects a broken one to change nothing.
    bool tryToInstall(const std::string& bytes) {
        const auto outside = snapshotOutside();
        try {
            parsePackage(bytes);
        } catch (const PackageError&) {
            return false; // `phone install` reads all of it before it touches anything
        }
        const auto before = snapshot(root());
        bool isInstalled = true;
        try {
            installPackage(root(), folder.write("package.deb", bytes));
        } catch (const InputError& error) {
            EXPECT_EQ(std::string(error.what()).find('\n'), std::string::npos) << error.what();
            EXPECT_EQ(snapshot(root()), before);
            isInstalled = false;
        }
        EXPECT_EQ(snapshotOutside(), outside);
        fs::remove_all(root());
        InstallTest::SetUp();
        return isInstalled;
    }
    /// The names beside the root folder.
    std::vector<std::string> snapshotOutside() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder.path())) {
            if (entry.path().filename() != "package.deb") {
                names.push_back(entry.path().filename());
            }
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    std::mt19937 random{20260305}; // NOLINT: the same at every run
    DebBuilder whole;
};

} // namespace

TEST_F(BrokenPackageTest, InItsOuterBytes) {
    const std::string bytes = whole.bytes();
    ASSERT_TRUE(tryToInstall(bytes));
    int sound = 0;
    for (int number = 0; number < 4000; ++number) {
        sound += tryToInstall(broken(bytes)) ? 1 : 0;
    }
    EXPECT_LT(sound, 1000); // where nothing but a date or an owner of a member changed
}

TEST_F(BrokenPackageTest, InTheArchiveOfItsFiles) {
    whole.compression = "";
    const std::string control = whole.controlTar();
    const std::string data = DebBuilder::tar(whole.files, "");
    ASSERT_TRUE(tryToInstall(whole.with(control, data)));
    for (int number = 0; number < 2000; ++number) {
        tryToInstall(whole.with(control, broken(data)));
    }
}

TEST_F(BrokenPackageTest, InTheArchiveOfItsFilesWithSumsPutRight) {
    whole.compression = "";
    const std::string control = whole.controlTar();
    const std::string data = DebBuilder::tar(whole.files, "");
    constexpr std::size_t block = 512;
    int sound = 0;
    for (int number = 0; number < 500; ++number) {
        std::string changed = data;
        const std::size_t header = below(data.size() / block) * block;
        for (unsigned times = 1 + below(3); times > 0; --times) {
            changed[header + below(345)] = static_cast<char>(below(2) == 0 ? below(256) : "/.0127"[below(6)]);
        }
        changed.replace(header + 148, 8, "        ");
        unsigned sum = 0;
        for (std::size_t at = header; at < header + block; ++at) {
            sum += static_cast<unsigned char>(changed[at]);
        }
        char digits[9] = "";
        std::snprintf(digits, sizeof digits, "%06o", sum);
        changed.replace(header + 148, 7, digits, 7);
        sound += tryToInstall(whole.with(control, changed)) ? 1 : 0;
    }
    EXPECT_GT(sound, 0);
}

TEST_F(BrokenPackageTest, InItsFields) {
    const std::string data = DebBuilder::tar(whole.files, "gz");
    for (int number = 0; number < 1000; ++number) {
        const std::string control =
            DebBuilder::tar({{"./control", broken(whole.control())}, {"./conffiles", "/Library/Test/b\n"}}, "gz");
        tryToInstall(whole.with(control, data));
    }
}

TEST_F(BrokenPackageTest, InTheRecordOfWhatIsInstalled) {
    ASSERT_EQ(install(whole), 0) << errors;
    const std::string status = file("/Library/dpkg/status");
    const std::string list = file("/Library/dpkg/info/mirelda.test.list");
    const std::string next = folder.write("next.deb", packageWith("2.0", {{"a", "2"}}).bytes());
    folder.write("precious", "outside");
    for (int number = 0; number < 500; ++number) {
        folder.write("root/Library/dpkg/status", broken(status));
        folder.write("root/Library/dpkg/info/mirelda.test.list", broken(list) + "/../precious\n");
        const auto before = snapshot(root());
        try {
            installPackage(root(), next);
        } catch (const InputError&) {
            EXPECT_EQ(snapshot(root()), before);
        }
        EXPECT_EQ(folder.read("precious"), "outside");
    }
}
