#include "tests/quorvan/EventTest.h"
#include "tests/quorvan/Overhear.h"

namespace {

using Texts = std::vector<std::string>;

class EventRepeat : public EventTest {
protected:
    void scrollDown() {
        touch(phone::Screen::Phase::Began, 160, 400);
        touch(phone::Screen::Phase::Moved, 160, 300);
        touch(phone::Screen::Phase::Moved, 160, 230);
        touch(phone::Screen::Phase::Ended, 160, 230);
        settle();
    }
    void scrollUp() {
        touch(phone::Screen::Phase::Began, 160, 230);
        touch(phone::Screen::Phase::Moved, 160, 330);
        touch(phone::Screen::Phase::Moved, 160, 400);
        touch(phone::Screen::Phase::Ended, 160, 400);
        settle();
    }
    /// How many rows with an arrow have been drawn so far: each reads its picture.
    std::size_t arrowsRead() {
        std::size_t count = 0;
        for (const auto& entry : log("file")) {
            count += entry.at("path").get<std::string>().find("/arrow") != std::string::npos;
        }
        return count;
    }
    Texts headers() {
        Texts texts;
        for (const auto& header : shown().select_nodes(".//UITableViewHeaderFooterView//UILabel")) {
            texts.emplace_back(header.node().attribute("text").value());
        }
        return texts;
    }
    void leaveEndChooser() {
        touchAndWait("End Date");
        goBack();
    }
    std::string repeatRow() {
        goBack();
        return value("Repeat");
    }
};

} // namespace

TEST_F(EventRepeat, HasItsPartsInOrder) {
    startRepeat();

    EXPECT_EQ(screen(), "EventRemind");
    EXPECT_EQ(panelFrame(), "15 149 290 270");
    EXPECT_EQ(layout(shown()),
              (Texts{"UINavigationBar 0 0 290 44", "UITableView 0 44 290 226", "LineCreator 0 44 290 0.5"}));
    EXPECT_EQ(attribute(shown().child("UITableView"), "style"), "plain");
    EXPECT_EQ(attribute(shown().child("LineCreator"), "background"), "#c0c0c0ff");
    EXPECT_TRUE(shown().select_node("UINavigationBar//UILabel[@text='Repeat']"));
    EXPECT_EQ(attribute(shown().parent(), "title"), "Repeat");
}

TEST_F(EventRepeat, HasTheEndAboveTheSixIntervals) {
    startRepeat();

    EXPECT_EQ(headers(), (Texts{"End Date", "Repeat Interval"}));
    EXPECT_EQ(rows(), (Texts{"End Date", "Never", "Every Day", "Every Week"}));
    scrollDown();
    EXPECT_EQ(rows(), (Texts{"Never", "Every Day", "Every Week", "Every 2 Weeks", "Every Month", "Every Year"}));
    EXPECT_EQ(shown().select_nodes(".//*[@row='1,6']").size(), 0U);
}

TEST_F(EventRepeat, TheEndRowShowsItsValueAndTheArrow) {
    startRepeat();

    const auto cell = shown().select_node(".//*[@row='0,0']").node();
    EXPECT_EQ(attribute(cell, "reuse"), "Cell2");
    const auto accessory = cell.select_node(".//UIView[UIImageView]").node();
    EXPECT_EQ(attribute(accessory, "frame"), "168 8 107 28");
    EXPECT_EQ(layout(accessory), (Texts{"UILabel 0 5 98 17", "UIImageView 100 8.5 7 10.5"}));
    const auto label = accessory.child("UILabel");
    EXPECT_EQ(attribute(label, "text"), "Never");
    EXPECT_EQ(attribute(label, "font"), "system 14");
    EXPECT_EQ(attribute(label, "textColor"), "#c0c0c0ff");
    for (const auto& interval : shown().select_nodes(".//*[starts-with(@row, '1,')]")) {
        EXPECT_EQ(attribute(interval.node(), "reuse"), "Cell");
    }
}

TEST_F(EventRepeat, TheEndRowsValueNeverReadsAnotherWord) {
    startEvent();
    overhear<"UILabel", "setText:", void, id>();

    touchAndWait("Repeat");

    EXPECT_EQ(heardOf({"UILabel setText: Account"}), Texts{});
    EXPECT_EQ(heardOf({"UILabel setText: Never"}).size(), 2U) << "the end's value, and the first interval";
}

TEST_F(EventRepeat, TheEndRowsValueKeepsTheFontThatLabelsHave) {
    startEvent();
    useBoldLabels();

    touchAndWait("Repeat");

    const auto label = shown().select_node(".//*[@row='0,0']//UIView[UIImageView]/UILabel").node();
    EXPECT_EQ(attribute(label, "font"), "system-bold 14");
}

TEST_F(EventRepeat, ACellThatReadsAsTheLastIntervalKeepsTheValueItHas) {
    write(resource("Translations.bundle/en.lproj/Localizable.strings"),
          "\"End Date\" = \"Yearly\";\n\"Every Year\" = \"Yearly\";\n");
    startRepeat();
    EXPECT_EQ(value("Yearly"), "Never");

    touchAndWait("Yearly");
    goBack();

    EXPECT_EQ(value("Yearly"), "Never");
}

