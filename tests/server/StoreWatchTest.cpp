#include "phone/server/StoreWatch.h"

#include "phone/eventkit/CalendarFolder.h"
#include "phone/flow/NewPhone.h"
#include "phone/flow/Records.h"
#include "tests/flow/TemporaryFolder.h"

#include <condition_variable>
#include <gtest/gtest.h>
#include <mutex>

using namespace phone;

namespace {

/// A new phone's stores.
struct StoresFolder : TemporaryFolder {
    StoresFolder() { makePhone(path("root"), STAGE_DIRECTORY, Stores{}); }
};

class StoreWatchTest : public testing::Test {
protected:
    /// Whether a change is told of within so many milliseconds.
    bool hearsOfAChange(int milliseconds) {
        std::unique_lock lock(mutex);
        const bool heard = news.wait_for(lock, std::chrono::milliseconds(milliseconds), [&] { return changed; });
        changed = false;
        return heard;
    }

    StoresFolder folder;
    std::mutex mutex;
    std::condition_variable news;
    bool changed = false;
    StoreWatch watch{{folder.path("root/var/mobile/Library/Notes"), folder.path("root") + CalendarFolder::devicePath},
                     [this] {
                         const std::lock_guard lock(mutex);
                         changed = true;
                         news.notify_all();
                     }};
};

constexpr int longEnough = 30000;
constexpr int aWhile = 300;

} // namespace

TEST_F(StoreWatchTest, TellsOfFilesThatComeAndChange) {
    folder.write("root/var/mobile/Library/Calendar/events/.access", "allow");

    EXPECT_TRUE(hearsOfAChange(longEnough));
}

TEST_F(StoreWatchTest, TellsOfFilesInFoldersThatHaveComeLater) {
    folder.write("root/var/mobile/Library/Calendar/events/new/displayname", "New");
    ASSERT_TRUE(hearsOfAChange(longEnough));
    while (hearsOfAChange(aWhile)) {
    }

    folder.write("root/var/mobile/Library/Calendar/events/new/one.ics", "BEGIN:VCALENDAR");

    EXPECT_TRUE(hearsOfAChange(longEnough));
}

TEST_F(StoreWatchTest, SaysNothingOfThoseWhoOnlyRead) {
    records(folder.path("root"), "UTC");
    records(folder.path("root"), "UTC");

    EXPECT_FALSE(hearsOfAChange(aWhile));
}
