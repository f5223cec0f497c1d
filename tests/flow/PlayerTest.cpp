#include "phone/flow/Player.h"

#include "tests/flow/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace phone;
using testing::HasSubstr;

namespace {

/// Plays on an application that notes its options and commands and answers everything, always showing
/// one label, "Note"; on `key` it dies.
class PlayerTest : public testing::Test {
protected:
    PlayerTest() {
        const std::string script = folder.write("application", R"sh(#!/bin/sh
echo "start $*" >> ")sh" + folder.path("seen") + R"sh("
while read -r line <&3; do
    echo "$line" >> ")sh" + folder.path("seen") + R"sh("
    case "$line" in
    *'"tree"'*) echo '{"ok":true,"tree":"<screen width=\"320\" height=\"568\"><A text=\"Note\" visible=\"true\" touch=\"1 2\"/></screen>"}' >&3 ;;
    *'"log"'*) echo '{"ok":true,"log":"{}"}' >&3 ;;
    *'"key"'*) echo 'broken' >&2; exit 7 ;;
    *) echo '{"ok":true}' >&3 ;;
    esac
done
)sh");
        std::filesystem::permissions(script, std::filesystem::perms::owner_all);
        options.root = folder.path("root");
        options.out = folder.path("out");
        options.executable = script;
        options.startedAt = 1000;
    }

    /// Plays and keeps what was told on standard error.
    int play(const std::vector<std::string>& contents) {
        std::vector<Flow> flows;
        for (const std::string& content : contents) {
            flows.push_back(Flow::read(folder.write("flow" + std::to_string(flows.size()) + ".yaml", content)));
        }
        Player player(options);
        testing::internal::CaptureStderr();
        const int status = player.play(flows);
        errors = testing::internal::GetCapturedStderr();
        report = player.report().json();
        return status;
    }

    std::size_t count(const std::string& what) const {
        const std::string seen = folder.read("seen");
        std::size_t number = 0;
        for (auto at = seen.find(what); at != std::string::npos; at = seen.find(what, at + 1)) {
            ++number;
        }
        return number;
    }

    TemporaryFolder folder;
    Player::Options options;
    std::string errors;
    nlohmann::ordered_json report;
};

} // namespace

TEST_F(PlayerTest, GivesZeroWhenAllHolds) {
    EXPECT_EQ(play({"name: One\n---\n- launchApp\n- tapOn: Note\n- stopApp\n"}), 0);

    EXPECT_EQ(errors, "");
    const auto& flow = report["flows"][0];
    EXPECT_EQ(flow["name"], "One");
    EXPECT_EQ(flow["ok"], true);
    EXPECT_EQ(flow["commands"].size(), 3u);
    EXPECT_EQ(flow["commands"][1]["line"], 4);
    EXPECT_EQ(flow["commands"][1]["command"], "tapOn");
    EXPECT_EQ(flow["commands"][1]["ok"], true);
    EXPECT_EQ(flow["commands"][1]["message"], "");
    EXPECT_TRUE(flow["commands"][1]["milliseconds"].is_number_integer());
}

TEST_F(PlayerTest, TellsAFailureInOneLineAndLeavesTheRest) {
    EXPECT_EQ(play({"- launchApp\n- assertVisible: Gone\n- stopApp\n"}), 1);

    EXPECT_EQ(errors, folder.path("flow0.yaml") + ":2: command 2: assertVisible: \"Gone\" is not on the screen\n");
    EXPECT_EQ(report["flows"][0]["ok"], false);
    EXPECT_EQ(report["flows"][0]["commands"].size(), 2u);
    EXPECT_EQ(report["flows"][0]["commands"][1]["message"], "\"Gone\" is not on the screen");
}

TEST_F(PlayerTest, TellsAFailureInsideARepeatOnce) {
    EXPECT_EQ(play({"- launchApp\n- repeat:\n    times: 3\n    commands:\n    - assertNotVisible: Note\n"}), 1);

    EXPECT_EQ(errors, folder.path("flow0.yaml") + ":5: command 1: assertNotVisible: \"Note\" is still visible\n");
}

