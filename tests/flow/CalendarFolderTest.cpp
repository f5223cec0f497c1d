#include "phone/eventkit/CalendarFolder.h"

#include "phone/eventkit/EventText.h"
#include "phone/eventkit/ReminderText.h"
#include "tests/flow/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <sys/wait.h>
#include <unistd.h>

using namespace phone;
using testing::HasSubstr;

namespace {

class CalendarFolderTest : public testing::Test {
protected:
    CalendarFolderTest() : lists(root.path(), EntityType::Reminder) {}

    std::string below(const std::string& name) const {
        return std::string(CalendarFolder::devicePath).substr(1) + "/reminders/" + name;
    }
    void make() { lists.create(Access::Ask, {{"Tasks"}, {"Ärger", true}, {"Work", false, true}}); }
    static ReminderItem item(const std::string& title) {
        ReminderItem made;
        made.id = newIdentifier();
        made.title = title;
        made.created = made.modified = 1772721432;
        return made;
    }
    std::vector<std::string> titles() const {
        std::vector<std::string> all;
        for (const ReminderRow& row : lists.reminders()) {
            all.push_back(row.item.title);
        }
        return all;
    }

    TemporaryFolder root;
    CalendarFolder lists;
};

} // namespace

TEST_F(CalendarFolderTest, KeepsOrderDefaultAndWhatIsReadOnly) {
    make();

    const auto all = lists.calendars();
    ASSERT_EQ(all.size(), 3u);
    EXPECT_EQ(all[0].title, "Tasks");
    EXPECT_EQ(all[1].title, "Ärger");
    EXPECT_TRUE(all[1].isDefault);
    EXPECT_FALSE(all[0].isDefault || all[2].isDefault);
    EXPECT_TRUE(all[2].isReadOnly);
    EXPECT_EQ(root.read(below(all[1].id + "/displayname")), "Ärger");
    EXPECT_EQ(root.read(below(all[1].id + "/color")).size(), 7u);
}

TEST_F(CalendarFolderTest, AFolderThatIsMissingHoldsNothingAndAsks) {
    EXPECT_TRUE(lists.calendars().empty());
    EXPECT_TRUE(lists.reminders().empty());
    EXPECT_EQ(lists.access(), Access::Ask);
}

TEST_F(CalendarFolderTest, RemembersAccessPerType) {
    make();

    lists.setAccess(Access::Deny);

    EXPECT_EQ(lists.access(), Access::Deny);
    EXPECT_EQ(CalendarFolder(root.path(), EntityType::Event).access(), Access::Ask);
}

TEST_F(CalendarFolderTest, ListsOfOtherProgramsComeLastByTheirFoldersNames) {
    make();
    root.write(below("zz/displayname"), "Theirs\n");
    root.write(below("aa/displayname"), "");

    const auto all = lists.calendars();

    ASSERT_EQ(all.size(), 5u);
    EXPECT_EQ(all[3].title, "aa");
    EXPECT_EQ(all[4].title, "Theirs");
}

TEST_F(CalendarFolderTest, SurvivesBrokenFilesOfTheStore) {
    make();
    root.write(below(".lists"), "{\"order\": 7, \"default\": [], ");
    root.write(below(".access"), "perhaps");

    EXPECT_EQ(lists.calendars().size(), 3u);
    EXPECT_EQ(lists.access(), Access::Ask);
}

TEST_F(CalendarFolderTest, PassesOverWhatIsNoReminder) {
    make();
    const std::string list = lists.calendars()[0].id;
    auto reminder = item("one");
    lists.write(list, reminder);
    root.write(below(list + "/broken.ics"), "BEGIN:VCAL");
    root.write(below(list + "/empty.ics"), "");
    root.write(below(list + "/.half.ics.abcdef"), textOf(item("half")));
    root.write(below(list + "/event.ics"), "BEGIN:VCALENDAR\nBEGIN:VEVENT\nUID:1\nEND:VEVENT\nEND:VCALENDAR\n");

    EXPECT_EQ(titles(), std::vector<std::string>{"one"});
}

