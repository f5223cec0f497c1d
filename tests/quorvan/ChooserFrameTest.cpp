// The panel that every chooser has: what is told to whom, and when.

#include "platform/uikit/UINavigationBar.h"
#include "tests/quorvan/EventTest.h"
#include "tests/quorvan/Overhear.h"

namespace {

using Texts = std::vector<std::string>;

class ChooserFrame : public EventTest {};

/// The item that a bar might come with; writes down what it is told.
class FirstItem : public objc::Defines<FirstItem, UINavigationItem> {
public:
    static constexpr auto objc_name = "FirstItem";
    static void define(objc::ClassTable<FirstItem>& c) {
        c.overrides<"setTitle:", &FirstItem::setTitle>()
            .overrides<"setLeftBarButtonItem:", &FirstItem::setLeftBarButtonItem>()
            .overrides<"setRightBarButtonItem:", &FirstItem::setRightBarButtonItem>();
    }

    /// From now on every bar comes with it.
    static void install() {
        static objc::Global<objc::Ref<FirstItem>> item;
        item = objc::Ref<FirstItem>::make();
        phone::correct<"topItem">(objc_getClass("UINavigationBar"), +[](id, SEL) { return item.get().raw(); });
    }
    static inline Texts told;

private:
    void setTitle(const NSString& title) { told.emplace_back(title.UTF8String()); }
    void setLeftBarButtonItem(const UIBarButtonItem&) { told.emplace_back("left"); }
    void setRightBarButtonItem(const UIBarButtonItem&) { told.emplace_back("right"); }
};

} // namespace

TEST_F(ChooserFrame, TellsItsBarTheTitleBeforeTheBackControlIsMadeAndTheControlAfterwards) {
    startEvent();
    overhear<"UINavigationBar", "topItem", id>();
    overhearClass<"UIButton", "buttonWithType:", id, objc::Int>();

    touchAndWait("Repeat");

    EXPECT_EQ(heard(), (Texts{"UINavigationBar topItem", "UIButton buttonWithType: 0", "UIButton buttonWithType: 0",
                              "UINavigationBar topItem"}));
}

TEST_F(ChooserFrame, TheListChooserGivesTheFirstItemTheWordOfItsComposer) {
    useReminders(phone::Access::Allow);
    start();
    startReminder();
    FirstItem::install();

    touchAndWait(panel().select_node(".//*[@row='0,0']").node());

    EXPECT_EQ(FirstItem::told, (Texts{"Reminder", "left"}));
    EXPECT_TRUE(isVisible("List"));
}

TEST_F(ChooserFrame, EveryOtherGivesTheFirstItemItsTitle) {
    useEvents(phone::Access::Allow);
    startEvent();
    FirstItem::install();

    for (const auto& row : {"Calendar", "Date", "Repeat"}) {
        touchAndWait(row);
        goBack();
    }

    EXPECT_EQ(FirstItem::told, (Texts{"Calendar", "left", "Date", "left", "Repeat", "left"}));
}

TEST_F(ChooserFrame, AComposeScreenGivesTheFirstItemItsTitleAndButtons) {
    start();
    startCall();
    openSheet();
    FirstItem::install();

    openEvent();

    EXPECT_EQ(FirstItem::told, (Texts{"Event", "left", "right"}));
}

TEST_F(ChooserFrame, APickerHasItsDateAndItsKindBeforeItIsOnThePanel) {
    startDate();
    toggle("All-day");
    overhear<"UIDatePicker", "setDate:animated:", void, id, objc::UInt>();
    overhear<"UIDatePicker", "setDatePickerMode:", void, objc::Int>();
    overhear<"UIView", "addSubview:", void, id>();

    touchAndWait("End");

    EXPECT_EQ(heardOf({"UIDatePicker set", "UIView addSubview: UIDatePicker"}),
              (Texts{"UIDatePicker setDate:animated: NSGDate 0", "UIDatePicker setDatePickerMode: 1",
                     "UIView addSubview: UIDatePicker"}));
}

TEST_F(ChooserFrame, APickerIsToldItsFrameOnceMore) {
    startDate();
    overhear<"UIView", "setFrame:", void, CGRect>();
    overhear<"UIView", "addSubview:", void, id>();

    touchAndWait("Start");

    const auto told = heardOf({"UIDatePicker setFrame:", "UIView addSubview: UIDatePicker"});
    ASSERT_GE(told.size(), 2U);
    EXPECT_EQ(told[0], "UIDatePicker setFrame:");
    EXPECT_EQ(told[1], "UIView addSubview: UIDatePicker");
}

TEST_F(ChooserFrame, ASwitchKnowsWhomItTellsBeforeItIsOnThePanel) {
    startEvent();
    overhear<"UIControl", "addTarget:action:forControlEvents:", void, id, SEL, objc::UInt>();
    overhear<"UISwitch", "setOn:animated:", void, objc::UInt, objc::UInt>();
    overhear<"UIView", "addSubview:", void, id>();

    touchAndWait("Date");

    EXPECT_EQ(heardOf({"UISwitch addTarget", "UISwitch setOn", "UIView addSubview: UISwitch"}),
              (Texts{"UISwitch addTarget:action:forControlEvents: EventDate set 4096", "UISwitch setOn:animated: 0 0",
                     "UIView addSubview: UISwitch"}));
}
