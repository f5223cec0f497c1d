/// A reminder written and saved: the fixture of the tests on what stands in the lists afterwards.
#pragma once

#include "phone/foundation/FileFaults.h"
#include "tests/quorvan/CallTest.h"

#include <string>
#include <vector>

class ReminderSavingTest : public CallTest {
protected:
    ReminderSavingTest() {
        useZone("Europe/Berlin"); // the clock stands at 15:37:12 there
        useReminders(phone::Access::Allow);
    }
    void startTyped(const std::string& text = "milk") {
        start();
        startReminder();
        typeNote(text);
    }
    void openAnother(const std::string& text) {
        openSheet();
        openReminder();
        typeNote(text);
    }
    void openRow(int row) {
        touchAndWait(panel().select_node((".//*[@row='0," + std::to_string(row) + "']").c_str()).node());
    }
    /// The list chooser shows a list from its second opening on.
    void chooseList(const std::string& title) {
        openRow(0);
        goBack();
        openRow(0);
        touchAndWait(title);
        goBack();
    }
    void chooseDate(const std::string& localTime) {
        openRow(1);
        pickDate(localTime);
        goBack();
    }
    void refuseAlarm() {
        openRow(1);
        toggle("Remind Me");
        goBack();
    }
    void choosePriority(const std::string& text) {
        openRow(2);
        touchAndWait(text);
        goBack();
    }
    /// The reminder saved last.
    phone::ReminderRow saved() {
        const auto all = reminders();
        return all.empty() ? phone::ReminderRow() : all.back();
    }
    /// The request, the saving and the activity's end as they came.
    std::vector<std::string> order() {
        std::vector<std::string> steps;
        for (const auto& entry : log()) {
            const bool isStore = entry.at("what") == "store";
            if (entry.at("what") == "finish") {
                steps.emplace_back("finish");
            } else if (isStore && entry.at("message") == "requestAccessToEntityType:completion:") {
                steps.emplace_back("request");
            } else if (isStore && entry.at("message") == "saveReminder:commit:error:") {
                steps.emplace_back("save");
            }
        }
        return steps;
    }
    bool isBackOnTheCallScreen() { return !panel() && isVisible("mute"); }
    /// The messages from the request for saving on.
    std::vector<std::string> savingMessages() {
        const std::vector<std::string> all = logged("store", "message");
        const auto asked = std::find(all.rbegin(), all.rend(), "init");
        return {asked.base() - 1, all.end()};
    }
};
