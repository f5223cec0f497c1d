// What a client's touches and keys do to a real phone.

#include "phone/webdriver/Commands.h"
#include "phone/webdriver/Routes.h"
#include "tests/webdriver/LiveSession.h"

#include <csignal>
#include <gmock/gmock.h>

using namespace phone;
using namespace phone::webdriver;
using testing::HasSubstr;

namespace {

class Hands : public LiveSession {
protected:
    std::string noteText() { return find("class name", "XCUIElementTypeTextView"); }
    json attributeOf(const std::string& element, const std::string& name) {
        return get(element + "/attribute/" + name);
    }
    json actionsOf(const json& actions) {
        return {{"actions", {{{"type", "pointer"}, {"id", "finger"}, {"actions", actions}}}}};
    }
};

} // namespace

TEST_F(Hands, WriteANoteIntoTheStore) {
    compose("Note");
    post(noteText() + "/value", {{"text", "Call back on Friday"}});

    click(find("accessibility id", "Done"));

    ASSERT_EQ(recorded("notes").size(), 1U);
    EXPECT_THAT(recorded("notes")[0].at("content").get<std::string>(), HasSubstr("Call back on Friday"));
}

TEST_F(Hands, TypeInTheTwoFormsThatClientsSend) {
    compose("Note");
    const std::string note = noteText();

    post(note + "/value", {{"text", "one "}, {"value", {"o", "n", "e", " "}}});
    post(note + "/value", {{"value", {"t", "wo"}}});

    EXPECT_EQ(get(note + "/text"), "one two");
}

TEST_F(Hands, PressKeysThatAreWrittenAsCharacters) {
    compose("Note");
    const std::string note = noteText();

    post(note + "/value", {{"text", "ax\uE003b\uE012\uE012\uE017"}});

    EXPECT_EQ(get(note + "/text"), "b");
}

TEST_F(Hands, ClearAText) {
    compose("Note");
    const std::string note = noteText();
    post(note + "/value", {{"text", "a\n👩‍👩‍👧 z\uE012\uE012"}}); // the caret is in the middle

    post(note + "/clear");

    EXPECT_EQ(get(note + "/text"), "");
}

TEST_F(Hands, ShowAnEmptyFieldsPlaceholderAsItsValue) {
    compose("Note");
    const std::string title = find("class name", "XCUIElementTypeTextField");

    EXPECT_EQ(attributeOf(title, "value"), "Title");
    post(title + "/value", {{"text", "Friday"}});
    EXPECT_EQ(attributeOf(title, "value"), "Friday");
    post(title + "/clear");
    EXPECT_EQ(attributeOf(title, "value"), "Title");
}

TEST_F(Hands, KnowWhatIsBeingEdited) {
    compose("Note");
    const std::string note = noteText();
    post(note + "/value", {{"text", "a"}});

    EXPECT_EQ("/element/" + get("/element/active").at("ELEMENT").get<std::string>(), note);
    EXPECT_EQ(get("/appium/device/is_keyboard_shown"), true);
}

TEST_F(Hands, PutTheKeyboardAway) {
    compose("Note");
    post(find("class name", "XCUIElementTypeTextField") + "/value", {{"text", "Friday"}});

    post("/appium/device/hide_keyboard");

    EXPECT_EQ(get("/appium/device/is_keyboard_shown"), false);
}

TEST_F(Hands, TouchByActions) {
    openSheet();
    const json element = {{elementKey, pathParts(find("accessibility id", "Note")).back()}};

    post("/actions", actionsOf({{{"type", "pointerMove"}, {"x", 0}, {"y", 0}, {"origin", element}},
                                {{"type", "pointerDown"}},
                                {{"type", "pause"}, {"duration", 50}},
                                {{"type", "pointerUp"}}}));

    noteText();
}

TEST_F(Hands, HoldAFingerDownOverCommandsUntilItIsReleased) {
    openSheet();
    const json note = get(find("accessibility id", "Note") + "/rect");
    const json over = {{"x", note.at("x").get<int>() + 20}, {"y", note.at("y").get<int>() + 20}};

    post("/actions",
         actionsOf({{{"type", "pointerMove"}, {"x", over.at("x")}, {"y", over.at("y")}}, {{"type", "pointerDown"}}}));
    EXPECT_THAT(get("/source").get<std::string>(), HasSubstr("Reminder"));
    value("DELETE", session + "/actions");

    noteText();
}

