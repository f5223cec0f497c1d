#include "phone/flow/Flow.h"

#include "tests/flow/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace phone;
using testing::HasSubstr;

namespace {

/// What reading a flow with these commands says; "" when it is fine.
std::string complaint(const std::string& content) {
    const TemporaryFolder folder;
    const std::string file = folder.write("flow.yaml", content);
    try {
        Flow::read(file);
        return "";
    } catch (const InputError& error) {
        const std::string text = error.what();
        return text.substr(text.find("flow.yaml"));
    }
}

template <class C>
const C& as(const Command& command) {
    return std::get<C>(command.what);
}

} // namespace

TEST(Flow, ReadsItsHeader) {
    const TemporaryFolder folder;
    const std::string file = folder.write("a note.yaml", "appId: com.apple.mobilephone\nname: One note\n"
                                                         "phone: {device: iphone4, app: newer, language: de-AT,\n"
                                                         "        region: CH, hours: 12, system: 8,\n"
                                                         "        now: \"2026-03-05T14:37:12\", zone: Europe/Berlin}\n"
                                                         "---\n- launchApp\n");

    const Flow flow = Flow::read(file);

    EXPECT_EQ(flow.name, "One note");
    EXPECT_EQ(flow.phone.device, "iphone4");
    EXPECT_EQ(flow.phone.application, "newer");
    EXPECT_EQ(flow.phone.language, "de-AT");
    EXPECT_EQ(flow.phone.region, "CH");
    EXPECT_EQ(flow.phone.hours, "12");
    EXPECT_EQ(flow.phone.system, "8");
    EXPECT_EQ(flow.phone.now, "2026-03-05T14:37:12");
    EXPECT_EQ(flow.phone.zone, "Europe/Berlin");
}

TEST(Flow, IsNamedAfterItsFileWithoutAName) {
    const TemporaryFolder folder;

    EXPECT_EQ(Flow::read(folder.write("a note.yaml", "- launchApp\n")).name, "a note");
}

TEST(Flow, KnowsWhereEachCommandStands) {
    const TemporaryFolder folder;

    const Flow flow = Flow::read(folder.write("flow.yaml", "name: x\n---\n- launchApp\n\n# a remark\n- tapOn: Note\n"));

    ASSERT_EQ(flow.commands.size(), 2u);
    EXPECT_EQ(flow.commands[1].name, "tapOn");
    EXPECT_EQ(flow.commands[1].place.line, 6);
    EXPECT_EQ(flow.commands[1].place.command, 2);
}

TEST(Flow, ReadsEveryCommand) {
    const std::string all = "- launchApp\n- stopApp\n- phoneCall: {number: 5551234, action: call}\n"
                            "- phoneCall: {action: cancel}\n- tapOn: Note\n- longPressOn: {id: pad, index: 1}\n"
                            "- doubleTapOn: {point: \"50%, 10%\"}\n- swipe: {start: \"10,20\", end: \"10,200\"}\n"
                            "- inputText: \"hi\"\n- eraseText\n- eraseText: 3\n- pressKey: enter\n"
                            "- setClipboard: x\n- pasteText\n- hideKeyboard\n- assertVisible: {text: Done}\n"
                            "- assertNotVisible: Error\n- waitForAnimationToEnd\n- advance: 0.5\n"
                            "- setOrientation: LANDSCAPE_LEFT\n- setClock: 2026-03-05T23:40:00\n"
                            "- setPreferences: {SwitchCell1: true, SwitchCell2: null}\n- takeScreenshot: a/b\n"
                            "- dumpTree: t\n- dumpLog: l\n"
                            "- runFlow: {when: {visible: Done}, commands: [launchApp]}\n"
                            "- repeat: {times: 2, while: {notVisible: Done}, commands: [{tapOn: More}]}\n"
                            "- toggle: All-day\n- pickDate: 2026-05-16T09:00\n";
    const TemporaryFolder folder;

    const Flow flow = Flow::read(folder.write("flow.yaml", all));

    ASSERT_EQ(flow.commands.size(), 29u);
    EXPECT_EQ(as<commands::PhoneCall>(flow.commands[2]).number, "5551234");
    EXPECT_EQ(as<commands::Tap>(flow.commands[5]).selector.index, 1);
    EXPECT_TRUE(as<commands::Tap>(flow.commands[6]).selector.point->x.perCent);
    EXPECT_EQ(as<commands::Swipe>(flow.commands[7]).seconds, 0.4);
    EXPECT_EQ(as<commands::EraseText>(flow.commands[9]).count, 50);
    EXPECT_EQ(as<commands::EraseText>(flow.commands[10]).count, 3);
    EXPECT_EQ(as<commands::RunFlow>(flow.commands[25]).commands.size(), 1u);
    EXPECT_FALSE(as<commands::Repeat>(flow.commands[26]).loop->visible);
    EXPECT_TRUE(as<commands::Toggle>(flow.commands[27]).selector.text->matches("All-day"));
    EXPECT_EQ(as<commands::PickDate>(flow.commands[28]).localTime, "2026-05-16T09:00");
}

