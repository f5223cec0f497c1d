/// The screen on which a reminder is written.
#pragma once

#include "platform/uikit/UINavigationController.h"
#include "tests/quorvan/CallTest.h"

#include <string>
#include <vector>

class ReminderScreenTest : public CallTest {
protected:
    std::vector<std::string> values() { return {shownValue(0), shownValue(1), shownValue(2)}; }
    pugi::xml_node screen() { return panel().parent(); }
    pugi::xml_node accessory(int row) {
        return panel().select_node((".//*[@row='0," + std::to_string(row) + "']//UIView[UIImageView]").c_str()).node();
    }
    /// The animations of the panel for the keyboard so far.
    std::vector<nlohmann::ordered_json> moves() {
        std::vector<nlohmann::ordered_json> found;
        for (const auto& entry : log("animation")) {
            if (entry.at("name") == "theBox") {
                found.push_back(entry);
            }
        }
        return found;
    }
};