TEST_F(PlayerTest, ReportsTheDeathOfTheApplication) {
    EXPECT_EQ(play({"- launchApp\n- pressKey: enter\n"}), 1);

    EXPECT_THAT(errors, HasSubstr("pressKey: the phone application died: exit status 7, last words: broken"));
}

TEST_F(PlayerTest, NeedsTheApplicationToRun) {
    EXPECT_EQ(play({"- tapOn: Note\n"}), 2);

    EXPECT_THAT(errors, HasSubstr("put `- launchApp` before tapOn"));
}

TEST_F(PlayerTest, GoesOnWithTheNextFlow) {
    EXPECT_EQ(play({"- launchApp\n- assertVisible: Gone\n", "- tapOn: Note\n"}), 1);

    EXPECT_EQ(report["flows"][1]["ok"], true);
    EXPECT_EQ(count("start"), 1u); // the application carries over
}

TEST_F(PlayerTest, StartsANewApplicationAtEachLaunch) {
    EXPECT_EQ(play({"- launchApp\n- launchApp\n- stopApp\n- launchApp\n"}), 0);

    EXPECT_EQ(count("start"), 3u);
    EXPECT_EQ(count("\"settle\""), 4u); // before each end, and at the end of the flow
}

TEST_F(PlayerTest, StandsItsClockAtNowUntilItIsSet) {
    EXPECT_EQ(play({"phone: {now: \"2026-03-05T14:37:12\", zone: Europe/Berlin}\n---\n- launchApp\n"
                    "- setClock: \"2026-03-05T15:37:12\"\n- launchApp\n"}),
              0);

    EXPECT_EQ(count("--now 1772717832.000"), 1u);
    EXPECT_EQ(count("--now 1772721432.000"), 1u);
    EXPECT_EQ(count("\"setClock\""), 1u);
}

TEST_F(PlayerTest, LetsTheCommandLineGoBeforeTheHeader) {
    options.phone.device = "iphone4";
    options.phone.zone = "UTC";

    EXPECT_EQ(play({"phone: {device: iphone5, language: de, zone: Europe/Berlin}\n---\n- launchApp\n"}), 0);

    EXPECT_EQ(count("--device iphone4 --app older --language de --system 7 --zone UTC --now 1000.000"), 1u);
    EXPECT_EQ(folder.read("root/var/mobile/Library/Phone/zone"), "UTC\n");
}

TEST_F(PlayerTest, RefusesATimeThatTheZoneSkips) {
    EXPECT_EQ(play({"phone: {zone: Europe/Berlin}\n---\n- setClock: \"2026-03-29T02:30:00\"\n"}), 2);

    EXPECT_THAT(errors, HasSubstr("clocks in Europe/Berlin never show"));
}

TEST_F(PlayerTest, RunsAFlowOnlyWhenItsConditionHolds) {
    EXPECT_EQ(play({"- launchApp\n- runFlow: {when: {visible: Gone}, commands: [{pressKey: enter}]}\n"
                    "- runFlow: {when: {notVisible: Note}, commands: [{pressKey: enter}]}\n"
                    "- runFlow: {when: {visible: Note}, commands: [hideKeyboard]}\n"}),
              0);

    EXPECT_EQ(count("\"hideKeyboard\""), 1u);
}

TEST_F(PlayerTest, RepeatsWhileItsConditionHolds) {
    EXPECT_EQ(play({"- launchApp\n- repeat: {times: 3, while: {visible: Note}, commands: [hideKeyboard]}\n"
                    "- repeat: {while: {notVisible: Note}, commands: [hideKeyboard]}\n"}),
              0);

    EXPECT_EQ(count("\"hideKeyboard\""), 3u);
}

TEST_F(PlayerTest, WritesDumpsAndPreferences) {
    EXPECT_EQ(play({"- setPreferences: {SwitchCell1: true}\n- launchApp\n- dumpTree: a/tree\n- dumpLog: log\n"}), 0);

    EXPECT_THAT(folder.read("out/a/tree.xml"), HasSubstr("<screen"));
    EXPECT_EQ(folder.read("out/log.jsonl"), "{}");
    EXPECT_THAT(folder.read("root/var/mobile/Library/Preferences/Mirelda.Quorvan.plist"), HasSubstr("SwitchCell1"));
}
