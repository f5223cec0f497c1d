#include "phone/server/FlowRecorder.h"

#include "phone/flow/Flow.h"
#include "phone/server/FlowText.h"
#include "phone/server/TouchedElement.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace phone;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

namespace {

const FlowRecorder::Beginning beginning{{.device = "iphone5",
                                         .application = "newer",
                                         .language = "de",
                                         .region = "",
                                         .hours = "12",
                                         .system = "8",
                                         .zone = "Europe/Berlin"},
                                        "2026-03-05T14:37:12",
                                        {{"SwitchCell1", true}, {"SwitchCell2", {}}},
                                        Access::Ask,
                                        Access::Allow};

/// A touch reaches the view whose identity is 1.
std::string screen(const std::string& views) {
    return "<screen width=\"320\" height=\"568\" orientation=\"PORTRAIT\" hit=\"1\">" + views + "</screen>";
}

std::string view(const std::string& kind, const std::string& rect, const std::string& more, const std::string& inside) {
    return "<UIView kind=\"" + kind + "\" screen=\"" + rect + "\" visible=\"true\" touch=\"1 1\" " + more + ">" +
           inside + "</UIView>";
}

const std::string touched = "identity=\"1\" ";

std::string label(const std::string& text, const std::string& rect, const std::string& more = "") {
    return view("UILabel", rect, more + "text=\"" + text + "\"", "");
}

std::string picker(const std::string& date) {
    return screen(view("UIDatePicker", "0 300 320 162", "mode=\"dateAndTime\" date=\"" + date + ":00+01:00\"",
                       view("UIView", "0 300 320 162", touched, label("Thu Mar 5", "0 300 100 32"))));
}

std::string nameAt(const std::string& views, const ScreenPoint& point) {
    return nameOfTouched(ScreenTree(screen(views)), point);
}

class FlowRecorderTest : public testing::Test {
protected:
    /// Each thing is done a second after the one before, on a screen that has come to rest.
    FlowRecorder::Moment next(double seconds = 1) { return {now += seconds, false}; }
    void touch(const std::string& tree, const ScreenPoint& from, const ScreenPoint& to, double seconds) {
        if (recorder.wantsLook()) {
            recorder.look(tree);
        }
        recorder.fingerDown(next(), from, tree);
        recorder.fingerMoved(to);
        recorder.fingerUp(next(seconds), to);
    }
    /// What follows the header and what stands before the first thing done.
    std::string commands() const {
        const std::string all = recorder.text();
        const std::string opening = "- launchApp\n";
        return all.substr(all.find(opening) + opening.size());
    }

    double now = 0;
    FlowRecorder recorder{beginning};
};

} // namespace

TEST_F(FlowRecorderTest, BeginsWithThePhoneAsItWas) {
    const Flow flow = Flow::parse(recorder.text(), "flow.yaml");

    EXPECT_EQ(flow.phone.device, "iphone5");
    EXPECT_EQ(flow.phone.application, "newer");
    EXPECT_EQ(flow.phone.language, "de");
    EXPECT_EQ(flow.phone.region, std::nullopt);
    EXPECT_EQ(flow.phone.hours, "12");
    EXPECT_EQ(flow.phone.system, "8");
    EXPECT_EQ(flow.phone.now, "2026-03-05T14:37:12");
    EXPECT_EQ(flow.phone.zone, "Europe/Berlin");
    EXPECT_THAT(recorder.text(), HasSubstr("- setPreferences: {SwitchCell1: true, SwitchCell2: null}\n"
                                           "- setPermissions: {reminders: ask, events: allow}\n- launchApp\n"));
}

TEST_F(FlowRecorderTest, NamesWhatWasTouched) {
    touch(screen(view("UIButton", "10 10 80 30", touched + "text=\"Note\"", "")), {20, 20}, {20, 20}, 0.1);

    EXPECT_EQ(commands(), "- tapOn: \"Note\"\n- waitForAnimationToEnd\n");
}

TEST_F(FlowRecorderTest, WritesALongTouchAsOne) {
    touch(screen(view("UIButton", "10 10 80 30", touched + "text=\"Note\"", "")), {20, 20}, {22, 20}, 1.5);

    EXPECT_THAT(commands(), HasSubstr("- longPressOn: \"Note\"\n"));
}

TEST_F(FlowRecorderTest, WritesADragAsASwipe) {
    touch(screen(label("Note", "0 0 320 568")), {160, 400}, {160.5, 300}, 0.35);

    EXPECT_THAT(commands(), HasSubstr("- swipe: {start: \"160,400\", end: \"160.5,300\", duration: 350}\n"));
}

TEST_F(FlowRecorderTest, WritesTheDateThatWheelsWereTurnedTo) {
    touch(picker("2026-03-05T14:37"), {50, 380}, {50, 310}, 0.3);
    touch(picker("2026-03-07T14:37"), {150, 380}, {150, 310}, 0.3);
    recorder.look(picker("2026-03-07T16:37"));

    EXPECT_EQ(commands(), "- pickDate: \"2026-03-07T16:37\"\n- waitForAnimationToEnd\n");
}

TEST_F(FlowRecorderTest, KeepsADragThatLeavesTheDateAsItIs) {
    touch(picker("2026-03-05T14:37"), {50, 380}, {50, 310}, 0.3);
    recorder.look(picker("2026-03-05T14:37"));

    EXPECT_THAT(commands(), HasSubstr("- swipe: "));
}

TEST_F(FlowRecorderTest, WritesNothingOfATouchThatWasTakenAway) {
    recorder.fingerDown(next(), {20, 20}, screen(label("Note", "0 0 100 100")));
    recorder.fingerCancelled();
    recorder.fingerUp(next(), {20, 20});

    EXPECT_EQ(recorder.count(), 0U);
}

