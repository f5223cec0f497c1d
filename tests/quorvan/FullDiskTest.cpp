// A note on a disk that is full: it is lost without a word, and nothing else is.

#include "phone/foundation/FileFaults.h"
#include "phone/notes/Sqlite.h"
#include "platform/uikit/UIPasteboard.h"
#include "tests/quorvan/CallTest.h"

#include <gtest/gtest.h>

namespace {

using phone::FileFaults;
using Disk = FileFaults::Disk;

constexpr const char* wholeDevice = "/";

class FullDisk : public CallTest {
protected:
    void write(const std::string& text) {
        openSheet();
        openNote();
        typeNote(text);
        done();
    }
    bool isBackOnTheCallScreen() { return !panel() && isVisible("mute"); }
    std::vector<std::string> bodies() {
        std::vector<std::string> all;
        for (const auto& note : notes()) {
            all.push_back(note.content.value_or("(none)"));
        }
        return all;
    }
    /// SQLite's own opinion of the whole file: "ok".
    std::string integrity() {
        sqlite3* database = nullptr;
        sqlite3_open(hostPath(phone::NotesDatabase::devicePath).c_str(), &database);
        std::string verdict;
        {
            phone::sqlite::Statement check(database, "PRAGMA integrity_check");
            verdict = check.next() ? check.text(0) : "nothing";
        }
        sqlite3_close(database);
        return verdict;
    }
};

TEST_F(FullDisk, EndsTheNoteWithoutAWord) {
    start();
    startCall();
    {
        const FileFaults full(Disk::Full, wholeDevice);
        write("milk");
        EXPECT_TRUE(isBackOnTheCallScreen());
    }

    EXPECT_EQ(logged("finish", "completed"), (std::vector<std::string>{"true"}));
    EXPECT_TRUE(notes().empty());
    EXPECT_EQ(integrity(), "ok");
}

TEST_F(FullDisk, LeavesEarlierNotesReadable) {
    start();
    startCall();
    write("milk");

    const FileFaults full(Disk::Full, wholeDevice);
    write("eggs");

    EXPECT_EQ(bodies(), (std::vector<std::string>{"milk"}));
    EXPECT_EQ(integrity(), "ok");
}

TEST_F(FullDisk, TakesTheNextNoteWhenThereIsSpaceAgain) {
    start();
    startCall();
    {
        const FileFaults full(Disk::Full, wholeDevice);
        write("milk");
    }

    write("eggs");

    EXPECT_EQ(bodies(), (std::vector<std::string>{"eggs"}));
}

TEST_F(FullDisk, HasANoteWholeOrNotAtAllWhereverTheSpaceEnds) {
    constexpr int step = 4096; // bytes
    start();
    startCall();
    const std::string longText(500, 'a');
    std::size_t saved = 0;
    run([&] { UIPasteboard::general().setString(NSString::utf8(longText.c_str())); });

    for (int space = 0; saved == 0; space += step) {
        {
            const FileFaults full(Disk::Full, wholeDevice, space);
            openSheet();
            openNote();
            touchAndWait(noteText());
            boot().pasteText();
            done();
        }
        ASSERT_TRUE(isBackOnTheCallScreen()) << space;
        ASSERT_EQ(integrity(), "ok") << space;
        saved = notes().size();
        ASSERT_TRUE(saved == 0 || notes().back().content == longText) << space;
        ASSERT_LT(space, 50 * step) << "no space suffices";
    }
}

TEST_F(FullDisk, LeavesTheKeptTextAsItWas) {
    turnOn({2});
    keepText("<string>kept</string>", "<string>Title</string>");
    start();
    startNote();
    typeNote(" and more");
    {
        const FileFaults full(Disk::Full, wholeDevice);
        cancel();
        EXPECT_TRUE(isBackOnTheCallScreen());
    }

    EXPECT_EQ(keptText(), "kept|Title");
    for (const auto& entry : std::filesystem::directory_iterator(hostPath("/Library/Quorvan"))) {
        EXPECT_EQ(entry.path().string().find("noteText.plist."), std::string::npos) << "left behind: " << entry.path();
    }
}

class BrokenDisk : public FullDisk {};

TEST_F(BrokenDisk, ThatCannotBeWrittenEndsTheNoteWithoutAWord) {
    start();
    startCall();
    write("milk");
    {
        const FileFaults readOnly(Disk::ReadOnly, wholeDevice);
        write("eggs");
        EXPECT_TRUE(isBackOnTheCallScreen());
    }

    EXPECT_EQ(bodies(), (std::vector<std::string>{"milk"}));
    EXPECT_EQ(integrity(), "ok");
}

TEST_F(BrokenDisk, WhoseStoreCannotBeOpenedEndsTheNoteWithoutAWord) {
    start();
    startCall();
    {
        const FileFaults unreadable(Disk::Unreadable, "/var/mobile/Library/Notes");
        write("milk");
        EXPECT_TRUE(isBackOnTheCallScreen());
    }

    EXPECT_TRUE(notes().empty());
    EXPECT_EQ(integrity(), "ok");
}

} // namespace
