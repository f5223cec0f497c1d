#include "phone/uikit/Alert.h"

#include "tests/phone/PhoneTest.h"
#include "tests/phone/Picture.h"

namespace {

using Answers = std::vector<std::string>;

class Alert : public PhoneTest {
protected:
    void ask(const std::string& title, const std::vector<std::string>& buttons = {"Don’t Allow", "OK"}) {
        run([&] {
            phone::askPerson(title, "It asks only once.", buttons,
                             [this, title](int button) { answers.push_back(title + " " + std::to_string(button)); });
        });
        settle();
    }

    Answers answers;
};

} // namespace

TEST_F(Alert, ShowsItsTextsAndButtons) {
    ask("May it?");

    EXPECT_TRUE(isVisible("May it?"));
    EXPECT_TRUE(isVisible("It asks only once."));
    EXPECT_TRUE(isVisible("Don’t Allow"));
    EXPECT_TRUE(isVisible("OK"));
    EXPECT_TRUE(answers.empty());
}

TEST_F(Alert, LetsShineThroughItsPanelWhatLiesBeneathButNothingSharp) {
    useClassesOnly();
    addStripes(window());
    ask("May it?");
    const Picture picture;
    const double y = 284; // the middle; the panel begins 25 points from the left edge

    EXPECT_GT(picture.sharpest({5, y, 15, 2}), 100);
    EXPECT_LE(picture.sharpest({27, y, 12, 2}), 2);
    EXPECT_LT(picture.brightness(30, y), 255);
    EXPECT_GT(picture.brightness(30, y), 230);
}

TEST_F(Alert, GivesTheNumberOfTheTouchedButtonAndGoes) {
    ask("May it?");

    tapOn("OK");
    EXPECT_EQ(answers, Answers{"May it? 1"});
    settle();

    EXPECT_FALSE(isVisible("May it?"));
    EXPECT_EQ(countClass("_UIModalItemAlertContentView"), 0);
}

TEST_F(Alert, AsksOneThingAfterTheOther) {
    ask("First?");
    ask("Second?");
    EXPECT_TRUE(isVisible("First?"));
    EXPECT_FALSE(isVisible("Second?"));

    tapOn("Don’t Allow");
    settle();
    EXPECT_TRUE(isVisible("Second?"));
    tapOn("OK");
    settle();

    EXPECT_EQ(answers, (Answers{"First? 0", "Second? 1"}));
}

TEST_F(Alert, MayAskAgainWhileItIsAnswered) {
    run([&] {
        phone::askPerson("First?", "", {"OK"}, [this](int) {
            phone::askPerson("Second?", "", {"OK"}, [this](int) { answers.push_back("second"); });
        });
    });
    settle();

    tapOn("OK");
    settle();
    tapOn("OK");
    settle();

    EXPECT_EQ(answers, Answers{"second"});
}

TEST_F(Alert, KeepsTouchesFromWhatLiesBelow) {
    call();
    ask("May it?");
    const auto before = log("appearance").size();

    EXPECT_EQ(findClass("PHCallViewController"), pugi::xml_node());
    tap(10, 300);
    settle();

    EXPECT_TRUE(isVisible("May it?"));
    EXPECT_EQ(log("appearance").size(), before);
}

TEST_F(Alert, TakesASecondTouchOnItsButtonForNothing) {
    ask("May it?");
    const auto place = find("OK");
    double x = 0;
    double y = 0;
    std::istringstream(attribute(place, "touch")) >> x >> y;

    tap(x, y);
    tap(x, y);
    settle();

    EXPECT_EQ(answers.size(), 1u);
}

TEST_F(Alert, StandsInTheMiddleAndIs270PointsWide) {
    ask("May it?");

    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    std::istringstream(attribute(findClass("_UIModalItemAlertContentView"), "screen")) >> x >> y >> width >> height;
    EXPECT_EQ(x, 25);
    EXPECT_EQ(width, 270);
    EXPECT_EQ(y + height / 2, 284);
}

TEST_F(Alert, PutsLongButtonsOneBelowTheOther) {
    ask("May it?", {"A button with a long title", "OK"});

    const auto above = attribute(find("A button with a long title"), "frame");
    const auto below = attribute(find("OK"), "frame");
    EXPECT_EQ(above.substr(above.find("270")), "270 44");
    EXPECT_EQ(below.substr(below.find("270")), "270 44");
}

TEST_F(Alert, LiesInFrontOfTheKeyboard) {
    ask("May it?");

    const auto panel = findClass("_UIModalItemAlertContentView");
    EXPECT_EQ(panel.root().first_child().last_child(), panel.parent().parent());
}

TEST_F(Alert, TurnsWithTheInterfaceOfATablet) {
    useDevice("ipad");
    boot();
    call();
    ask("May it?");

    boot().setOrientation("LANDSCAPE_LEFT");
    settle();

    const std::string place = attribute(findClass("_UIModalItemAlertContentView"), "screen");
    EXPECT_TRUE(place.starts_with("377 ")) << place; // in the middle of 1024 points
    tapOn("OK");

    EXPECT_EQ(answers.size(), 1u);
}

TEST_F(Alert, TellsNoControllerOfItsComing) {
    boot();
    const auto before = log("appearance").size();

    ask("May it?");

    EXPECT_EQ(log("appearance").size(), before);
}