TEST_F(FlowRecorderTest, JoinsWhatIsTypedAndWhatIsErased) {
    for (const char* text : {"A", "b", "ö"}) {
        recorder.type(next(0.1), text);
    }
    recorder.key(next(0.1), "backspace");
    recorder.key(next(0.1), "backspace");
    recorder.key(next(0.01), "enter");

    EXPECT_THAT(commands(),
                HasSubstr("- inputText: \"Abö\"\n- waitForAnimationToEnd\n- eraseText: 2\n- pressKey: enter\n"));
}

TEST_F(FlowRecorderTest, WaitsAsLongAsThePersonDidWhileSomethingMoves) {
    recorder.call(next(), "call", "+49 30 1");
    recorder.call({now + 0.4, true}, "accept", "");

    EXPECT_THAT(commands(), HasSubstr("- phoneCall: {number: \"+49 30 1\", action: call}\n- advance: 0.4\n"
                                      "- phoneCall: {action: accept}\n"));
}

TEST_F(FlowRecorderTest, WritesFlowsThatCanBeRead) {
    recorder.call(next(), "call", "1");
    touch(screen(label("Really? (2*3) \\ ${NAME}", "0 0 100 100", touched)), {20, 20}, {20, 20}, 0.1);
    recorder.type(next(), "\"${NAME}\" \\${X}\t# no comment: {}\x01");
    recorder.paste(next(), "two\nlines");
    for (const char* key : {"enter", "backspace", "delete", "left", "right"}) {
        recorder.key(next(), key);
    }
    recorder.turn(next(), "LANDSCAPE_LEFT");
    recorder.setClock(next(), "2026-03-06T00:00:00");
    recorder.setSwitch(next(), "SwitchCell3", false);
    recorder.setPermissions(next(), Access::Deny, Access::Ask);
    recorder.launch(next());

    const Flow flow = Flow::parse(recorder.text(), "flow.yaml");

    const auto find = [&]<class Command>(Command) {
        for (const auto& command : flow.commands) {
            if (const auto* found = std::get_if<Command>(&command.what)) {
                return *found;
            }
        }
        throw std::runtime_error("not there");
    };
    EXPECT_EQ(find(commands::InputText{}).text, "\"${NAME}\" \\${X}\t# no comment: {}\x01");
    EXPECT_EQ(find(commands::SetClipboard{}).text, "two\nlines");
    const auto tap = find(commands::Tap{commands::Tap::Kind::Single, {}});
    EXPECT_TRUE(tap.selector.text->matches("Really? (2*3) \\ ${NAME}"));
    EXPECT_EQ(flow.commands.back().name, "waitForAnimationToEnd");
}

TEST(TouchedElement, IsNamedByTheRowAroundIt) {
    const std::string content = view("UIView", "0 0 320 44", touched, label("Account", "15 0 98 44"));

    EXPECT_EQ(nameAt(view("UITableViewCell", "0 0 320 44", "", content), {300, 20}), "\"Account\"");
}

TEST(TouchedElement, IsAPointWhereItsTextStandsSomewhereElseFirst) {
    EXPECT_EQ(nameAt(label("Note", "0 0 100 20", touched) + label("Note", "0 100 100 20"), {50, 10}), "\"Note\"");
    EXPECT_EQ(nameAt(label("Note", "0 0 100 20") + label("Note", "0 100 100 20", touched), {50, 110}),
              "{point: \"50,110\"}");
}

TEST(TouchedElement, IsAPointWhereNothingHasAName) {
    EXPECT_EQ(nameAt(view("UIView", "0 0 320 568", touched, ""), {200, 300.25}), "{point: \"200,300.25\"}");
    EXPECT_EQ(nameAt(label("Note", "0 0 100 20"), {200, 300}), "{point: \"200,300\"}");
}

TEST(TouchedElement, IsAPointWhereOneOfManyTextsWasTouched) {
    const std::string wheel = view("UIView", "0 300 100 162", touched,
                                   label("Thu Mar 5", "0 340 100 32") + label("Fri Mar 6", "0 372 100 32"));

    EXPECT_EQ(nameAt(wheel, {50, 380}), "{point: \"50,380\"}");
}

TEST(TouchedElement, IsAPlaceInATextThatIsEdited) {
    const std::string text =
        view("UITextView", "15 100 290 100", touched + "text=\"one two\" returnKey=\"default\"", "");

    EXPECT_EQ(nameAt(text, {65, 120}), "{text: \"one two\", point: \"50,20\"}");
}

TEST(TouchedElement, IsAPointOnASwitch) {
    const std::string row =
        view("UITableViewCell", "0 0 320 44", "",
             label("Remind", "15 0 98 44") + view("UISwitch", "250 5 51 31", touched + "on=\"true\"", ""));

    EXPECT_EQ(nameAt(row, {270, 20}), "{point: \"270,20\"}");
}

TEST(FlowText, MatchesTheTextAlone) {
    for (const char* text : {"a.b", "(1+1)?", "[x]{2}|^$", "back\\slash", "Größe 日本"}) {
        EXPECT_TRUE(TextPattern(patternOf(text)).matches(text)) << text;
    }
    EXPECT_FALSE(TextPattern(patternOf("a.b")).matches("axb"));
}

TEST(FlowText, WritesNumbersShortly) {
    EXPECT_EQ(flowNumber(0.1 + 0.2), "0.3");
    EXPECT_EQ(flowNumber(160), "160");
    EXPECT_EQ(flowNumber(1234.567), "1234.57");
}
