#include "phone/eventkit/CalendarFolder.h"
#include "phone/flow/InputError.h"
#include "phone/flow/NewPhone.h"
#include "phone/flow/Player.h"
#include "phone/flow/Records.h"
#include "tests/flow/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace phone;
using testing::HasSubstr;

namespace {

/// Plays on an application that notes its commands and answers everything.
class StoreCommandsTest : public testing::Test {
protected:
    StoreCommandsTest()
        : reminders(folder.path("root"), EntityType::Reminder), events(folder.path("root"), EntityType::Event) {
        options.executable =
            folder.write("application", "#!/bin/sh\necho start >> " + folder.path("seen") +
                                            "\nwhile read -r line <&3; do echo \"$line\" >> " + folder.path("seen") +
                                            "; echo '{\"ok\":true}' >&3; done\n");
        std::filesystem::permissions(options.executable, std::filesystem::perms::owner_all);
        options.root = folder.path("root");
        options.out = folder.path("out");
    }
    int play(const std::string& content) {
        Player player(options);
        testing::internal::CaptureStderr();
        const int status = player.play({Flow::read(folder.write("flow.yaml", content))});
        errors = testing::internal::GetCapturedStderr();
        return status;
    }
    std::string complaint(const std::string& content) {
        try {
            Flow::read(folder.write("flow.yaml", content));
            return "";
        } catch (const InputError& error) {
            return error.what();
        }
    }
    void make(const Stores& stores) {
        folder.write("stage/Library/Quorvan/a", "");
        makePhone(options.root, folder.path("stage"), stores);
    }

    TemporaryFolder folder;
    Player::Options options;
    CalendarFolder reminders;
    CalendarFolder events;
    std::string errors;
};

} // namespace

TEST_F(StoreCommandsTest, PermissionsAreSetWithoutAnApplication) {
    EXPECT_EQ(play("- setPermissions: {reminders: deny, events: allow}\n"), 0);

    EXPECT_EQ(reminders.access(), Access::Deny);
    EXPECT_EQ(events.access(), Access::Allow);

    EXPECT_EQ(play("- setPermissions: {events: ask}\n"), 0);
    EXPECT_EQ(reminders.access(), Access::Deny);
    EXPECT_EQ(events.access(), Access::Ask);
}

TEST_F(StoreCommandsTest, StoreAnswersGoToTheApplication) {
    EXPECT_EQ(play("- launchApp\n- setStoreAnswers: early\n- setStoreAnswers: concurrent\n- setStoreAnswers: late\n"),
              0);

    EXPECT_THAT(folder.read("seen"), HasSubstr(R"("when":"early")"));
    EXPECT_THAT(folder.read("seen"), HasSubstr(R"("when":"concurrent")"));
    EXPECT_THAT(folder.read("seen"), HasSubstr(R"("when":"late")"));
}

TEST_F(StoreCommandsTest, StoreAnswersSetBeforeTheStartHoldForThatRunAlone) {
    EXPECT_EQ(play("- setStoreAnswers: early\n- launchApp\n- stopApp\n- launchApp\n"), 0);

    const std::string seen = folder.read("seen");
    EXPECT_LT(seen.find("setStoreAnswers"), seen.rfind("start"));
    EXPECT_EQ(seen.find("setStoreAnswers"), seen.rfind("setStoreAnswers"));
}

TEST_F(StoreCommandsTest, AMemoryWarningGoesToTheApplication) {
    EXPECT_EQ(play("- launchApp\n- memoryWarning\n"), 0);

    EXPECT_THAT(folder.read("seen"), HasSubstr(R"("do":"memoryWarning")"));
}

TEST_F(StoreCommandsTest, UnusableValuesAreRefused) {
    EXPECT_THAT(complaint("- setPermissions: {reminders: perhaps}\n"), HasSubstr("not one of allow, deny, ask"));
    EXPECT_THAT(complaint("- setPermissions: {notes: allow}\n"), HasSubstr("unknown key `notes`"));
    EXPECT_THAT(complaint("- setStoreAnswers: soon\n"), HasSubstr("not one of late, early, concurrent"));
    EXPECT_THAT(complaint("- setStoreAnswers\n"), HasSubstr("needs something after it"));
}

TEST_F(StoreCommandsTest, ANewPhoneHasTheListsOfItsStores) {
    Stores stores;
    stores.reminders = {{"B"}, {"A", true}};
    stores.reminderAccess = Access::Allow;
    make(stores);

    const auto lists = reminders.calendars();
    ASSERT_EQ(lists.size(), 2u);
    EXPECT_EQ(lists[0].title, "B");
    EXPECT_TRUE(lists[1].isDefault);
    EXPECT_EQ(reminders.access(), Access::Allow);
    EXPECT_EQ(events.calendars().size(), 3u);
    EXPECT_EQ(events.access(), Access::Ask);
}

