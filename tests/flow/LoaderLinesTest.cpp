// What the loader says of the libraries that it passes over, as a person at the command line sees it.

#include "phone/substrate/Loader.h"
#include "tests/flow/WholePhone.h"

#include <gmock/gmock.h>

namespace phone {
namespace {

class LoaderLines : public WholePhone {
protected:
    static std::string callWithoutTheLibrary() {
        return openSheet() + "- waitForAnimationToEnd\n- assertNotVisible: Note\n";
    }
    static std::string slice() {
        std::ifstream stream(SLICE, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    void put(const std::string& name, const std::string& bytes) {
        folder.write("root" + std::string(librariesFolder) + "/" + name, bytes);
    }
    static std::string line(const std::string& name) {
        return std::string("phone: loader: ") + librariesFolder + "/" + name + ": ";
    }
};

TEST_F(LoaderLines, AreNotThereWhereEverythingIsLoaded) {
    make();

    EXPECT_EQ(play("- launchApp\n"), "");
}

TEST_F(LoaderLines, TellOfARefusedLibraryOnceAndThePlayHolds) {
    make();
    put("Broken.dylib", slice().substr(0, 5000));

    const std::string said = play("- launchApp\n- stopApp\n- launchApp\n");

    EXPECT_EQ(said, line("Broken.dylib") + "not loaded: the file ends before segment __TEXT\n");
}

TEST_F(LoaderLines, SayWhyTheLibraryIsMissingFromTheCall) {
    make();
    put("Quorvan.dylib", "no library");

    const std::string said = play(callWithoutTheLibrary());

    EXPECT_THAT(said, testing::StartsWith(line("Quorvan.dylib") + "not loaded: "));
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
}

TEST_F(LoaderLines, TellOfAFilterThatIsNoPropertyList) {
    make();
    put("Quorvan.plist", "{ Filter = { Bundles = ( ");

    EXPECT_EQ(play(callWithoutTheLibrary()), line("Quorvan.plist") + "no property list; its library is skipped\n");
}

TEST_F(LoaderLines, StandBesideTheFailureThatFollows) {
    make();
    put("Broken.dylib", slice().substr(0, 5000));
    folder.write("flow.yaml", "- launchApp\n- assertVisible: Nobody\n");

    const int status = std::system((BUILD_DIRECTORY "/phone play " + folder.path("flow.yaml") + " --root " + root() +
                                    " --out " + folder.path("out") + " 2> " + folder.path("said"))
                                       .c_str());

    EXPECT_EQ(WEXITSTATUS(status), 1);
    EXPECT_EQ(folder.read("said"), line("Broken.dylib") + "not loaded: the file ends before segment __TEXT\n" +
                                       folder.path("flow.yaml") +
                                       ":2: command 2: assertVisible: \"Nobody\" is not on the screen\n");
}

} // namespace
} // namespace phone
