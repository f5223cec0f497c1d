// What the library says to the platform while its screens open and close, where nothing on the screen would tell: with
// or without animation, to whom, and in which order.

#include "tests/quorvan/EventTest.h"
#include "tests/quorvan/Messages.h"

#include <functional>

namespace {

using Texts = std::vector<std::string>;

class Transcript : public EventTest {
protected:
    Transcript() {
        useReminders(phone::Access::Allow);
        useEvents(phone::Access::Allow);
    }
    void listen() {
        Messages::hearTheLibraryAlone();
        messages
            .watch<"PHCallViewController", "presentViewController:animated:completion:", void, id, objc::UInt, id>();
        messages.watch<"UIActivityViewController", "setModalTransitionStyle:", void, objc::UInt>();
        messages.watch<"UINavigationController", "setNavigationBarHidden:animated:", void, objc::UInt, objc::UInt>();
        messages.watch<"UINavigationController", "pushViewController:animated:", void, id, objc::UInt>();
        messages.watch<"UINavigationBar", "topItem", id>();
        messages.watch<"UIBarButtonItem", "initWithTitle:style:target:action:", id, id, objc::UInt, id, SEL>();
        messages.watch<"UIImage", "stretchableImageWithLeftCapWidth:topCapHeight:", id, objc::UInt, objc::UInt>();
        messages.watch<"UITableViewCell", "initWithStyle:reuseIdentifier:", id, objc::UInt, id>();
        messages.watch<"UITableViewCell", "setSelected:animated:", void, objc::UInt, objc::UInt>();
        messages.watch<"UITableView", "deselectRowAtIndexPath:animated:", void, id, objc::UInt>();
        messages.watch<"UISwitch", "setOn:animated:", void, objc::UInt, objc::UInt>();
        messages.watch<"UIDatePicker", "setFrame:", void, CGRect>();
        messages.watch<"UIDatePicker", "setDate:animated:", void, id, objc::UInt>();
        messages.watch<"UIDatePicker", "setDatePickerMode:", void, objc::UInt>();
        messages.take();
    }
    /// What a touch sets off, all of it.
    Texts heardAt(const std::string& text) {
        listen();
        touchAndWait(text);
        return messages.take();
    }
    static Texts joined(const std::vector<Texts>& parts) {
        Texts all;
        for (const auto& part : parts) {
            all.insert(all.end(), part.begin(), part.end());
        }
        return all;
    }
    static std::string pushed(const std::string& screen) {
        return "UINavigationController pushViewController:animated: " + screen + " 1";
    }
    static Texts composeBar(const std::string& screen) {
        const std::string item = "UIBarButtonItem initWithTitle:style:target:action: ";
        return {item + "\"Cancel\" 1 " + screen + " cancel:", item + "\"Done\" 1 " + screen + " done:", topItem,
                topItem, topItem};
    }
    static Texts cells(std::size_t count, const std::string& identifier = "Cell") {
        return Texts(count, "UITableViewCell initWithStyle:reuseIdentifier: 0 \"" + identifier + '"');
    }

    static inline const std::string topItem = "UINavigationBar topItem";
    static inline const std::string noBar = "UINavigationController setNavigationBarHidden:animated: 1 0";
    static inline const std::string unselected = "UITableViewCell setSelected:animated: 0 1";
    // The bar without an item is asked twice, before and after the Back control is built.
    static inline const Texts frame = {noBar, topItem, "UIImage stretchableImageWithLeftCapWidth:topCapHeight: 7 0",
                                       topItem};

    Messages messages;
};

} // namespace

TEST_F(Transcript, OfTheSheet) {
    start();
    startCall();
    listen();

    openSheet();

    EXPECT_EQ(
        messages.take(),
        (Texts{"UIActivityViewController setModalTransitionStyle: 0",
               "PHCallViewController presentViewController:animated:completion: UIActivityViewController 1 nil"}));
}

// Built when its view loads, and again when it appears.
TEST_F(Transcript, OfTheNote) {
    start();
    startCall();
    openSheet();

    const Texts heard = heardAt("Note");

    EXPECT_EQ(heard, joined({{noBar}, composeBar("NoteController"), {noBar}, composeBar("NoteController"), cells(2)}));
}