TEST(Flow, TellsPreferencesByTheirKind) {
    const TemporaryFolder folder;
    const Flow flow = Flow::read(
        folder.write("flow.yaml", "- setPreferences: {a: true, b: 1, c: 0.5, d: \"true\", e: word, f: null, g: -2}\n"));

    const auto& values = as<commands::SetPreferences>(flow.commands.front()).values;

    EXPECT_EQ(values[0].second, PreferenceValue(true));
    EXPECT_EQ(values[1].second, PreferenceValue(1L));
    EXPECT_EQ(values[2].second, PreferenceValue(0.5));
    EXPECT_EQ(values[3].second, PreferenceValue(std::string("true")));
    EXPECT_EQ(values[4].second, PreferenceValue(std::string("word")));
    EXPECT_EQ(values[5].second, PreferenceValue(std::monostate()));
    EXPECT_EQ(values[6].second, PreferenceValue(-2L));
}

TEST(Flow, FillsInTheHeadersNames) {
    const TemporaryFolder folder;
    const Flow flow = Flow::read(
        folder.write("flow.yaml", "env: {WHO: Anna, N: 2}\n---\n- inputText: \"hi ${WHO}, ${N} and \\\\${WHO}\"\n"));

    EXPECT_EQ(as<commands::InputText>(flow.commands.front()).text, "hi Anna, 2 and ${WHO}");
}

TEST(Flow, RefusesANameWithoutAValueAndWhatIsNoName) {
    EXPECT_THAT(complaint("- inputText: ${WHO}\n"), HasSubstr("flow.yaml:1: command 1: ${WHO} has no value"));
    EXPECT_THAT(complaint("- inputText: ${1 + 1}\n"), HasSubstr("only ${NAME}"));
    EXPECT_THAT(complaint("- inputText: ${WHO\n"), HasSubstr("without `}`"));
}

TEST(Flow, TakesTheCommandsOfAnotherFlowWithItsOwnValues) {
    const TemporaryFolder folder;
    folder.write("parts/sub.yaml", "env: {A: own, B: own}\n---\n- inputText: ${A} ${B} ${C}\n");
    const std::string file = folder.write(
        "flow.yaml", "env: {B: outer, C: outer}\n---\n- runFlow: {file: parts/sub.yaml, env: {A: given}}\n");

    const Flow flow = Flow::read(file);

    const auto& inner = as<commands::RunFlow>(flow.commands.front()).commands;
    EXPECT_EQ(as<commands::InputText>(inner.front()).text, "given own outer");
    EXPECT_TRUE(inner.front().place.file.ends_with("parts/sub.yaml"));
}

TEST(Flow, RefusesAFlowThatRunsItself) {
    EXPECT_THAT(complaint("- runFlow: flow.yaml\n"), HasSubstr("does a flow run itself?"));
}

TEST(Flow, RefusesAnUnknownCommandWithItsPlace) {
    EXPECT_THAT(complaint("name: x\n---\n- launchApp\n- tapon: Note\n"),
                HasSubstr("flow.yaml:4: command 2: unknown command `tapon`"));
    EXPECT_THAT(complaint("- flick: Switch\n"), HasSubstr("unknown command `flick`"));
}

TEST(Flow, RefusesUnknownAndRepeatedKeys) {
    EXPECT_THAT(complaint("- tapOn: {text: a, txt: b}\n"), HasSubstr("flow.yaml:1: command 1: unknown key `txt`"));
    EXPECT_THAT(complaint("- tapOn: {text: a, text: b}\n"), HasSubstr("the key `text` stands twice"));
    EXPECT_THAT(complaint("nam: x\n---\n- launchApp\n"), HasSubstr("flow.yaml:1: unknown key `nam` in the header"));
    EXPECT_THAT(complaint("- assertVisible: {point: \"1,2\"}\n"), HasSubstr("unknown key `point`"));
    EXPECT_THAT(complaint("- {launchApp: , stopApp: }\n"), HasSubstr("each command is one line"));
}

TEST(Flow, FindsAMistakeInsideARepeat) {
    EXPECT_THAT(complaint("- repeat:\n    times: 2\n    commands:\n      - launchApp\n      - tapOn: [1]\n"),
                HasSubstr("flow.yaml:5: command 2: "));
}

