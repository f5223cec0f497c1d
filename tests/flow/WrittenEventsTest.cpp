// Events written during a call, seen from outside the phone application.

#include "phone/eventkit/CalendarFolder.h"
#include "tests/flow/WholePhone.h"

namespace phone {
namespace {

class WrittenEvents : public WholePhone {
protected:
    static constexpr const char* openEvent = R"(
- phoneCall: {number: "+49 30 1234567", action: call}
- phoneCall: {action: accept}
- tapOn: {point: "160,50"}
- tapOn: "Event"
- waitForAnimationToEnd
)";
    static constexpr const char* chooseEverything = R"(
- tapOn: "Calendar"
- waitForAnimationToEnd
- tapOn: "Back"
- waitForAnimationToEnd
- tapOn: "Calendar"
- waitForAnimationToEnd
- tapOn: "Work"
- tapOn: "Back"
- waitForAnimationToEnd
- tapOn: "Date"
- waitForAnimationToEnd
- tapOn: "Start"
- waitForAnimationToEnd
- pickDate: "2026-03-20T09:15"
- tapOn: "Back"
- waitForAnimationToEnd
- tapOn: "End"
- waitForAnimationToEnd
- pickDate: "2026-03-20T10:45"
- tapOn: "Back"
- waitForAnimationToEnd
- tapOn: "Back"
- waitForAnimationToEnd
- tapOn: "Repeat"
- waitForAnimationToEnd
- tapOn: "End Date"
- waitForAnimationToEnd
- pickDate: "2026-04-03T14:37"
- tapOn: "Back"
- waitForAnimationToEnd
- tapOn: "Every Week"
- tapOn: "Back"
- waitForAnimationToEnd
)";
    static constexpr const char* turnAllDay = R"(
- tapOn: "Date"
- waitForAnimationToEnd
- toggle: "All-day"
- tapOn: "Back"
- waitForAnimationToEnd
)";
    /// A repetition whose end is not looked at, and what the form of the times shows at first.
    static constexpr const char* lookAround = R"(
- tapOn: "Date"
- waitForAnimationToEnd
- assertVisible: "14:37"
- assertVisible: "15:37"
- tapOn: "Back"
- waitForAnimationToEnd
- tapOn: "Repeat"
- waitForAnimationToEnd
- tapOn: "Every Week"
- tapOn: "Back"
- waitForAnimationToEnd
)";
    static std::string write(const std::string& text) {
        return "- tapOn: \"Description\"\n- inputText: \"" + text + "\"\n- tapOn: \"Done\"\n- waitForAnimationToEnd\n";
    }
    static Stores allowed() {
        Stores stores;
        stores.eventAccess = Access::Allow;
        return stores;
    }
};

TEST_F(WrittenEvents, CarryNothingOverARestart) {
    make(allowed());

    play(std::string("- launchApp") + openEvent + chooseEverything + turnAllDay + write("Lunch") +
         "- stopApp\n- launchApp" + openEvent + lookAround + write("Again"));

    const auto events = recorded("events");
    ASSERT_EQ(events.size(), 2U);
    EXPECT_EQ(events[0].dump(),
              R"({"calendar":"Work","title":"Lunch","location":null,"start":"2026-03-20","end":"2026-03-20",)"
              R"("allDay":true,"alarms":[0],)"
              R"("recurrence":{"frequency":"weekly","interval":1,"until":"2026-04-03T14:37:00+02:00"}})");
    EXPECT_EQ(events[1].dump(),
              R"({"calendar":"Home","title":"Again","location":null,"start":"2026-03-05T14:37:12+01:00",)"
              R"("end":"2026-03-05T15:37:12+01:00","allDay":false,"alarms":[0],)"
              R"("recurrence":{"frequency":"weekly","interval":1,"until":null}})");
}

// khal is a calendar program that people use; it knows nothing of the phone.
TEST_F(WrittenEvents, AreReadByKhal) {
    make(allowed());
    play(std::string("- launchApp") + openEvent + chooseEverything + write("Lunch; with A, ü"));
    std::string places;
    for (const CalendarRow& calendar : CalendarFolder(root(), EntityType::Event).calendars()) {
        places += "[[" + calendar.title + "]]\npath = " + root() + CalendarFolder::devicePath + "/events/" +
                  calendar.id + "\n";
    }
    folder.write("khal.conf", "[calendars]\n" + places + "[sqlite]\npath = " + folder.path("khal.db") +
                                  "\n[locale]\nlocal_timezone = Europe/Berlin\ndefault_timezone = Europe/Berlin\n"
                                  "timeformat = %H:%M\ndateformat = %Y-%m-%d\nlongdateformat = %Y-%m-%d\n"
                                  "datetimeformat = %Y-%m-%d %H:%M\nlongdatetimeformat = %Y-%m-%d %H:%M\n");

    const std::string shown = printed("khal -c " + folder.path("khal.conf") + " list --day-format '' --format " +
                                      "'{calendar}|{title}|{start}|{end}' 2026-03-01 2026-06-01");

    EXPECT_EQ(shown, "Work|Lunch; with A, ü|2026-03-20 09:15|2026-03-20 10:45\n"
                     "Work|Lunch; with A, ü|2026-03-27 09:15|2026-03-27 10:45\n"
                     "Work|Lunch; with A, ü|2026-04-03 09:15|2026-04-03 10:45\n");
}

} // namespace
} // namespace phone