TEST_F(StoreCommandsTest, RecordsShowRemindersInTheZone) {
    make(Stores());
    ReminderItem reminder;
    reminder.id = newIdentifier();
    reminder.title = "Milk";
    reminder.priority = 5;
    reminder.start = CalendarDate{2026, 5, 15, 8, 30, 0, false, ""};
    reminder.due = CalendarDate{2026, 5, 16, 9, 0, 0, false, ""};
    reminder.alarms = {{1778914800.0, 0}};
    reminders.write(reminders.calendars()[1].id, reminder);
    ReminderItem plain;
    plain.id = newIdentifier();
    reminders.write(reminders.calendars()[0].id, plain);

    const auto all = records(options.root, "Europe/Berlin");

    EXPECT_EQ(all["reminders"][0].dump(),
              R"({"list":"Shopping","title":"Milk","priority":5,"start":"2026-05-15T08:30:00+02:00",)"
              R"("due":"2026-05-16T09:00:00+02:00","alarms":["2026-05-16T09:00:00+02:00"]})");
    EXPECT_EQ(all["reminders"][1].dump(),
              R"({"list":"Tasks","title":"","priority":0,"start":null,"due":null,"alarms":[]})");
    EXPECT_THAT(recordsTable(all), HasSubstr("Milk"));
}

TEST_F(StoreCommandsTest, RecordsShowEventsInTheZone) {
    make(Stores());
    EventItem event;
    event.id = newIdentifier();
    event.title = "Lunch";
    event.location = "Shop";
    event.start = CalendarDate{2026, 5, 16, 9, 0, 0, false, "Europe/Berlin"};
    event.end = CalendarDate{2026, 5, 16, 10, 0, 0, false, "Europe/Berlin"};
    event.alarms = {{std::nullopt, 0}, {std::nullopt, -900}, {1778914800.0 - 60, 0}};
    event.recurrence = Recurrence{Frequency::Weekly, 2, CalendarDate{2026, 6, 16, 14, 37, 12, false, "UTC"}, 0};
    events.write(events.calendars()[1].id, event);
    EventItem days;
    days.id = newIdentifier();
    days.start = CalendarDate{2026, 5, 16, 0, 0, 0, true, ""};
    days.end = CalendarDate{2026, 5, 18, 0, 0, 0, true, ""};
    days.recurrence =
        Recurrence{Frequency::Yearly, 1, CalendarDate{2030, 5, 16, 14, 37, 12, false, "Europe/Berlin"}, 0};
    events.write(events.calendars()[0].id, days);
    EventItem forever = days;
    forever.id = newIdentifier();
    forever.order = 0;
    forever.recurrence->until.reset();
    events.write(events.calendars()[0].id, forever);

    const auto all = records(options.root, "Europe/Berlin");

    EXPECT_EQ(all["events"][0].dump(),
              R"({"calendar":"Work","title":"Lunch","location":"Shop","start":"2026-05-16T09:00:00+02:00",)"
              R"("end":"2026-05-16T10:00:00+02:00","allDay":false,"alarms":[0,-900,-60],)"
              R"("recurrence":{"frequency":"weekly","interval":2,"until":"2026-06-16T16:37:12+02:00"}})");
    EXPECT_EQ(all["events"][1].dump(),
              R"({"calendar":"Home","title":"","location":null,"start":"2026-05-16","end":"2026-05-18",)"
              R"("allDay":true,"alarms":[],)"
              R"("recurrence":{"frequency":"yearly","interval":1,"until":"2030-05-16T14:37:12+02:00"}})");
    EXPECT_EQ(all["events"][2]["recurrence"].dump(), R"({"frequency":"yearly","interval":1,"until":null})");
    EXPECT_THAT(recordsTable(all), HasSubstr("  2026-05-16T09:00:00+02:00  Work      Lunch  every 2 weeks\n"));
    EXPECT_THAT(recordsTable(all), HasSubstr("  2026-05-16                 Home             yearly\n"));
}

TEST_F(StoreCommandsTest, ABrokenFileIsNamedAndCostsNoOtherRecord) {
    make(Stores());
    EventItem event;
    event.id = newIdentifier();
    event.start = event.end = CalendarDate{2026, 5, 16, 9, 0, 0, false, ""};
    const std::string calendar = events.calendars()[0].id;
    events.write(calendar, event);
    const std::string broken = folder.write(
        "root" + std::string(CalendarFolder::devicePath) + "/events/" + calendar + "/broken.ics", "BEGIN:VCALENDAR");

    EXPECT_EQ(records(options.root, "UTC")["events"].size(), 1u);
    ASSERT_EQ(brokenRecords(options.root).size(), 1u);
    EXPECT_THAT(brokenRecords(options.root)[0], HasSubstr("broken.ics: "));
}
