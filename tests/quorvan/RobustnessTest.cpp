// Whatever stands in the files that a call depends on: the call goes on, and what was typed is saved.

#include "phone/foundation/FileFaults.h"
#include "tests/quorvan/BrokenFiles.h"
#include "tests/quorvan/CallTest.h"

#include <gtest/gtest.h>

namespace {

using phone::FileFaults;

constexpr const char* preferences = "/var/mobile/Library/Preferences/Mirelda.Quorvan.plist";
constexpr const char* resourceFolder = "/Library/Quorvan";

std::vector<BrokenFile> operator+(std::vector<BrokenFile> all, const std::vector<BrokenFile>& more) {
    all.insert(all.end(), more.begin(), more.end());
    return all;
}

/// What may stand where a folder is looked for.
std::vector<BrokenFile> notFolders() {
    auto files = brokenFiles();
    std::erase_if(files, [](const BrokenFile& file) { return file.name == "CutInHalf"; });
    return files;
}

// What the files hold is text, numbers or truth values; these are none of what is looked for.
constexpr const char* otherTypes[] = {
    "<array><string>a</string></array>",
    "<dict><key>a</key><true/></dict>",
    "<data>AAAA</data>",
    "<date>2026-03-05T14:37:12Z</date>",
    "<real>1e400</real>",
};

std::string dictionary(const std::vector<std::string>& keys, const std::string& value) {
    std::string entries;
    for (const std::string& key : keys) {
        entries += "<key>" + key + "</key>" + value;
    }
    return "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict>" + entries + "</dict></plist>";
}

class NotesUnderStress : public CallTest {
protected:
    static std::string kept() { return resource("noteText.plist"); }
    static std::string words() { return resource("Translations.bundle/en.lproj/Localizable.strings"); }

    /// From the call screen: a note is typed and saved, one cancelled, and one more saved.
    void expectNotesAreSafe() {
        expectSaves("milk");
        openSheet();
        openNote();
        typeNote("eggs");
        cancel();
        EXPECT_FALSE(panel());
        expectSaves("bread");
    }
    void expectSaves(const std::string& text) {
        const std::size_t before = notes().size();
        openSheet();
        openNote();
        ASSERT_TRUE(noteText());
        takeAwayText();
        typeNote(text);
        done();
        ASSERT_EQ(notes().size(), before + 1);
        EXPECT_EQ(notes().back().content, text);
        EXPECT_FALSE(panel());
        EXPECT_TRUE(isVisible("mute")) << "the call screen is gone";
    }

private:
    /// What was kept of another note.
    void takeAwayText() {
        if (shownText() == "  Note") {
            return;
        }
        touchAndWait(noteText());
        for (std::size_t left = shownText().size(); left > 0; --left) {
            key("backspace");
        }
    }
};

/// What is read anew at every opening can be broken in every way in turn.
class BrokenResources : public NotesUnderStress {};

TEST_F(BrokenResources, AKeptTextLeavesTheTypedTextSafe) {
    turnOn({2, 3});
    start();
    startCall();

    for (const BrokenFile& broken : brokenFiles() + brokenPropertyLists()) {
        SCOPED_TRACE(broken.name);
        broken.put(hostPath(kept()));
        expectSaves("milk");
    }
}

TEST_F(BrokenResources, ACancelledNoteEndsWhateverTheKeptTextIs) {
    turnOn({2});
    start();
    startCall();

    for (const BrokenFile& broken : brokenFiles()) {
        SCOPED_TRACE(broken.name);
        broken.put(hostPath(kept()));
        openSheet();
        openNote();
        cancel();
        EXPECT_TRUE(isVisible("mute"));
    }
}

TEST_F(BrokenResources, PreferencesLeaveTheTypedTextSafe) {
    start();
    startCall();

    for (const BrokenFile& broken : brokenFiles() + brokenPropertyLists()) {
        SCOPED_TRACE(broken.name);
        turnOn({1, 2, 3});
        broken.put(hostPath(preferences));
        expectSaves("milk");
        remove(preferences);
    }
}

TEST_F(BrokenResources, PicturesLeaveTheTypedTextSafe) {
    start();
    startCall();

    for (const BrokenFile& broken : brokenFiles()) {
        SCOPED_TRACE(broken.name);
        for (const char* name : {"bg", "arrow", "back", "notes", "Events", "Reminders"}) {
            broken.put(hostPath(resource(std::string(name) + ".png")));
            broken.put(hostPath(resource(std::string(name) + "@2x.png")));
        }
        expectSaves("milk");
    }
}

/// What is read once in the process's life. The parameter is how it is broken.
class BrokenWords : public NotesUnderStress, public testing::WithParamInterface<BrokenFile> {
protected:
    void breakFile(const std::string& devicePath) { GetParam().put(hostPath(devicePath)); }
};

std::string nameOf(const testing::TestParamInfo<BrokenFile>& info) { return info.param.name; }

TEST_P(BrokenWords, LeaveTheTypedTextSafe) {
    breakFile(words());
    breakFile(resource("Translations.bundle/Info.plist"));
    start();
    startCall();

    expectNotesAreSafe();
}

INSTANTIATE_TEST_SUITE_P(Files, BrokenWords, testing::ValuesIn(brokenFiles() + brokenPropertyLists()), nameOf);

class BrokenBundle : public BrokenWords {};

TEST_P(BrokenBundle, InPlaceOfTheFolderLeavesTheTypedTextSafe) {
    breakFile(resource("Translations.bundle"));
    start();
    startCall();

    expectNotesAreSafe();
}

INSTANTIATE_TEST_SUITE_P(Files, BrokenBundle, testing::ValuesIn(notFolders()), nameOf);

/// Each test breaks files in a way of its own.
class TypedText : public NotesUnderStress {
protected:
    /// From one cut to the next, in bytes; the parsers' own tests cut everywhere.
    static constexpr std::size_t stride = 11;