TEST_F(Hands, LiftTheFingerOfASessionThatEnds) {
    openSheet();
    post("/actions", actionsOf({{{"type", "pointerMove"}, {"x", 160}, {"y", 400}}, {{"type", "pointerDown"}}}));

    begin({{"forceAppLaunch", false}});

    click(find("accessibility id", "Cancel"));
}

TEST_F(Hands, TouchAgainAfterTheApplicationDiedUnderTheFinger) {
    openSheet();
    post("/actions", actionsOf({{{"type", "pointerMove"}, {"x", 160}, {"y", 400}}, {{"type", "pointerDown"}}}));
    kill(mobile("activeAppInfo").at("pid").get<pid_t>(), SIGKILL);
    EXPECT_EQ(error("GET", session + "/source"), "invalid element state");

    mobile("launchApp");
    mobile("gsmCall", {{"phoneNumber", "5551234"}, {"action", "call"}});
    click(find("accessibility id", "Accept"));

    find("accessibility id", "End");
}

TEST_F(Hands, RefuseASecondTouchWhileTheFingerIsDown) {
    openSheet();
    post("/actions", actionsOf({{{"type", "pointerMove"}, {"x", 160}, {"y", 400}}, {{"type", "pointerDown"}}}));

    EXPECT_EQ(mobileError("tap", {{"x", 10}, {"y", 10}}), "invalid element state");
}

TEST_F(Hands, LeaveTheScreenToTheNextSessionInTheMiddleOfADrag) {
    begin();
    std::string refused;
    std::thread dragging([&, path = session] {
        const json arguments = {{"fromX", 10}, {"fromY", 10}, {"toX", 300}, {"toY", 300}, {"duration", 60}};
        const json body = {{"script", "mobile: dragFromToForDuration"}, {"args", {arguments}}};
        const Answer answer = protocol.answer("POST", path + "/execute/sync", {}, body.dump());
        refused = json::parse(answer.body).at("value").value("error", "");
    });
    std::uint64_t seen = 0;
    while (!phone.isFingerDown()) {
        seen = phone.waitForChange(seen, std::chrono::milliseconds(20));
    }

    begin({{"forceAppLaunch", false}});
    dragging.join();

    EXPECT_EQ(refused, "invalid session id");
    mobile("tap", {{"x", 10}, {"y", 10}});
}

TEST_F(Hands, TapTheElementItselfAtItsCorner) {
    beginInACall();
    const std::string speaker = find("accessibility id", "speaker"); // its neighbour ends in the same point

    mobile("tap", {{"elementId", pathParts(speaker).back()}, {"x", 0}, {"y", 0}});

    EXPECT_EQ(get(find("accessibility id", "speaker") + "/selected"), true);
}

TEST_F(Hands, TypeBehindWhatStandsThere) {
    compose("Note");
    const std::string note = noteText();
    post(note + "/value", {{"text", "Send the whole offer to them now"}});
    click(find("class name", "XCUIElementTypeTextField"));

    post(note + "/value", {{"text", "!"}});

    EXPECT_EQ(get(note + "/text"), "Send the whole offer to them now!");
}

TEST_F(Hands, RefuseActionsBeyondTheScreen) {
    begin();

    EXPECT_EQ(error("POST", session + "/actions", actionsOf({{{"type", "pointerMove"}, {"x", 1}, {"y", 9000}}})),
              "invalid coordinates");
    EXPECT_EQ(error("POST", session + "/actions", actionsOf({{{"type", "pointerDown"}}})), "invalid argument");
}

TEST_F(Hands, TypeByActions) {
    compose("Note");
    click(noteText());
    json strokes = json::array();
    for (const char* key : {"H", "i", "\uE007", "x", "\uE003"}) {
        strokes.push_back({{"type", "keyDown"}, {"value", key}});
        strokes.push_back({{"type", "keyUp"}, {"value", key}});
    }

    post("/actions", {{"actions", {{{"type", "key"}, {"id", "keyboard"}, {"actions", strokes}}}}});

    EXPECT_EQ(get(noteText() + "/text"), "Hi\n");
}

