#include "platform/uikit/UIActivity.h"
#include "platform/uikit/UINavigationController.h"
#include "tests/quorvan/EventTest.h"
#include "tests/quorvan/Overhear.h"

namespace {

using Texts = std::vector<std::string>;

class EventScreen : public EventTest {
protected:
    void tapField(int index) { touchAndWait(field(index)); }
    bool hasKeyboard() { return static_cast<bool>(tree().select_node("//*[@firstResponder='true']")); }
    /// Where the accessory of a row lies and what is in it.
    Texts accessory(int row) {
        const std::string path = ".//*[@row='0," + std::to_string(row) + "']//UIView[UIImageView]";
        const auto view = shown().select_node(path.c_str()).node();
        Texts lines = layout(view);
        lines.insert(lines.begin(), attribute(view, "frame"));
        return lines;
    }
    /// The last animation by this name: "duration curve view".
    std::string lastMove() {
        std::string last;
        for (const auto& entry : log("animation")) {
            if (entry.at("name") == "theBox") {
                last = entry.at("duration").dump() + " " + entry.at("curve").dump() + " " +
                       entry.at("view").get<std::string>();
            }
        }
        return last;
    }
};

} // namespace

TEST_F(EventScreen, HasItsPartsInOrder) {
    startEvent();

    EXPECT_EQ(layout(shown()), (Texts{
                                   "UINavigationBar 0 0 290 44",
                                   "LineCreator 16 91.75 274 0.5",
                                   "UITextField 16 55.8125 274 23.625",
                                   "UITextField 16 104.0625 274 23.625",
                                   "UITableView 0 139.5 290 174.5",
                                   "LineCreator 0 139 290 0.5",
                                   "LineCreator 0 44 290 0.5",
                               }));
    for (const auto& line : shown().children("LineCreator")) {
        EXPECT_EQ(attribute(line, "background"), "#c0c0c0ff");
    }
}

TEST_F(EventScreen, StandsInTheMiddleOfTheFourInchPhone) {
    startEvent();

    expectPanel(shown(), "15 149 290 270");
}

TEST_F(EventScreen, StandsInTheMiddleOfTheThreeAndAHalfInchPhone) {
    startEvent({.device = "iphone4", .app = "older"});

    EXPECT_EQ(panelFrame(), "15 105 290 270");
}

TEST_F(EventScreen, StandsInTheMiddleOfTheTablet) {
    startEvent({.device = "ipad"});

    EXPECT_EQ(panelFrame(), "239 377 290 270");
}

TEST_F(EventScreen, MakesItsPanelAQuarterOfTheSpaceDown) {
    startEvent();
    id made = objc::detail::call<id>(reinterpret_cast<id>(objc_getClass("EventController")), objc::selector<"new">());
    const auto controller = objc::adopt<UIViewController>(made);

    const auto panel = controller.send<"createReminder", UIView>();

    EXPECT_EQ(panel.frame(), CGRect(15, 74.5, 290, 270));
}

TEST_F(EventScreen, LiesOverTheBackdropWithTheOwnBarHidden) {
    startEvent();

    const auto root = shown().parent();
    EXPECT_EQ(layout(root), (Texts{"UIImageView 0 0 320 568", "UIView 15 149 290 270"}));
    EXPECT_EQ(attribute(root.child("UIImageView"), "image"), "/Library/Quorvan/bg.png");
    EXPECT_EQ(attribute(root, "controller"), "EventController");
    EXPECT_EQ(attribute(root, "title"), "Event");
    EXPECT_EQ(tree().select_nodes("//UINavigationBar[@visible='true']").size(), 1U);
}

TEST_F(EventScreen, ItsBarReadsCancelEventDone) {
    startEvent();

    const auto bar = shown().child("UINavigationBar");
    EXPECT_TRUE(bar.select_node(".//UILabel[@text='Event' and @align='center']"));
    EXPECT_EQ(bar.select_nodes("UINavigationButton").size(), 2U);
    EXPECT_TRUE(bar.select_node("UINavigationButton[@text='Cancel']"));
    EXPECT_TRUE(bar.select_node("UINavigationButton[@text='Done']"));
}

TEST_F(EventScreen, BothFieldsAreEmptyWithPlaceholdersAndADoneKey) {
    startEvent();

    EXPECT_EQ(attribute(field(0), "placeholder"), "Description");
    EXPECT_EQ(attribute(field(1), "placeholder"), "Location");
    for (int index : {0, 1}) {
        EXPECT_EQ(attribute(field(index), "text"), "");
        EXPECT_EQ(attribute(field(index), "returnKey"), "done");
    }
}

