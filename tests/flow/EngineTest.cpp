#include "phone/flow/Engine.h"

#include "tests/flow/CannedScreen.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace phone;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

Selector named(const std::string& text) {
    Selector selector;
    selector.text = TextPattern(text);
    return selector;
}

Selector at(const std::string& point) {
    Selector selector;
    selector.point = PointSpec::parse(point);
    return selector;
}

template <class Work>
std::string failure(const Work& work) {
    try {
        work();
        return "";
    } catch (const CommandFailure& error) {
        return error.what();
    }
}

} // namespace

TEST(Engine, TapsWhereTheTouchReaches) {
    CannedScreen screen("<UIButton text=\"Note\" visible=\"true\" touch=\"30 40.5\"/>");

    Engine(screen).tap(named("Note"));

    EXPECT_THAT(screen.done, ElementsAre("touch began 30 40.5 at 0", "touch ended 30 40.5 at 0.05"));
}

TEST(Engine, TapsPointsAndPerCentOfTheScreen) {
    CannedScreen screen("");

    Engine(screen).tap(at("160, 50%"));

    EXPECT_EQ(screen.done.front(), "touch began 160 284 at 0");
}

TEST(Engine, TapsAPointOfAThing) {
    CannedScreen screen("<UIView text=\"Pad\" visible=\"true\" screen=\"10 20 100 50\" touch=\"60 45\"/>");
    Selector selector = named("Pad");
    selector.point = PointSpec::parse("90%,5");

    Engine(screen).tap(selector);

    EXPECT_EQ(screen.done.front(), "touch began 100 25 at 0");
}

TEST(Engine, PassesOverWhatCannotBeTouched) {
    CannedScreen screen("<A text=\"Note\" visible=\"true\"/><B text=\"Note\" visible=\"false\"/>"
                        "<C text=\"Note\" visible=\"true\" touch=\"3 4\"/>");

    Engine(screen).tap(named("Note"));

    EXPECT_EQ(screen.done.front(), "touch began 3 4 at 0");
}

TEST(Engine, WaitsForWhatComes) {
    CannedScreen screen("");
    screen.show(6.95, "<UIButton text=\"Note\" visible=\"true\" touch=\"3 4\"/>");

    Engine(screen).tap(named("Note"));

    EXPECT_EQ(screen.done.front(), "touch began 3 4 at 7");
}

TEST(Engine, GivesUpAfterSevenSeconds) {
    CannedScreen screen("");
    screen.show(7.2, "<UIButton text=\"Note\" visible=\"true\" touch=\"3 4\"/>");

    EXPECT_EQ(failure([&] { Engine(screen).tap(named("Note")); }), "\"Note\" is not on the screen");
    EXPECT_NEAR(screen.now, 7, 1e-6);
    EXPECT_TRUE(screen.done.empty());
}

TEST(Engine, SaysWhyAThingCannotBeTouched) {
    CannedScreen covered("<A text=\"Note\" visible=\"true\"/>");
    CannedScreen hidden("<A text=\"Note\" visible=\"false\"/>");

    EXPECT_THAT(failure([&] { Engine(covered).tap(named("Note")); }), HasSubstr("cannot be touched"));
    EXPECT_THAT(failure([&] { Engine(hidden).tap(named("Note")); }), HasSubstr("hidden or out of sight"));
    EXPECT_THAT(failure([&] { Engine(hidden).tap(at("321,5")); }), HasSubstr("lies beyond the screen"));
}

TEST(Engine, HoldsALongPressForThreeSeconds) {
    CannedScreen screen("<A text=\"Note\" visible=\"true\" touch=\"3 4\"/>");

    Engine(screen).longPress(named("Note"));

    EXPECT_EQ(screen.done.back(), "touch ended 3 4 at 3");
}

TEST(Engine, TapsTwiceForADoubleTap) {
    CannedScreen screen("<A text=\"Note\" visible=\"true\" touch=\"3 4\"/>");

    Engine(screen).doubleTap(named("Note"));

    EXPECT_THAT(screen.done, ElementsAre("touch began 3 4 at 0", "touch ended 3 4 at 0.05", "touch began 3 4 at 0.15",
                                         "touch ended 3 4 at 0.2"));
}

TEST(Engine, SwipesInEvenSteps) {
    CannedScreen screen("");

    Engine(screen).swipe(*PointSpec::parse("50%,400"), *PointSpec::parse("50%,100"), 0.05);

    EXPECT_THAT(screen.done, ElementsAre("touch began 160 400 at 0", "touch moved 160 300 at 0.0166667",
                                         "touch moved 160 200 at 0.0333333", "touch moved 160 100 at 0.05",
                                         "touch ended 160 100 at 0.05"));
}

TEST(Engine, ErasesByBackspaces) {
    CannedScreen screen("");

    Engine(screen).erase(2);

    EXPECT_THAT(screen.done, ElementsAre("key backspace", "key backspace"));
}

TEST(Engine, SeesWhatIsCovered) {
    CannedScreen screen("<A text=\"Note\" visible=\"true\"/>");

    EXPECT_EQ(failure([&] { Engine(screen).assertVisible(named("Note")); }), "");
}

TEST(Engine, FailsWhereAThingIsNotVisible) {
    CannedScreen screen("<A text=\"Note\" visible=\"false\"/>");

    EXPECT_EQ(failure([&] { Engine(screen).assertVisible(named("Note")); }), "\"Note\" is there but not visible");
    EXPECT_EQ(failure([&] { Engine(screen).assertVisible(named("More")); }), "\"More\" is not on the screen");
}

TEST(Engine, WaitsForAThingToGo) {
    CannedScreen screen("<A text=\"Note\" visible=\"true\"/>");
    screen.show(0.3, "");

    Engine(screen).assertNotVisible(named("Note"));

    EXPECT_NEAR(screen.now, 0.3, 1e-6);
}

TEST(Engine, FailsWhereAThingStays) {
    CannedScreen screen("<A text=\"Note\" visible=\"true\"/>");

    EXPECT_EQ(failure([&] { Engine(screen).assertNotVisible(named("Note")); }), "\"Note\" is still visible");
}