    std::string keptFile() { return read(kept()); }
};

TEST_F(TypedText, IsSafeHoweverTheKeptTextIsCutShort) {
    turnOn({2, 3});
    keepText("<string>milk</string>", "<string>Shopping</string>");
    const std::string xml = keptFile();
    const std::string binary = binaryPropertyList({{"Title", "milk"}, {"Header", "Shopping"}});
    start();
    startCall();

    for (const std::string& whole : {xml, binary}) {
        for (std::size_t length = 0; length < whole.size(); length += stride) {
            write(kept(), whole.substr(0, length));
            openSheet();
            openNote();
            ASSERT_TRUE(shownText() == "  Note" || shownText() == "milk") << "cut at " << length;
            cancel();
        }
    }

    expectNotesAreSafe();
}

TEST_F(TypedText, IsSafeHoweverThePreferencesAreCutShort) {
    turnOn({1, 2, 3});
    const std::string whole = read(preferences);
    start();
    startCall();

    for (std::size_t length = 0; length < whole.size(); length += stride) {
        write(preferences, whole.substr(0, length));
        openSheet();
        openNote();
        ASSERT_TRUE(noteText()) << "cut at " << length;
        cancel();
    }

    expectNotesAreSafe();
}

TEST_F(TypedText, IsSafeHoweverAPictureIsCutShort) {
    const std::string whole = read(resource("arrow@2x.png"));
    remove(resource("arrow.png"));
    start();
    startCall();

    for (std::size_t length = 0; length < whole.size(); length += stride) {
        write(resource("arrow@2x.png"), whole.substr(0, length));
        openSheet();
        openNote();
        ASSERT_TRUE(noteText()) << "cut at " << length;
        cancel();
    }

    expectNotesAreSafe();
}

TEST_F(TypedText, IsSafeWhenEveryPreferenceIsOfAnotherType) {
    start();
    startCall();

    for (const char* value : otherTypes) {
        SCOPED_TRACE(value);
        write(preferences, dictionary({"SwitchCell1", "SwitchCell2", "SwitchCell3"}, value));
        expectSaves("milk");
    }
}

TEST_F(TypedText, IsSafeWhenEveryKeptTextIsOfAnotherType) {
    turnOn({2, 3});
    start();
    startCall();

    for (const char* value : otherTypes) {
        SCOPED_TRACE(value);
        write(kept(), dictionary({"Title", "Header"}, value));
        expectSaves("milk");
    }
}

TEST_F(TypedText, IsSafeWhenNoWordIsAText) {
    write(words(), dictionary({"Note", "Title", "Done", "Cancel", "Account", "Default", "Back", "Event", "Reminder"},
                              "<array><string>Done</string></array>"));
    start();
    startCall();

    expectNotesAreSafe();
}

TEST_F(TypedText, IsSafeWhereNoResourceCanBeOpened) {
    start();
    startCall();
    const FileFaults unreadable(FileFaults::Disk::Unreadable, resourceFolder);

    expectNotesAreSafe();
}

TEST_F(TypedText, IsSafeWhereThePreferencesCannotBeOpened) {
    turnOn({1, 2, 3});
    start();
    startCall();
    const FileFaults unreadable(FileFaults::Disk::Unreadable, preferences);

    expectNotesAreSafe();
}

TEST_F(TypedText, IsSafeWhereTheResourcesCannotBeChanged) {
    turnOn({2});
    keepText("<string>kept</string>", "<string>Title</string>");
    start();
    startCall();
    {
        const FileFaults readOnly(FileFaults::Disk::ReadOnly, resourceFolder);
        expectNotesAreSafe();
    }

    EXPECT_EQ(keptText(), "kept|Title");
}

TEST_F(TypedText, IsSafeWithoutAnyResource) {
    remove(resourceFolder);
    start();
    startCall();

    expectNotesAreSafe();
}

TEST_F(TypedText, KeptByAnotherProgramInABinaryListIsShown) {
    turnOn({2, 3});
    write(kept(), binaryPropertyList({{"Title", "milk"}, {"Header", "Shopping"}}));
    start();
    startNote();

    EXPECT_EQ(shownText(), "milk");
    EXPECT_EQ(shownTitle(), "Shopping");
}

TEST_F(TypedText, IsWordedByABinaryTable) {
    write(words(), binaryPropertyList({{"Done", "Ready"}}));
    start();
    startNote();

    EXPECT_TRUE(isVisible("Ready"));
}

} // namespace