TEST_F(EventScreen, ItsRowsShowCalendarDateAndRepetition) {
    startEvent();

    EXPECT_EQ(rows(), (Texts{"Calendar", "Date", "Repeat"}));
    EXPECT_EQ(value("Calendar"), "Default");
    EXPECT_EQ(value("Date"), "14:37 - 15:37");
    EXPECT_EQ(value("Repeat"), "Never");
    const auto table = shown().child("UITableView");
    EXPECT_EQ(attribute(table, "style"), "plain");
    EXPECT_EQ(attribute(table, "scrollEnabled"), "false");
}

TEST_F(EventScreen, TheDateRowHasMoreRoomForItsValue) {
    startEvent();

    const Texts narrow{"118 8 157 28", "UILabel 0 5 148 17", "UIImageView 150 8.5 7 10.5"};
    EXPECT_EQ(accessory(0), narrow);
    EXPECT_EQ(accessory(1), (Texts{"88 8 187 28", "UILabel 0 5 178 17", "UIImageView 180 8.5 7 10.5"}));
    EXPECT_EQ(accessory(2), narrow);
    const auto label = shown().select_node(".//UILabel[@text='Default']").node();
    EXPECT_EQ(attribute(label, "font"), "system 14");
    EXPECT_EQ(attribute(label, "align"), "right");
    EXPECT_EQ(attribute(label, "textColor"), "#c0c0c0ff");
    EXPECT_EQ(attribute(label.next_sibling(), "image"), "/Library/Quorvan/arrow.png");
}

TEST_F(EventScreen, ThePanelCutsThePointAndAHalfOffTheThirdRow) {
    startEvent();

    EXPECT_EQ(attribute(shown().select_node(".//*[@row='0,2']").node(), "frame"), "0 88 290 44");
    EXPECT_EQ(attribute(shown().select_node(".//*[@row='0,2']").node(), "screen"), "15 376.5 290 44");
    tap(160, 149 + 269.5);
    settle();
    EXPECT_EQ(screen(), "EventRemind");
}

TEST_F(EventScreen, TheDateRowNeitherPadsNorWrapsTheHourOfTheEnd) {
    const std::pair<const char*, const char*> times[] = {
        {"2026-03-05T09:15:00", "09:15 - 10:15"}, {"2026-03-05T08:05:00", "08:05 - 9:05"},
        {"2026-03-05T07:05:59", "07:05 - 8:05"},  {"2026-03-05T23:40:00", "23:40 - 24:40"},
        {"2026-03-05T00:00:00", "00:00 - 1:00"},  {"2026-03-05T22:59:59", "22:59 - 23:59"},
        {"2026-03-31T23:40:00", "23:40 - 24:40"}, {"2026-12-31T23:40:00", "23:40 - 24:40"},
    };
    start();
    startCall();

    for (const auto& [time, text] : times) {
        setClock(time);
        openAnother();

        EXPECT_EQ(value("Date"), text) << time;
        cancel();
    }
}

TEST_F(EventScreen, TheDateRowSaysNothingOfSummerTime) {
    startEventAt("2026-03-29T01:30:00", "Europe/Berlin");
    EXPECT_EQ(value("Date"), "01:30 - 2:30");
    cancel();

    setClock("2026-10-25T02:30:00");
    openAnother();

    EXPECT_EQ(value("Date"), "02:30 - 3:30");
}

TEST_F(EventScreen, TheDateRowIsInThePersonsTimeZone) {
    startEventAt("2026-03-05T08:05:00", "Asia/Kolkata");

    EXPECT_EQ(value("Date"), "08:05 - 9:05");
}

TEST_F(EventScreen, SpeaksGerman) {
    startEvent({.language = "de"});

    EXPECT_EQ(rows(), (Texts{"Kalender", "Datum", "Turnus"}));
    EXPECT_EQ(value("Kalender"), "Standard");
    EXPECT_EQ(value("Datum"), "14:37 - 15:37");
    EXPECT_EQ(value("Turnus"), "Nie");
    EXPECT_EQ(attribute(field(0), "placeholder"), "Beschreibung");
    EXPECT_EQ(attribute(field(1), "placeholder"), "Ort");
    EXPECT_EQ(attribute(shown().parent(), "title"), "Ereignis");
}

