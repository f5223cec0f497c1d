#include "phone/packages/Installer.h"
#include "tests/flow/WholePhone.h"
#include "tests/packages/DebBuilder.h"

using namespace phone;

namespace fs = std::filesystem;

namespace {

constexpr const char* keptText = "/Library/Quorvan/noteText.plist";

/// The library for this machine in a package, on a phone.
class InstalledLibraryTest : public WholePhone {
protected:
    std::string package() {
        DebBuilder built;
        built.information["conffiles"] = std::string(keptText) + "\n";
        built.files = {debFolder("./"), debFolder("./Library/")};
        for (const auto& entry : fs::recursive_directory_iterator(STAGE_DIRECTORY "/Library")) {
            const std::string name = "./" + entry.path().lexically_relative(STAGE_DIRECTORY).string();
            if (entry.is_directory()) {
                built.files.push_back(debFolder(name, 0755, 501));
            } else {
                std::ifstream stream(entry.path(), std::ios::binary);
                built.files.push_back({name, std::string(std::istreambuf_iterator<char>(stream), {}), 0644, 501, 501});
            }
        }
        return folder.write("library.deb", built.bytes());
    }
    /// Cancels a note whose text is to be kept, on a phone where that is switched on.
    void cancelNote(const std::string& text) {
        play("- setPreferences: {SwitchCell2: true}\n" + open("Note") + "- tapOn: '  Note'\n- inputText: '" + text +
             "'\n- tapOn: Cancel\n- waitForAnimationToEnd\n");
    }
};

} // namespace

TEST_F(InstalledLibraryTest, RunsAndWritesWhatItKeeps) {
    make();
    fs::remove_all(root() + "/Library");
    installPackage(root(), package());

    cancelNote("kept");

    EXPECT_NE(folder.read("root" + std::string(keptText)).find("kept"), std::string::npos);
}

TEST_F(InstalledLibraryTest, KeepsWhatItWroteWhenItIsInstalledOverItself) {
    make();
    cancelNote("kept");
    const auto lines = installPackage(root(), package());

    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0], "mirelda.test 1.0: installed");
    EXPECT_NE(lines[1].find("noteText.plist as it was changed here"), std::string::npos) << lines[1];
    play(open("Note") + "- assertVisible: kept\n");

    removePackage(root(), "mirelda.test");

    EXPECT_FALSE(fs::exists(root() + "/Library/MobileSubstrate/DynamicLibraries/Quorvan.dylib"));
    EXPECT_NE(folder.read("root" + std::string(keptText)).find("kept"), std::string::npos);
    play("- launchApp\n- phoneCall: {number: '1', action: call}\n- tapOn: Accept\n- assertNotVisible: Note\n");
}