TEST(Flow, RefusesValuesOfTheWrongKind) {
    EXPECT_THAT(complaint("- inputText: [a]\n"), HasSubstr("has to be a text"));
    EXPECT_THAT(complaint("- inputText:\n"), HasSubstr("inputText needs something after the colon"));
    EXPECT_THAT(complaint("- tapOn\n"), HasSubstr("tapOn needs something after it"));
    EXPECT_THAT(complaint("- launchApp: x\n"), HasSubstr("launchApp takes nothing"));
    EXPECT_THAT(complaint("- eraseText: many\n"), HasSubstr("whole number"));
    EXPECT_THAT(complaint("- eraseText: -1\n"), HasSubstr("whole number"));
    EXPECT_THAT(complaint("- advance: -1\n"), HasSubstr("has to be a number, at least 0"));
    EXPECT_THAT(complaint("- advance: .nan\n"), HasSubstr("has to be a number"));
    EXPECT_THAT(complaint("- pressKey: home\n"), HasSubstr("is not one of enter, backspace"));
    EXPECT_THAT(complaint("- phoneCall: {action: call}\n"), HasSubstr("needs the key `number`"));
    EXPECT_THAT(complaint("- phoneCall: {number: 1, action: ring}\n"), HasSubstr("is not one of call, accept"));
    EXPECT_THAT(complaint("- setOrientation: LEFT\n"), HasSubstr("is not one of PORTRAIT"));
    EXPECT_THAT(complaint("- setClock: 2026-02-30T10:00\n"), HasSubstr("is no local time"));
    EXPECT_THAT(complaint("- pickDate: 2026-02-30T10:00\n"), HasSubstr("is no local time of a whole minute"));
    EXPECT_THAT(complaint("- pickDate: 2026-05-16T09:00:30\n"), HasSubstr("is no local time of a whole minute"));
    EXPECT_THAT(complaint("- toggle: {point: \"1,2\"}\n"), HasSubstr("point"));
    EXPECT_THAT(complaint("- tapOn: {point: \"120%,4\"}\n"), HasSubstr("is no point"));
    EXPECT_THAT(complaint("- tapOn: {index: 1}\n"), HasSubstr("needs `text` or `id`"));
    EXPECT_THAT(complaint("- tapOn: \"(\"\n"), HasSubstr("is no regular expression"));
    EXPECT_THAT(complaint("- repeat: {commands: []}\n"), HasSubstr("needs `times` or `while`"));
    EXPECT_THAT(complaint("- runFlow: missing.yaml\n"), HasSubstr("no such file"));
    EXPECT_THAT(complaint("- takeScreenshot: ../x\n"), HasSubstr("below the output folder"));
    EXPECT_THAT(complaint("- setPreferences: {SwitchCell1: yes}\n"), HasSubstr("write true or false"));
    EXPECT_THAT(complaint("- setPreferences: {SwitchCell1: [1]}\n"), HasSubstr("has to be a boolean"));
}

TEST(Flow, RefusesAPhoneThatDoesNotExist) {
    EXPECT_THAT(complaint("phone: {device: iphone9}\n---\n- launchApp\n"), HasSubstr("unknown device `iphone9`"));
    EXPECT_THAT(complaint("phone: {app: old}\n---\n- launchApp\n"), HasSubstr("unknown app `old`"));
    EXPECT_THAT(complaint("phone: {zone: Europe/Bonn}\n---\n- launchApp\n"), HasSubstr("unknown time zone"));
    EXPECT_THAT(complaint("phone: {language: \"de AT\"}\n---\n- launchApp\n"), HasSubstr("no language tag"));
    EXPECT_THAT(complaint("phone: {region: de}\n---\n- launchApp\n"), HasSubstr("`de` is no region"));
    EXPECT_THAT(complaint("phone: {hours: 13}\n---\n- launchApp\n"), HasSubstr("unknown hours `13`; known: 12, 24"));
    EXPECT_THAT(complaint("phone: {system: 9}\n---\n- launchApp\n"), HasSubstr("unknown system `9`; known: 7, 8"));
    EXPECT_THAT(complaint("phone: {now: noon}\n---\n- launchApp\n"), HasSubstr("no local time"));
}

TEST(Flow, RefusesWhatIsNoFlow) {
    EXPECT_THAT(complaint(""), HasSubstr("is no flow"));
    EXPECT_THAT(complaint("name: x\n"), HasSubstr("is no flow"));
    EXPECT_THAT(complaint("name: x\n---\ntapOn: Note\n"), HasSubstr("flow.yaml:3: a list of commands"));
    EXPECT_THAT(complaint("- \"unfinished\n"), HasSubstr("is not YAML"));
    EXPECT_THROW(Flow::read("/nowhere/flow.yaml"), InputError);
}