TEST_F(EventScreen, WithoutWordsAndPicturesItShowsTheKeys) {
    remove(resource("Translations.bundle"));
    for (const char* name : {"bg.png", "bg@2x.png", "arrow.png", "arrow@2x.png"}) {
        remove(resource(name));
    }
    start({.language = "de"});
    startCall();
    openSheet();
    touchAndWait("Event");

    EXPECT_EQ(panelFrame(), "15 149 290 270");
    EXPECT_EQ(rows(), (Texts{"Calendar", "Date", "Repeat"}));
    EXPECT_EQ(value("Calendar"), "Default");
}

TEST_F(EventScreen, OpensWithoutTheKeyboard) {
    startEvent();

    EXPECT_FALSE(hasKeyboard());
}

TEST_F(EventScreen, OpensTheKeyboardOnTheDescriptionForThoseWhoWantThat) {
    turnOn({1});
    startEvent();

    EXPECT_EQ(attribute(field(0), "firstResponder"), "true");
    EXPECT_EQ(panelFrame(), "15 41 290 270");
    type("Lunch");
    EXPECT_EQ(attribute(field(0), "text"), "Lunch");
}

TEST_F(EventScreen, MakesRoomForTheKeyboardAndComesBack) {
    startEvent();

    tapField(0);
    EXPECT_EQ(panelFrame(), "15 41 290 270");
    EXPECT_EQ(lastMove(), "0.27 1 UIView");

    key("enter");
    settle();
    EXPECT_EQ(panelFrame(), "15 149 290 270");
    EXPECT_EQ(lastMove(), "0.27 1 UIView");
    EXPECT_FALSE(hasKeyboard());
}

TEST_F(EventScreen, GoesFromOneFieldToTheOtherWithoutComingDown) {
    startEvent();
    tapField(0);
    type("Lunch");

    tapField(1);
    type("Canteen");

    EXPECT_EQ(panelFrame(), "15 41 290 270");
    EXPECT_EQ(attribute(field(0), "text"), "Lunch");
    EXPECT_EQ(attribute(field(1), "text"), "Canteen");
    EXPECT_EQ(attribute(field(1), "firstResponder"), "true");
}

TEST_F(EventScreen, AReturnEntersNoLineBreak) {
    startEvent();
    tapField(1);
    type("Canteen\n");
    settle();

    EXPECT_EQ(attribute(field(1), "text"), "Canteen");
    EXPECT_FALSE(hasKeyboard());
}

TEST_F(EventScreen, EachRowOpensItsChooser) {
    startEvent();

    const std::pair<const char*, const char*> choosers[] = {
        {"Calendar", "EventCalendar"}, {"Date", "EventDate"}, {"Repeat", "EventRemind"}};
    for (const auto& [row, chooser] : choosers) {
        touchAndWait(row);
        EXPECT_EQ(screen(), chooser);
        if (isVisible("Don’t Allow")) {
            touchAndWait("Don’t Allow");
        }
        goBack();
        EXPECT_EQ(screen(), "EventController");
        EXPECT_TRUE(tree().select_node("//UIImageView[@visible='true' and @image='/Library/Quorvan/bg.png']"));
        EXPECT_EQ(tree().select_nodes("//*[@row and @selected='true']").size(), 0U);
    }
}

TEST_F(EventScreen, ARowHidesTheScreenAtOnceAndEndsTheTyping) {
    startEvent();
    tapField(0);
    type("Lunch");

    tapOn("Date");

    const auto root = tree().select_node("//*[@controller='EventController']").node();
    for (const auto& view : root.children()) {
        EXPECT_EQ(attribute(view, "hidden"), "true") << view.name();
    }
    settle();
    EXPECT_FALSE(hasKeyboard());
    goBack();
    EXPECT_EQ(panelFrame(), "15 149 290 270");
    EXPECT_EQ(attribute(field(0), "text"), "Lunch");
}

TEST_F(EventScreen, AsksForNoAccessByItself) {
    startEvent();

    EXPECT_FALSE(isVisible("OK"));
    EXPECT_TRUE(log("store").empty());
}

TEST_F(EventScreen, CancelEndsAtOnceWithoutFadingAndSavesNothing) {
    startEvent();
    tapField(0);
    type("Lunch");
    key("enter");
    settle();
    const auto moves = log("animation").size();

    tapOn("Cancel");

    ASSERT_EQ(log("finish").size(), 1U);
    EXPECT_EQ(log("finish")[0].at("class"), "EventCreate");
    EXPECT_EQ(log("finish")[0].at("completed"), true);
    settle();
    const auto animations = log("animation");
    for (std::size_t i = moves; i < animations.size(); ++i) {
        EXPECT_NE(animations[i].at("duration"), 0.3);
    }
    EXPECT_FALSE(shown());
    EXPECT_TRUE(log("store").empty());
}

