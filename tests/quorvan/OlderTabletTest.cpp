// A tablet on which the end of an activity leaves its controller where it is, as the first system with a share sheet
// did.
#include "platform/substrate/Substrate.h"
#include "tests/quorvan/CallTest.h"

namespace {

void stay(id, SEL, id, bool) {}

class OlderTablet : public CallTest {
protected:
    void SetUp() override {
        start({.device = "ipad"});
        boot();
        MSHookMessageEx(objc_getClass("UIActivityViewController"), objc::selector<"_activity:finished:">(),
                        reinterpret_cast<IMP>(&stay), nullptr);
    }
    bool shows(const std::string& controller) {
        return !tree().select_nodes(("//*[@controller='" + controller + "']").c_str()).empty();
    }
};

} // namespace

// Trap: tablet-keeps-the-controller
TEST_F(OlderTablet, KeepsTheNotesScreenThoughTheNoteIsSavedAndItsActivityHasEndedOnce) {
    startNote();
    typeNote("milk");

    touchAndWait("Done");

    EXPECT_EQ(notes().size(), 1U);
    EXPECT_EQ(logged("finish", "class"), std::vector<std::string>{"NoteTaking"});
    EXPECT_TRUE(shows("NoteController"));
    EXPECT_FALSE(isVisible("Done")); // its panel has faded: nothing can be saved twice
}

// Trap: tablet-keeps-the-controller
TEST_F(OlderTablet, KeepsTheRemindersScreenThoughItWasCancelled) {
    startReminder();

    touchAndWait("Cancel");

    EXPECT_EQ(logged("finish", "class"), std::vector<std::string>{"ReminderMake"});
    EXPECT_TRUE(shows("ReminderController"));
    EXPECT_TRUE(reminders().empty());
}
