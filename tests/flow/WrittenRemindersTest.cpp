// Reminders written during a call, seen from outside the phone application.

#include "phone/eventkit/CalendarFolder.h"
#include "tests/flow/WholePhone.h"

namespace phone {
namespace {

class WrittenReminders : public WholePhone {
protected:
    /// Chooses what can be chosen; the list chooser shows the lists from its second opening on.
    static constexpr const char* chooseEverything = R"(
- tapOn: {text: "List", index: 0}
- waitForAnimationToEnd
- tapOn: "Back"
- waitForAnimationToEnd
- tapOn: {text: "List", index: 0}
- waitForAnimationToEnd
- tapOn: "Work"
- tapOn: "Back"
- waitForAnimationToEnd
- tapOn: "Remind me"
- waitForAnimationToEnd
- pickDate: "2026-03-06T09:30"
- tapOn: "Back"
- waitForAnimationToEnd
- tapOn: "Priority"
- waitForAnimationToEnd
- tapOn: "!!!"
- tapOn: "Back"
- waitForAnimationToEnd
)";
    static std::string openReminder() { return open("Reminder"); }
    static std::string write(const std::string& text) { return WholePhone::write("  Description", text); }
    static Stores allowed() {
        Stores stores;
        stores.reminderAccess = Access::Allow;
        return stores;
    }
};

TEST_F(WrittenReminders, CarryNothingOverARestart) {
    make(allowed());

    play(openReminder() + chooseEverything + write("milk") + "- stopApp\n" + openReminder() + write("eggs"));

    const auto reminders = recorded("reminders");
    ASSERT_EQ(reminders.size(), 2U);
    EXPECT_EQ(reminders[0].dump(), R"({"list":"Work","title":"milk","priority":1,"start":"2026-03-05T14:37:00+01:00",)"
                                   R"("due":"2026-03-06T09:30:00+01:00","alarms":["2026-03-06T09:30:00+01:00"]})");
    EXPECT_EQ(reminders[1].dump(),
              R"({"list":"Tasks","title":"eggs","priority":0,"start":null,"due":null,"alarms":[]})");
}

TEST_F(WrittenReminders, ShowTheListsOfAnEarlierRun) {
    make(allowed());

    play(openReminder() + chooseEverything + "- stopApp\n- setPermissions: {reminders: deny}\n" + openReminder() +
         R"(
- tapOn: {text: "List", index: 0}
- assertVisible: "Shopping"
)");
}

// todoman is a calendar program that people use; it knows nothing of the phone.
TEST_F(WrittenReminders, AreReadByTodoman) {
    make(allowed());
    play(openReminder() + chooseEverything + write("Milk; bread, ü"));
    folder.write("todoman.py", "path = \"" + root() + CalendarFolder::devicePath + "/reminders/*\"\n" +
                                   "date_format = \"%Y-%m-%d\"\ntime_format = \"%H:%M\"\ncache_path = \"" +
                                   folder.path("cache.sqlite3") + "\"\n");

    const auto todos =
        nlohmann::json::parse(printed("todoman --config " + folder.path("todoman.py") + " --porcelain list"));

    ASSERT_EQ(todos.size(), 1U);
    EXPECT_EQ(todos[0]["summary"], "Milk; bread, ü");
    EXPECT_EQ(todos[0]["list"], "Work");
    EXPECT_EQ(todos[0]["priority"], 1);
    EXPECT_EQ(todos[0]["due"], 1772785800); // 08:30 UTC
}

} // namespace
} // namespace phone
