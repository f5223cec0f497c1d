#include "platform/uikit/UIActivity.h"
#include "platform/uikit/UINavigationController.h"
#include "tests/quorvan/CallTest.h"

#include <gtest/gtest.h>

namespace {

struct Values {
    const char* className;
    const char* title;
    const char* type;
    bool hasImage;
};

constexpr Values all[] = {
    {"NoteTaking", "Note", "com.tovesk.notetaking", true},
    {"ReminderMake", "Reminder", "com.tovesk.remindermake", true},
    {"EventCreate", "Event", "com.tovesk.calendarevent", true},
};

class ShareActivities : public CallTest {
protected:
    /// The classes exist once the sheet was opened.
    void startWithClasses(const Start& with) {
        start(with);
        startCall();
        openSheet();
    }
    static UIActivity make(const char* className) {
        id made = objc::detail::call<id>(reinterpret_cast<id>(objc_getClass(className)), objc::selector<"alloc">());
        return objc::adopt<UIActivity>(objc::detail::call<id>(made, objc::selector<"init">()));
    }
};

TEST_F(ShareActivities, TellTheirTitleTypeAndPicture) {
    startWithClasses({});

    for (const Values& values : all) {
        const auto activity = make(values.className);
        ASSERT_TRUE(activity) << values.className;
        EXPECT_STREQ(activity.activityTitle().UTF8String(), values.title);
        EXPECT_STREQ(activity.activityType().UTF8String(), values.type);
        EXPECT_EQ(static_cast<bool>(activity.activityImage()), values.hasImage) << values.className;
    }
}

TEST_F(ShareActivities, AreOfferedForAnyItems) {
    startWithClasses({});

    for (const Values& values : all) {
        const auto activity = make(values.className);
        EXPECT_TRUE(activity.canPerform(objc::make<NSMutableArray>()));
        EXPECT_TRUE(activity.canPerform(NSArray::of("text"_ns, objc::make<NSObject>())));
        EXPECT_TRUE(activity.canPerform(nullptr));
    }
}

TEST_F(ShareActivities, TakeNothingFromTheItems) {
    startWithClasses({});

    for (const Values& values : all) {
        make(values.className).prepare(NSArray::of("text"_ns, objc::make<NSObject>()));
    }

    EXPECT_EQ(log("exception").size(), 0U);
}

TEST_F(ShareActivities, SpeakThePersonsLanguage) {
    startWithClasses({.language = "de"});

    EXPECT_STREQ(make("NoteTaking").activityTitle().UTF8String(), "Notiz");
    EXPECT_STREQ(make("ReminderMake").activityTitle().UTF8String(), "Erinnerung");
    EXPECT_STREQ(make("EventCreate").activityTitle().UTF8String(), "Ereignis");
}

TEST_F(ShareActivities, AMissingBundleShowsTheKeys) {
    remove(resource("Translations.bundle"));
    startWithClasses({.language = "de"});

    EXPECT_TRUE(find("Note"));
    EXPECT_TRUE(find("Reminder"));
    EXPECT_TRUE(find("Event"));
}

TEST_F(ShareActivities, AMissingPictureLeavesTheActivityOffered) {
    remove(resource("notes.png"));
    remove(resource("notes@2x.png"));
    startWithClasses({});
    EXPECT_FALSE(make("NoteTaking").activityImage());

    openNote();

    EXPECT_TRUE(panel());
}

TEST_F(ShareActivities, EverySelectionMakesAComposeScreenOfItsOwn) {
    startWithClasses({});
    const auto activity = make("NoteTaking");

    const auto first = activity.activityViewController();
    const auto second = activity.activityViewController();

    EXPECT_TRUE(objc::isKind<UINavigationController>(first));
    EXPECT_NE(first, second);
    const auto firstNote = objc::as<UINavigationController>(first).topViewController();
    const auto secondNote = objc::as<UINavigationController>(second).topViewController();
    EXPECT_NE(firstNote, secondNote);
    EXPECT_EQ((firstNote.send<"activity", UIActivity>()), activity);
    EXPECT_EQ((secondNote.send<"activity", UIActivity>()), activity);
}

TEST_F(ShareActivities, ASecondNoteInOneProcessStartsAfresh) {
    start();
    startNote();
    typeNote("first");
    cancel();

    openSheet();
    openNote();

    EXPECT_EQ(attribute(noteText(), "text"), "  Note");
}

TEST_F(ShareActivities, DoneAndCancelBothEndTheActivityAsCompleted) {
    start();
    startNote();
    cancel();
    openSheet();
    openNote();
    typeNote("milk");
    done();

    EXPECT_EQ(logged("finish", "class"), (std::vector<std::string>{"NoteTaking", "NoteTaking"}));
    EXPECT_EQ(logged("finish", "completed"), (std::vector<std::string>{"true", "true"}));
}

TEST_F(ShareActivities, TheActivityEndsWhenTheFadeOutIsOver) {
    start();
    startNote();

    tapOn("Cancel");
    advance(0.25);
    EXPECT_TRUE(logged("finish", "class").empty());
    advance(0.1);

    EXPECT_EQ(logged("finish", "class").size(), 1U);
    const auto entries = log();
    const auto finish =
        std::find_if(entries.begin(), entries.end(), [](const auto& e) { return e.at("what") == "finish"; });
    const auto fade = std::find_if(std::make_reverse_iterator(finish), entries.rend(),
                                   [](const auto& e) { return e.at("what") == "animation"; });
    ASSERT_NE(fade, entries.rend());
    EXPECT_EQ(fade->at("duration"), 0.3);
    EXPECT_EQ(fade->at("options"), 2);
}

} // namespace