TEST_F(CalendarFolderTest, NamesTheFilesThatAreBrokenAndLeavesThemAlone) {
    make();
    const std::string list = lists.calendars()[0].id;
    auto reminder = item("one");
    lists.write(list, reminder);
    const std::string whole = textOf(item("two"));
    root.write(below(list + "/broken.ics"), "no calendar at all");
    root.write(below(list + "/cut.ics"), whole.substr(0, whole.size() / 2));
    root.write(below(list + "/empty.ics"), "");

    const auto broken = lists.brokenFiles();

    std::vector<std::string> names;
    for (const auto& file : broken) {
        names.push_back(file.filename());
    }
    EXPECT_EQ(names, (std::vector<std::string>{"broken.ics", "cut.ics", "empty.ics"}));
    EXPECT_EQ(titles(), std::vector<std::string>{"one"});
    EXPECT_EQ(root.read(below(list + "/broken.ics")), "no calendar at all");
}

TEST_F(CalendarFolderTest, EventsHaveAFolderAndAnOrderOfTheirOwn) {
    make();
    const CalendarFolder calendars(root.path(), EntityType::Event);
    calendars.create(Access::Allow, {{"Home", true}, {"Work"}});
    std::vector<std::string> found;
    for (const int calendar : {1, 0}) {
        EventItem event;
        event.id = newIdentifier();
        event.title = std::to_string(calendar);
        event.start = event.end = CalendarDate{2026, 5, 16, 9, 0, 0, false, ""};
        calendars.write(calendars.calendars()[static_cast<std::size_t>(calendar)].id, event);
        EXPECT_EQ(event.order, 2 - calendar);
    }

    for (const EventRow& row : calendars.events()) {
        found.push_back(row.calendar + " " + row.item.title);
    }

    EXPECT_EQ(found, (std::vector<std::string>{"Work 1", "Home 0"}));
    EXPECT_TRUE(lists.reminders().empty());
    EXPECT_TRUE(calendars.brokenFiles().empty());
}

TEST_F(CalendarFolderTest, ItemsOfOtherProgramsComeAfterThePhonesOwnByTheirAge) {
    make();
    const std::string list = lists.calendars()[0].id;
    for (const auto& [name, created] : {std::pair("younger", 1772721500.0), std::pair("older", 1000.0)}) {
        auto theirs = item(name);
        theirs.created = created;
        root.write(below(list + "/" + name + ".ics"), textOf(theirs));
    }
    auto own = item("own");
    lists.write(list, own);

    EXPECT_EQ(titles(), (std::vector<std::string>{"own", "older", "younger"}));
}

TEST_F(CalendarFolderTest, TheOrderGoesOnWhenItsFileIsLost) {
    make();
    const std::string list = lists.calendars()[0].id;
    auto first = item("first");
    lists.write(list, first);
    std::filesystem::remove(root.path(below(".order")));
    auto second = item("second");
    lists.write(list, second);

    EXPECT_GT(second.order, first.order);
}

TEST_F(CalendarFolderTest, RefusesAListThatIsNotThere) {
    make();
    auto reminder = item("one");

    EXPECT_THROW(lists.write("nowhere", reminder), CalendarFolderError);
}

TEST_F(CalendarFolderTest, ProcessesThatWriteAtOnceGetDifferentPlaces) {
    make();
    const std::string list = lists.calendars()[0].id;
    constexpr int processes = 4;
    constexpr int each = 10;
    for (int process = 0; process < processes; ++process) {
        if (fork() == 0) {
            for (int i = 0; i < each; ++i) {
                auto reminder = item("x");
                lists.write(list, reminder);
            }
            _exit(0);
        }
    }
    while (wait(nullptr) > 0) {
    }

    std::set<long> orders;
    for (const ReminderRow& row : lists.reminders()) {
        orders.insert(row.item.order);
    }
    EXPECT_EQ(orders.size(), static_cast<std::size_t>(processes * each));
}

