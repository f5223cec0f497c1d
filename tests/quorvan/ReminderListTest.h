/// The list chooser and its two files.
#pragma once

#include "phone/foundation/FileFaults.h"
#include "tests/quorvan/BrokenFiles.h"
#include "tests/quorvan/CallTest.h"

#include <string>
#include <vector>

class ReminderListTest : public CallTest {
protected:
    static std::string titlesFile() { return resource("Reminders.plist"); }
    static std::string identifiersFile() { return resource("RemindersID.plist"); }

    /// The row's name reads as its value does at first.
    void open() { touchAndWait(panel().select_node(".//*[@row='0,0']").node()); }
    /// Once for the file of titles, and once more to see what it holds.
    void openTwice() {
        open();
        goBack();
        open();
    }
    pugi::xml_node chooser() { return CallTest::chooser("ReminderList"); }
    std::vector<std::string> rows() { return CallTest::rows(chooser()); }
    std::vector<std::string> marked() { return CallTest::marked(chooser()); }
    void writeTitles(const std::vector<std::string>& titles) {
        std::string body;
        for (const std::string& title : titles) {
            body += "<string>" + title + "</string>";
        }
        write(titlesFile(), "<?xml version=\"1.0\"?><plist version=\"1.0\"><array>" + body + "</array></plist>");
    }
    /// What the file of titles holds, in order.
    std::vector<std::string> titles() const {
        pugi::xml_document file;
        file.load_string(read(titlesFile()).c_str());
        std::vector<std::string> found;
        for (const auto& title : file.select_nodes("/plist/array/string")) {
            found.emplace_back(title.node().text().get());
        }
        return found;
    }
    /// L0 to L11: more than the panel shows.
    void useTwelveLists() {
        std::vector<phone::CalendarStore> lists;
        for (int i = 0; i < 12; ++i) {
            lists.push_back({"L" + std::to_string(i)});
        }
        useReminders(phone::Access::Allow, lists);
    }
    /// A finger moves the rows up, as far as they go.
    void scrollToTheEnd() {
        for (int i = 0; i < 3; ++i) {
            touch(phone::Screen::Phase::Began, 160, 400);
            touch(phone::Screen::Phase::Moved, 160, 300);
            touch(phone::Screen::Phase::Moved, 160, 200);
            touch(phone::Screen::Phase::Ended, 160, 200);
            settle();
        }
    }
    /// What was done to the two files, in order: "ACTION NAME OK".
    std::vector<std::string> fileActions() {
        std::vector<std::string> actions;
        for (const auto& entry : log("file")) {
            const std::string path = entry.at("path");
            if (path == titlesFile() || path == identifiersFile()) {
                actions.push_back(entry.at("action").get<std::string>() + " " + path.substr(path.rfind('/') + 1) +
                                  (entry.at("ok") == true ? " ok" : " refused"));
            }
        }
        return actions;
    }
};
