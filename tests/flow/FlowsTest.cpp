// The flows of the main job, one after the other on one phone, as `script/run` plays them.

#include "tests/flow/WholePhone.h"

#include <algorithm>
#include <filesystem>
#include <map>

namespace phone {
namespace {

class Flows : public WholePhone {
protected:
    /// The flows of the folder, in the order of a shell's pattern.
    static std::vector<std::string> inFolder(const std::string& folder) {
        std::vector<std::string> files;
        for (const auto& entry : std::filesystem::directory_iterator(SOURCE_DIRECTORY "/" + folder)) {
            if (entry.path().extension() == ".yaml") {
                files.push_back(entry.path().string());
            }
        }
        std::sort(files.begin(), files.end());
        return files;
    }
    /// How many records have each value.
    std::map<std::string, int> counted(const char* kind, const char* key) const {
        std::map<std::string, int> counts;
        for (const auto& record : recorded(kind)) {
            ++counts[record.at(key).get<std::string>()];
        }
        return counts;
    }
    using Counts = std::map<std::string, int>;

    void expectRecordsOfTheMainJob() const {
        EXPECT_EQ(counted("reminders", "title"),
                  (Counts{{"Anna 1", 4}, {"Angebot schicken", 1}, {"Send the offer", 1}}));
        EXPECT_EQ(counted("events", "title"), (Counts{{"Anna 2", 4}, {"Lunch with Anna", 1}}));
        EXPECT_EQ(counted("notes", "title").at("Anna"), 4);
        EXPECT_EQ(recorded("notes").size(), 10U);
    }
};

TEST_F(Flows, OfTheMainJobLeaveRecordsOfAllKinds) {
    make();

    playFiles(inFolder("flows"));

    expectRecordsOfTheMainJob();
}

// The library as the device has it, in the device's object format.
TEST_F(Flows, OfTheMainJobLeaveTheSameWithTheDevicesLibrary) {
    make();
    installLibrary(root(), SLICE);

    playFiles(inFolder("flows"));

    expectRecordsOfTheMainJob();
}

TEST_F(Flows, OfTheMainJobLeaveTheSameWhileTheStoreAnswersConcurrently) {
    make();

    playConcurrently(inFolder("flows"));

    expectRecordsOfTheMainJob();
}

TEST_F(Flows, OfTheGalleryHold) {
    make();

    playFiles(inFolder("flows/gallery"));

    EXPECT_EQ(recorded("events").size(), 2U);
}

TEST_F(Flows, OfTheGalleryHoldWhileTheStoreAnswersConcurrently) {
    make();

    playConcurrently(inFolder("flows/gallery"));

    EXPECT_EQ(recorded("events").size(), 2U);
}

} // namespace
} // namespace phone