TEST_F(EventScreen, ACancelledTextIsNotThereTheNextTime) {
    startEvent();
    tapField(0);
    type("Lunch");
    cancel();

    openAnother();

    EXPECT_EQ(attribute(field(0), "text"), "");
}

TEST_F(EventScreen, ACallMayEndWhileAnyOfItsScreensIsOpen) {
    const std::vector<Texts> ways = {{},         {"Calendar"},          {"Date"}, {"Date", "Start"}, {"Date", "End"},
                                     {"Repeat"}, {"Repeat", "End Date"}};
    useEvents(phone::Access::Allow);
    start();

    for (const auto& way : ways) {
        startCall();
        openAnother();
        for (const auto& row : way) {
            touchAndWait(row);
        }
        const std::string open = screen();

        phoneCall("cancel");
        advance(5);

        EXPECT_EQ(screen(), open);
        for (std::size_t i = 0; i < way.size(); ++i) {
            goBack();
        }
        EXPECT_EQ(screen(), "EventController");
        cancel();
        EXPECT_TRUE(isVisible("No call")) << open;
    }
}

TEST_F(EventScreen, TheDateRowHasTheSameDigitsInEveryLanguage) {
    startEvent({.language = "ar"});

    EXPECT_EQ(value("Date"), "14:37 - 15:37");
}

TEST_F(EventScreen, TheDateRowReadsTheSameOnAClockOfTwelveHours) {
    useTwelveHoursAgainstTheRegion();
    startEvent();

    EXPECT_EQ(value("Date"), "14:37 - 15:37");
}

TEST_F(EventScreen, ReadsTheClockBeforeItTakesTheCalendarsFields) {
    start();
    startCall();
    openSheet();
    overhear<"NSDateFormatter", "stringFromDate:", id, id>();
    overhear<"NSCalendar", "components:fromDate:", id, objc::UInt, id>();

    openEvent();

    ASSERT_GE(heard().size(), 3U);
    EXPECT_TRUE(heard()[0].ends_with("stringFromDate: NSGDate")) << heard()[0];
    EXPECT_TRUE(heard()[1].ends_with("stringFromDate: NSGDate")) << heard()[1];
    EXPECT_TRUE(heard()[2].ends_with("components:fromDate: 764 NSGDate")) << heard()[2];
}

TEST_F(EventScreen, HasItsTitleBeforeItsViewIsLoaded) {
    start();
    startCall();
    openSheet();
    overhear<"NSBundle", "localizedStringForKey:value:table:", id, id, id, id>();
    overhear<"UIViewController", "viewDidLoad", void>();

    openEvent();

    const auto loaded = std::find(heard().begin(), heard().end(), "EventController viewDidLoad");
    ASSERT_NE(loaded, heard().end());
    ASSERT_NE(loaded, heard().begin());
    EXPECT_EQ(*(loaded - 1), "NSBundle localizedStringForKey:value:table: Event  nil");
}

TEST_F(EventScreen, ItsFieldsAreReadyBeforeTheyHaveTheirPlaceholders) {
    start();
    startCall();
    openSheet();
    overhear<"UITextField", "setReturnKeyType:", void, objc::Int>();
    overhear<"UITextField", "setPlaceholder:", void, id>();
    overhear<"UIView", "addSubview:", void, id>();

    openEvent();

    EXPECT_EQ(heardOf({"UITextField set", "UIView addSubview: UITextField"}),
              (Texts{"UITextField setReturnKeyType: 9", "UITextField setReturnKeyType: 9",
                     "UITextField setPlaceholder: Location", "UITextField setPlaceholder: Description",
                     "UIView addSubview: UITextField", "UIView addSubview: UITextField"}));
}

TEST_F(EventScreen, ARowsValueReadsAnotherWordUntilItsNameIsThere) {
    start();
    startCall();
    openSheet();
    overhear<"UILabel", "setText:", void, id>();

    openEvent();

    const Texts told = heardOf({"UILabel setText:"});
    const auto row = std::find(told.begin(), told.end(), "UILabel setText: Account");
    ASSERT_GE(told.end() - row, 3);
    EXPECT_EQ(Texts(row, row + 3),
              (Texts{"UILabel setText: Account", "UILabel setText: Calendar", "UILabel setText: Default"}));
}

TEST_F(EventScreen, ValuesKeepTheFontThatLabelsHave) {
    start();
    useBoldLabels();
    startCall();
    openSheet();

    openEvent();

    const auto label = shown().select_node(".//UILabel[@text='Default']").node();
    EXPECT_EQ(attribute(label, "font"), "system-bold 14");
}
