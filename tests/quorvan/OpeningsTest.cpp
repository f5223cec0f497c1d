#include "phone/foundation/LiveObjects.h"
#include "tests/quorvan/CallTest.h"

#include <gtest/gtest.h>

#include <map>

namespace {

/// How many of each class: the phone's own under its class, Foundation's and the library's too.
using Counts = std::map<std::string, long>;

Counts counts() {
    Counts all;
    for (const auto& [name, count] : phone::liveObjects()) {
        all[name] = count;
    }
    for (const objc::PeerClass* peer = objc::peerClasses(); peer != nullptr; peer = peer->next) {
        all[std::string(peer->name) + " (peers)"] = peer->live;
    }
    return all;
}

/// What there is more or less of.
Counts difference(const Counts& before, const Counts& after) {
    Counts differences;
    for (const auto& [name, count] : after) {
        differences[name] = count;
    }
    for (const auto& [name, count] : before) {
        differences[name] -= count;
    }
    std::erase_if(differences, [](const auto& one) { return one.second == 0; });
    return differences;
}

class Openings : public CallTest {
protected:
    // Enough that whatever is made once has been made.
    static constexpr int warmUp = 3;
    static constexpr int few = 8;
    static constexpr int many = 40; // benchmarks/Openings.cpp does ten thousand

    void openAndCancel(int times) {
        for (int i = 0; i < times; ++i) {
            openSheet();
            openNote();
            cancel();
        }
    }
    void writeNotes(int times) {
        for (int i = 0; i < times; ++i) {
            openSheet();
            openNote();
            typeTitle("Shopping");
            typeNote("milk");
            done();
        }
    }
    void chooseAccounts(int times) {
        for (int i = 0; i < times; ++i) {
            openSheet();
            openNote();
            touchAndWait("Account");
            touchAndWait("Mail");
            touchAndWait("Back");
            cancel();
        }
    }
    void writeReminders(int times) {
        for (int i = 0; i < times; ++i) {
            openSheet();
            openReminder();
            typeNote("milk");
            for (const char* row : {"0,0", "0,1", "0,2"}) {
                touchAndWait(panel().select_node((std::string(".//*[@row='") + row + "']").c_str()).node());
                goBack();
            }
            done();
        }
    }
    /// Every screen of an event.
    void writeEvents(int times) {
        for (int i = 0; i < times; ++i) {
            openSheet();
            openEvent();
            for (const auto& way : std::vector<std::vector<std::string>>{
                     {"Calendar"}, {"Date", "Start"}, {"Date", "End"}, {"Repeat", "End Date"}}) {
                for (const auto& row : way) {
                    touchAndWait(row);
                }
                for (std::size_t back = 0; back < way.size(); ++back) {
                    goBack();
                }
            }
            cancel();
        }
    }
    /// In turn, as benchmarks/Openings.cpp does.
    void saveOneOfEach(int times) {
        for (int i = 0; i < times; ++i) {
            openSheet();
            openNote();
            typeNote("milk");
            done();
            openSheet();
            openReminder();
            typeNote("milk");
            done();
            openSheet();
            openEvent();
            touchAndWait("Description");
            type("milk");
            done();
        }
    }
    Counts growth(int times) {
        openAndCancel(warmUp);
        const Counts before = counts();
        openAndCancel(times);
        return difference(before, counts());
    }
};

TEST_F(Openings, LeaveNothingBehind) {
    phone::countLiveObjects();
    start({.app = "older"});
    startCall();

    const Counts grown = growth(many);

    EXPECT_EQ(grown, Counts());
}

TEST_F(Openings, LeaveTheNewerCallScreenWithOneTapAreaMoreEach) {
    phone::countLiveObjects();
    start();
    startCall();

    const Counts grown = growth(many);

    // The view with its layer and its colour, and the recogniser.
    const Counts byDesign = {
        {"UIView", many},
        {"UIView (peers)", many},
        {"UIResponder (peers)", many},
        {"CALayer", many},
        {"CALayer (peers)", many},
        {"UIColor", many},
        {"UIColor (peers)", many},
        {"UITapGestureRecognizer", many},
        {"UITapGestureRecognizer (peers)", many},
        {"UIGestureRecognizer (peers)", many},
    };
    EXPECT_EQ(grown, byDesign);
}

TEST_F(Openings, ThatEndWithASavedNoteLeaveNothingBehind) {
    phone::countLiveObjects();
    turnOn({1, 2, 3});
    start({.app = "older"});
    startCall();
    writeNotes(warmUp);

    const Counts before = counts();
    writeNotes(few);

    EXPECT_EQ(difference(before, counts()), Counts());
}

TEST_F(Openings, ThatEndWithSavedNotesRemindersAndEventsLeaveNothingBehind) {
    phone::countLiveObjects();
    useReminders(phone::Access::Allow);
    useEvents(phone::Access::Allow);
    start({.app = "older"});
    startCall();
    saveOneOfEach(warmUp);

    const Counts before = counts();
    saveOneOfEach(few);

    EXPECT_EQ(difference(before, counts()), Counts());
    EXPECT_EQ(notes().size(), std::size_t(warmUp + few));
    EXPECT_EQ(reminders().size(), std::size_t(warmUp + few));
    EXPECT_EQ(events().size(), std::size_t(warmUp + few));
}

TEST_F(Openings, OfTheEventsScreensLeaveNothingBehind) {
    phone::countLiveObjects();
    useEvents(phone::Access::Allow);
    start({.app = "older"});
    startCall();
    writeEvents(warmUp);

    const Counts before = counts();
    writeEvents(few);

    EXPECT_EQ(difference(before, counts()), Counts());
}

TEST_F(Openings, OfTheAccountChooserLeaveNothingBehind) {
    phone::countLiveObjects();
    start({.app = "older"});
    startCall();
    chooseAccounts(warmUp);

    const Counts before = counts();
    chooseAccounts(few);

    EXPECT_EQ(difference(before, counts()), Counts());
}

TEST_F(Openings, OfRemindersAndTheirChoosersLeaveNothingBehind) {
    phone::countLiveObjects();
    useReminders(phone::Access::Allow);
    start({.app = "older"});
    startCall();
    writeReminders(warmUp);

    const Counts before = counts();
    writeReminders(few);

    EXPECT_EQ(difference(before, counts()), Counts());
    EXPECT_EQ(reminders().size(), std::size_t(warmUp + few));
}

} // namespace
