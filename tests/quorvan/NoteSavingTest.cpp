#include "phone/notes/NotesFramework.h"
#include "tests/quorvan/CallTest.h"
#include "tests/quorvan/Overhear.h"
#include "tests/quorvan/Screens.h"

#include <gtest/gtest.h>

namespace {

class NoteSaving : public CallTest {
protected:
    std::size_t writesOfKeptText() {
        std::size_t count = 0;
        for (const auto& entry : log("file")) {
            count += entry.at("action") == "write" && entry.at("path") == "/Library/Quorvan/noteText.plist";
        }
        return count;
    }
    bool isBackOnTheCallScreen() { return !panel(); }
};

TEST_F(NoteSaving, ATypedNoteStandsInTheStore) {
    start();
    startNote();
    typeNote("milk\neggs");

    done();

    ASSERT_EQ(notes().size(), 1U);
    const phone::NoteRow note = notes()[0];
    EXPECT_EQ(note.title, "milk");
    EXPECT_EQ(note.content, "milk\neggs");
    EXPECT_EQ(note.summary, "milk\neggs");
    EXPECT_TRUE(note.isPlainText);
    EXPECT_EQ(note.store, "LOCAL_NOTES_ACCOUNT");
    EXPECT_EQ(note.created, note.modified);
    ASSERT_TRUE(note.created.has_value());
    EXPECT_DOUBLE_EQ(*note.created, phone::settings().now - 978307200);
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(NoteSaving, ALineBreakEndsTheTitleThoughAMarkFollowsIt) {
    turnOn({2});
    keepText("<string>milk\n\u0301eggs</string>", "<string>Title</string>");
    start();
    startNote();

    done();

    ASSERT_EQ(notes().size(), 1U);
    EXPECT_EQ(notes()[0].title, "milk");
    EXPECT_EQ(notes()[0].content, "milk\n\u0301eggs");
}

TEST_F(NoteSaving, ATitleIsPutBeforeTheText) {
    turnOn({3});
    start();
    startNote();
    typeTitle("Shopping");
    typeNote("milk\neggs");

    done();

    ASSERT_EQ(notes().size(), 1U);
    EXPECT_EQ(notes()[0].title, "Shopping");
    EXPECT_EQ(notes()[0].content, "Shopping\nmilk\neggs");
    EXPECT_EQ(notes()[0].summary, "milk\neggs");
}

TEST_F(NoteSaving, AnEmptyTitleFieldLeavesTheFirstLineAsTitle) {
    turnOn({3});
    start();
    startNote();
    typeNote("milk\neggs");

    done();

    ASSERT_EQ(notes().size(), 1U);
    EXPECT_EQ(notes()[0].title, "milk");
    EXPECT_EQ(notes()[0].content, "milk\neggs");
}

TEST_F(NoteSaving, ATitleTypedBeforeItsSwitchWasTurnedOffIsNotUsed) {
    turnOn({3});
    start();
    startNote();
    typeTitle("Shopping");
    typeNote("milk\neggs");
    turnOn({});

    done();

    ASSERT_EQ(notes().size(), 1U);
    EXPECT_EQ(notes()[0].title, "milk");
    EXPECT_EQ(notes()[0].content, "milk\neggs");
}

TEST_F(NoteSaving, ATextThatBeginsWithALineBreakHasAnEmptyTitle) {
    start();
    startNote();
    typeNote("\nmilk");

    done();

    ASSERT_EQ(notes().size(), 1U);
    EXPECT_EQ(notes()[0].title, "");
    EXPECT_EQ(notes()[0].content, "\nmilk");
}

TEST_F(NoteSaving, ThePlaceholderAloneIsNotSaved) {
    turnOn({2});
    keepText("<string></string>", "<string>Kept</string>");
    start();
    startNote();

    done();

    EXPECT_TRUE(notes().empty());
    EXPECT_EQ(keptText(), "|Kept");
    EXPECT_EQ(writesOfKeptText(), 0U);
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(NoteSaving, AnEmptiedTextIsNotSaved) {
    start();
    startNote();
    typeNote("ab");
    key("backspace");
    key("backspace");

    done();

    EXPECT_TRUE(notes().empty());
    EXPECT_EQ(writesOfKeptText(), 0U);
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(NoteSaving, ATypedTextEqualToThePlaceholderCountsAsEmpty) {
    start();
    startNote();
    typeNote("  Note");

    done();

    EXPECT_TRUE(notes().empty());
}

TEST_F(NoteSaving, WhatWasInsertedAndNotSavedLeavesNoTrace) {
    start();
    startNote();
    done();
    openSheet();
    openNote();
    typeNote("milk");

    done();

    EXPECT_EQ(notes().size(), 1U);
}

TEST_F(NoteSaving, TheFadeIsFollowedByTheActivitysEnd) {
    start();
    startNote();
    typeNote("milk");

    done();

    std::vector<std::string> order;
    for (const auto& entry : log()) {
        if (entry.at("what") == "store" && entry.at("message") == "saveOutsideApp:") {
            order.emplace_back("save");
        } else if (entry.at("what") == "file" && entry.at("action") == "write") {
            order.emplace_back("reset");
        } else if (entry.at("what") == "animation" && !order.empty() && order.back() == "reset" &&
                   entry.at("duration") == 0.3) {
            order.emplace_back("fade");
        } else if (entry.at("what") == "finish") {
            order.emplace_back("finish");
        }
    }
    EXPECT_EQ(order, (std::vector<std::string>{"save", "reset", "fade", "finish"}));
}

TEST_F(NoteSaving, DoneResetsTheKeptTextToTheLiteralPlaceholdersInEveryLanguage) {
    turnOn({2});
    keepText("<string>Milch</string>", "<string>Einkauf</string>");
    start({.language = "de"});
    startNote();

    done();

    ASSERT_EQ(notes().size(), 1U);
    EXPECT_EQ(notes()[0].content, "Milch");
    EXPECT_EQ(keptText(), "  Note|Title");
    EXPECT_EQ(writesOfKeptText(), 1U);
}

TEST_F(NoteSaving, ASecondTapOnDoneDuringTheFadeSavesNothingMore) {
    start();
    startNote();
    typeNote("milk");
    const auto doneButton = find("Done");

    tapOn(doneButton);
    tapOn(doneButton);
    settle();

    EXPECT_EQ(notes().size(), 1U);
    EXPECT_EQ(logged("finish", "class").size(), 1U);
}

// Holds: notes-framework
TEST_F(NoteSaving, TheFrameworkIsLoadedWhenTheStoreIsFirstNeeded) {
    start();
    startNote();
    typeNote("milk");
    EXPECT_EQ(objc_getClass("NoteContext"), nullptr);

    done();

    EXPECT_NE(objc_getClass("NoteContext"), nullptr);
    EXPECT_EQ(notes().size(), 1U);
}

TEST_F(NoteSaving, AMissingFrameworkEndsTheNoteAllTheSame) {
    remove(phone::NotesFramework::devicePath);
    start();
    startNote();
    typeNote("milk");
    touchAndWait("Account");
    EXPECT_EQ(rows(chooser("NoteAccountController")).size(), 0U);
    goBack();

    done();

    EXPECT_TRUE(notes().empty());
    EXPECT_TRUE(isBackOnTheCallScreen());
    EXPECT_EQ(logged("finish", "completed"), (std::vector<std::string>{"true"}));
}

TEST_F(NoteSaving, AMissingStoreFileEndsTheNoteAllTheSame) {
    start();
    remove(phone::NotesDatabase::devicePath);
    startNote();
    typeNote("milk");

    done();

    EXPECT_TRUE(isBackOnTheCallScreen());
    EXPECT_EQ(logged("finish", "completed"), (std::vector<std::string>{"true"}));
}

TEST_F(NoteSaving, TextOfEveryScriptIsSavedAsTyped) {
    start();
    startNote();
    typeNote("Grüße, 你好 👩‍👩‍👧 é");

    done();

    ASSERT_EQ(notes().size(), 1U);
    EXPECT_EQ(notes()[0].content, "Grüße, 你好 👩‍👩‍👧 é");
}

class Cancelling : public NoteSaving {};

TEST_F(Cancelling, WithTheSwitchOffWritesNothing) {
    start();
    startNote();
    typeNote("milk");

    cancel();

    EXPECT_EQ(writesOfKeptText(), 0U);
    EXPECT_EQ(keptText(), "  Note|Title");
    EXPECT_TRUE(notes().empty());
    EXPECT_TRUE(isBackOnTheCallScreen());
}

TEST_F(Cancelling, WithTheSwitchOnKeepsTheTextWithTwoWrites) {
    turnOn({2});
    start();
    startNote();
    typeNote("milk\neggs");

    cancel();

    EXPECT_EQ(keptText(), "milk\neggs|Title");
    EXPECT_EQ(writesOfKeptText(), 2U);
}

TEST_F(Cancelling, ReadsTheTextOnceForBothWrites) {
    turnOn({2});
    start();
    startNote();
    overhear<"UITextView", "text", id>();

    run([] { screenAt(0).send<"cancel:">(UIViewController()); }); // nothing else reads it meanwhile

    EXPECT_EQ(heard().size(), 1U);
}

TEST_F(Cancelling, KeepsTheTitleToo) {
    turnOn({2, 3});
    start();
    startNote();
    typeTitle("Shopping");
    typeNote("milk");

    cancel();

    EXPECT_EQ(keptText(), "milk|Shopping");
}

TEST_F(Cancelling, WithTheTitlesSwitchOffWritesNoTitleWhateverTheFieldHolds) {
    turnOn({2, 3});
    start();
    startNote();
    typeTitle("Shopping");
    typeNote("milk");
    turnOn({2});

    cancel();

    EXPECT_EQ(keptText(), "milk|Title");
}

TEST_F(Cancelling, ATitleEqualToItsPlaceholderIsNotKept) {
    turnOn({2, 3});
    start({.language = "de"});
    startNote();
    typeTitle("Titel");
    typeNote("Milch");

    cancel();

    EXPECT_EQ(keptText(), "Milch|Title");
}

TEST_F(Cancelling, AnUntouchedTextIsKeptAsTheLocalizedPlaceholderAndReadAsNothing) {
    turnOn({2});
    start({.language = "de"});
    startNote();
    cancel();
    EXPECT_EQ(keptText(), "  Notiz|Title");

    openSheet();
    openNote();

    EXPECT_EQ(attribute(noteText(), "text"), "  Notiz");
    EXPECT_EQ(attribute(noteText(), "textColor"), "#c0c0c0ff");
}

TEST_F(Cancelling, WhatWasKeptIsThereTheNextTime) {
    turnOn({2, 3});
    start();
    startNote();
    typeTitle("Shopping");
    typeNote("milk");
    cancel();

    openSheet();
    openNote();

    EXPECT_EQ(attribute(noteText(), "text"), "milk");
    EXPECT_EQ(attribute(titleField(), "text"), "Shopping");
}

} // namespace