TEST_F(EventRepeat, SpeaksGerman) {
    startEvent({.language = "de"});
    touchAndWait("Turnus");

    EXPECT_EQ(headers(), (Texts{"Enddatum", "Wiederholungsintervall"}));
    EXPECT_EQ(rows(), (Texts{"Enddatum", "Nie", "Jeden Tag", "Jede Woche"}));
    scrollDown();
    EXPECT_EQ(rows(), (Texts{"Nie", "Jeden Tag", "Jede Woche", "Alle 2 Wochen", "Jeden Monat", "Jedes Jahr"}));
    touchAndWait("Jedes Jahr");
    goBack();
    EXPECT_EQ(value("Turnus"), "Jedes Jahr");
}

TEST_F(EventRepeat, ATapMarksTheIntervalAndNamesItOnTheEventScreen) {
    startRepeat();
    EXPECT_EQ(marked(), Texts{});

    touchAndWait("Every Week");

    EXPECT_EQ(screen(), "EventRemind");
    EXPECT_EQ(marked(), (Texts{"Every Week"}));
    EXPECT_EQ(shown().select_nodes(".//*[@selected='true']").size(), 0U);
    EXPECT_EQ(repeatRow(), "Every Week");
}

TEST_F(EventRepeat, EveryIntervalNamesItself) {
    startEvent();

    for (const char* interval : {"Every Day", "Every Week", "Every 2 Weeks", "Every Month", "Every Year"}) {
        touchAndWait("Repeat");
        scrollDown();
        touchAndWait(interval);
        EXPECT_EQ(marked(), (Texts{interval}));
        EXPECT_EQ(repeatRow(), interval);
    }
    touchAndWait("Repeat");
    touchAndWait(shown().select_node(".//*[@row='1,0']").node());
    EXPECT_EQ(repeatRow(), "Never");
}

TEST_F(EventRepeat, ASecondTapMovesTheMark) {
    startRepeat();

    touchAndWait("Every Week");
    touchAndWait("Every Day");

    EXPECT_EQ(marked(), (Texts{"Every Day"}));
    EXPECT_EQ(repeatRow(), "Every Day");
}

TEST_F(EventRepeat, AMarkedRowLosesItsMarkOutOfSight) {
    startRepeat();
    scrollDown();
    touchAndWait("Every Year");
    scrollUp();
    EXPECT_EQ(shown().select_nodes(".//*[@row='1,5']").size(), 0U);

    touchAndWait("Every Day");
    scrollDown();

    EXPECT_EQ(marked(), (Texts{"Every Day"}));
}

TEST_F(EventRepeat, BackDoesNotDrawTheComposeScreensRowsAnew) {
    startRepeat();
    const auto before = arrowsRead();

    goBack();

    EXPECT_EQ(arrowsRead(), before);
}

TEST_F(EventRepeat, AChoiceDrawsTheComposeScreensRowsAnew) {
    startRepeat();
    const auto before = arrowsRead();

    touchAndWait("Every Day");
    goBack();

    EXPECT_GT(arrowsRead(), before);
}

TEST_F(EventRepeat, OpenedAgainItShowsNoMark) {
    startRepeat();
    touchAndWait("Every Week");
    goBack();

    touchAndWait("Repeat");

    EXPECT_EQ(marked(), Texts{});
    EXPECT_EQ(repeatRow(), "Every Week");
}

TEST_F(EventRepeat, TheEndChoosersReloadTakesTheMarkButNotTheChoice) {
    startRepeat();
    touchAndWait("Every Week");

    leaveEndChooser();

    EXPECT_EQ(screen(), "EventRemind");
    EXPECT_EQ(marked(), Texts{});
    EXPECT_EQ(value("End Date"), "05/03");
    EXPECT_EQ(repeatRow(), "Every Week");
}

TEST_F(EventRepeat, TheEndRowChoosesNoInterval) {
    startRepeat();

    leaveEndChooser();

    EXPECT_EQ(marked(), Texts{});
    EXPECT_EQ(repeatRow(), "Never");
}

TEST_F(EventRepeat, TheEndRowHidesTheScreenUntilItsChooserIsLeft) {
    startRepeat();

    tapOn("End Date");
    const auto root = tree().select_node("//*[@controller='EventRemind']").node();
    for (const auto& view : root.children()) {
        EXPECT_EQ(attribute(view, "hidden"), "true") << view.name();
    }
    settle();
    EXPECT_EQ(screen(), "EventRemindEnd");
    goBack();

    EXPECT_EQ(layout(shown().parent()), (Texts{"UIImageView 0 0 320 568", "UIView 15 149 290 270"}));
}

TEST_F(EventRepeat, EachOpeningForgetsTheEndsText) {
    startRepeat();
    leaveEndChooser();
    EXPECT_EQ(value("End Date"), "05/03");
    goBack();

    touchAndWait("Repeat");

    EXPECT_EQ(value("End Date"), "Never");
}

TEST_F(EventRepeat, TheNextEventsRowReadsNeverAgain) {
    startRepeat();
    touchAndWait("Every Week");
    goBack();
    cancel();

    openAnother();

    EXPECT_EQ(value("Repeat"), "Never");
}

TEST_F(EventRepeat, WithoutWordsItShowsTheKeys) {
    remove(resource("Translations.bundle"));
    startRepeat();

    EXPECT_EQ(headers(), (Texts{"End Date", "Repeat Interval"}));
    EXPECT_EQ(rows(), (Texts{"End Date", "Never", "Every Day", "Every Week"}));
}