TEST_F(Transcript, OfTheReminder) {
    start();
    startCall();
    openSheet();

    EXPECT_EQ(heardAt("Reminder"), joined({{noBar}, composeBar("ReminderController"), cells(3)}));
}

TEST_F(Transcript, OfTheEvent) {
    start();
    startCall();
    openSheet();

    EXPECT_EQ(heardAt("Event"), joined({{noBar}, composeBar("EventController"), cells(3)}));
}

TEST_F(Transcript, OfTheAccountChooser) {
    start();
    startNote();

    EXPECT_EQ(heardAt("Account"), joined({{unselected, pushed("NoteAccountController")}, frame, cells(2)}));
    EXPECT_EQ(heardAt("Mail"), (Texts{"rows of NoteAccountController deselectRowAtIndexPath:animated: NSIndexPath 1"}));
}

TEST_F(Transcript, OfTheListChooser) {
    start();
    startReminder();
    EXPECT_EQ(heardAt("List"), joined({{unselected, pushed("ReminderList")}, frame}));
    goBack();

    EXPECT_EQ(heardAt("List"), joined({{unselected, pushed("ReminderList")}, frame, cells(3)}));
    EXPECT_EQ(heardAt("Work"), (Texts{unselected}));
}

TEST_F(Transcript, OfTheAlarmsDateChooser) {
    start();
    startReminder();

    EXPECT_EQ(heardAt("Remind me"), joined({{unselected, pushed("ReminderDate")},
                                            {noBar, topItem, frame[2], "UISwitch setOn:animated: 1 0", topItem,
                                             "UIDatePicker setFrame: 0 67.5 290 216"}}));
}

TEST_F(Transcript, OfThePriorityChooser) {
    start();
    startReminder();

    EXPECT_EQ(heardAt("Priority"), joined({{unselected, pushed("ReminderPriority")}, frame, cells(4)}));
    EXPECT_EQ(heardAt("!!"), (Texts{unselected}));
}

TEST_F(Transcript, OfTheCalendarChooser) {
    startCalendar();
    goBack();

    EXPECT_EQ(heardAt("Calendar"), joined({{unselected, pushed("EventCalendar")}, frame, cells(3)}));
    EXPECT_EQ(heardAt("Work"), (Texts{unselected}));
}

TEST_F(Transcript, OfTheDateForm) {
    startEvent();

    EXPECT_EQ(heardAt("Date"), joined({{unselected, pushed("EventDate")},
                                       {noBar, topItem, frame[2], "UISwitch setOn:animated: 0 0", topItem},
                                       cells(2)}));
}

TEST_F(Transcript, OfTheStartAndEndChoosers) {
    startDate();
    const std::string placed = "UIDatePicker setFrame: 0 33 290 162";

    EXPECT_EQ(heardAt("Start"), joined({{unselected, pushed("EventDateStart")}, frame, {placed}}));
    goBack();
    EXPECT_EQ(
        heardAt("End"),
        joined({{unselected, pushed("EventDateEnd")}, frame, {placed, "UIDatePicker setDate:animated: a date 0"}}));
}

TEST_F(Transcript, OfTheRepeatChooser) {
    startEvent();

    const Texts heard = heardAt("Repeat");

    const Texts opening = joined({{unselected, pushed("EventRemind")}, frame});
    ASSERT_GE(heard.size(), opening.size());
    EXPECT_EQ(Texts(heard.begin(), heard.begin() + static_cast<long>(opening.size())), opening);
    for (auto cell = heard.begin() + static_cast<long>(opening.size()); cell != heard.end(); ++cell) {
        EXPECT_TRUE(*cell == cells(1)[0] || *cell == cells(1, "Cell2")[0]) << *cell;
    }
    EXPECT_EQ(heardAt("Every Week"), (Texts{unselected}));
}

TEST_F(Transcript, OfTheRepeatEndChooser) {
    startRepeat();

    EXPECT_EQ(heardAt("End Date"),
              (Texts{pushed("EventRemindEnd"), noBar, topItem, frame[2], "UISwitch setOn:animated: 0 0", topItem,
                     "UIDatePicker setFrame: 0 67.5 290 216", "UIDatePicker setDatePickerMode: 1"}));
}