TEST_F(CalendarFolderTest, AKilledWriterLeavesWholeItemsOnly) {
    make();
    const std::string list = lists.calendars()[0].id;
    const pid_t writer = fork();
    if (writer == 0) {
        auto reminder = item(std::string(20000, 'x'));
        for (;;) {
            reminder.id = newIdentifier();
            reminder.order = 0;
            lists.write(list, reminder);
        }
    }
    while (lists.reminders().size() < 5) {
    }
    kill(writer, SIGKILL);
    waitpid(writer, nullptr, 0);

    for (const std::string& title : titles()) {
        EXPECT_EQ(title.size(), 20000u);
    }
    auto after = item("after");
    lists.write(list, after); // the lock went with the process
    EXPECT_EQ(titles().back(), "after");
}

TEST(ReminderText, KeepsEveryCharacterOfATitle) {
    for (const std::string& title :
         {std::string("a\\nb; c, d: \"e\" \\"), std::string("  two blanks "), std::string("tab\tand\nbreaks\n\n"),
          std::string("ü€😀漢字 ") + std::string(300, 'w') + "😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀",
          std::string("BEGIN:VTODO\nEND:VTODO"), std::string()}) {
        ReminderItem reminder;
        reminder.id = "1";
        reminder.title = title;

        const auto read = reminderFrom(textOf(reminder));

        ASSERT_TRUE(read) << title;
        EXPECT_EQ(read->title, title);
    }
}

TEST(ReminderText, KeepsDatesAlarmsAndCompletion) {
    ReminderItem reminder;
    reminder.id = "1";
    reminder.start = CalendarDate{2026, 3, 29, 2, 30, 15, false, "Europe/Berlin"};
    reminder.due = CalendarDate{2026, 5, 16, 0, 0, 0, true, ""};
    reminder.alarms = {{1772721432.0, 0}, {std::nullopt, -900}, {std::nullopt, 0}};
    reminder.completed = 1772721400;

    const std::string text = textOf(reminder);
    const auto read = reminderFrom(text);

    ASSERT_TRUE(read);
    EXPECT_EQ(read->start, reminder.start);
    EXPECT_EQ(read->due, reminder.due);
    EXPECT_EQ(read->alarms, reminder.alarms);
    EXPECT_EQ(read->completed, reminder.completed);
    EXPECT_THAT(text, HasSubstr("DUE;VALUE=DATE:20260516"));
    EXPECT_THAT(text, HasSubstr("DTSTART;TZID=Europe/Berlin:20260329T023015"));
    EXPECT_THAT(text, HasSubstr("BEGIN:VTIMEZONE"));
}

TEST(CalendarDate, IsAMomentInItsOwnZoneOrWhereItIsRead) {
    const CalendarDate local = {2026, 5, 16, 9, 30, 0, false, ""};
    CalendarDate fixed = local;
    fixed.zone = "UTC";

    EXPECT_EQ(momentOf(local, "Europe/Berlin"), 1778916600);
    EXPECT_EQ(momentOf(local, "UTC"), 1778923800);
    EXPECT_EQ(momentOf(fixed, "Europe/Berlin"), 1778923800);
}

TEST(CalendarDate, OfAMomentLeadsBackToIt) {
    // Around both changes of summer time, every half hour.
    for (const double around : {1774746000.0, 1792890000.0}) {
        for (int half = -6; half <= 6; ++half) {
            const double moment = around + half * 1800;
            EXPECT_EQ(momentOf(dateAt(moment, "Europe/Berlin"), "UTC"), moment) << half;
        }
    }
    EXPECT_EQ(dateAt(1778916600.5, "Europe/Berlin"), (CalendarDate{2026, 5, 16, 9, 30, 0, false, "Europe/Berlin"}));
    EXPECT_EQ(dateAt(1778916600, "no zone"), (CalendarDate{2026, 5, 16, 7, 30, 0, false, "UTC"}));
    EXPECT_EQ(dayAt(1778880600, "Europe/Berlin"), (CalendarDate{2026, 5, 15, 0, 0, 0, true, ""}));
    EXPECT_EQ(dayAfter({2026, 12, 31, 0, 0, 0, true, ""}, 1), (CalendarDate{2027, 1, 1, 0, 0, 0, true, ""}));
}