TEST_F(Hands, TurnAWheelToAValueAndThePickerToADate) {
    mobile("setPermission", {{"access", {{"calendar", "yes"}}}});
    mobile("setClock", {{"localTime", "2026-03-05T14:37:12"}});
    compose("Event");
    click(find("predicate string", "type == 'XCUIElementTypeCell' AND label BEGINSWITH 'Date'"));
    click(find("predicate string", "type == 'XCUIElementTypeCell' AND label BEGINSWITH 'Start'"));
    const std::string picker = find("class name", "XCUIElementTypeDatePicker");
    const std::string minutes = find("xpath", "(//XCUIElementTypePickerWheel)[last()-1]");
    const std::string before = attributeOf(minutes, "value");

    mobile("selectPickerWheelValue", {{"elementId", pathParts(minutes).back()}, {"order", "next"}});
    EXPECT_NE(attributeOf(minutes, "value"), before);
    post(minutes + "/value", {{"text", before}});
    EXPECT_EQ(attributeOf(minutes, "value"), before);
    EXPECT_EQ(error("POST", session + minutes + "/value", {{"text", "never"}}), "invalid argument");
    post(picker + "/value", {{"text", "2026-05-16T09:00"}});

    EXPECT_THAT(get("/source").get<std::string>(), HasSubstr("May 16"));
    EXPECT_EQ(error("POST", session + picker + "/value", {{"text", "tomorrow"}}), "invalid argument");
}

TEST_F(Hands, TurnTheDevice) {
    begin();

    post("/orientation", {{"orientation", "LANDSCAPE"}});

    EXPECT_EQ(get("/orientation"), "LANDSCAPE");
    EXPECT_EQ(get("/window/rect"), (json{{"x", 0}, {"y", 0}, {"width", 568}, {"height", 320}}));
    EXPECT_EQ(get("/rotation").at("z"), 270);
    post("/rotation", {{"x", 0}, {"y", 0}, {"z", 180}});
    EXPECT_EQ(get("/orientation"), "UIA_DEVICE_ORIENTATION_PORTRAIT_UPSIDEDOWN");
}

TEST_F(Hands, CarryThePasteboard) {
    begin();

    mobile("setPasteboard", {{"content", "R3LDvMOfZQ=="}, {"contentType", "plaintext"}});

    EXPECT_EQ(mobile("getPasteboard"), "R3LDvMOfZQ==");
    EXPECT_EQ(phone.clipboard(), "Grüße");
}

TEST_F(Hands, WaitForWhatIsNotThereYet) {
    beginInACall();
    post("/timeouts", {{"implicit", 60000}});

    find("predicate string", "label == '00:01' OR label == '00:02'");
}

TEST_F(Hands, GiveUpWaitingWhenTheSessionEnds) {
    begin();
    post("/timeouts", {{"implicit", 3600000}});
    const std::string waiting = session;
    std::thread client([&] { protocol.answer("POST", waiting + "/element", {}, R"({"using":"id","value":"never"})"); });

    protocol.endSession();

    client.join();
}

TEST_F(Hands, AnswerTheSystemsQuestions) {
    compose("Reminder");
    click(find("accessibility id", "Done"));
    if (error("GET", session + "/alert/text") == "no such alert") {
        GTEST_FAIL() << get("/source").get<std::string>();
    }

    EXPECT_THAT(get("/alert/text").get<std::string>(), HasSubstr("Reminders"));
    EXPECT_EQ(get("/wda/alert/buttons"), (json{"Don’t Allow", "OK"}));
    EXPECT_EQ(error("POST", session + "/alert/accept", {{"name", "Perhaps"}}), "invalid element state");
    post("/alert/accept");

    EXPECT_EQ(error("GET", session + "/alert/text"), "no such alert");
}

TEST_F(Hands, AnswerTheSystemsQuestionsByThemselvesWhereTheSessionSaysSo) {
    compose("Reminder");
    post("/appium/settings", {{"settings", {{"defaultAlertAction", "accept"}}}});

    post(find("class name", "XCUIElementTypeTextView") + "/value", {{"text", "Call back"}});
    click(find("accessibility id", "Done"));
    get("/source");

    EXPECT_EQ(error("GET", session + "/alert/text"), "no such alert");
    EXPECT_EQ(recorded("reminders").size(), 1U);
}

TEST_F(Hands, PictureAnElement) {
    begin();

    const std::string picture = get(find("accessibility id", "No call") + "/screenshot");

    EXPECT_THAT(picture, testing::StartsWith("iVBORw0KGgo"));
}
