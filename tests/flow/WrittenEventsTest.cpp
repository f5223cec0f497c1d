// Events written during a call, seen from outside the phone application.

#include "tests/flow/Khal.h"
#include "tests/flow/WholePhone.h"

namespace phone {
namespace {

class WrittenEvents : public WholePhone {
protected:
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
    static std::string openEvent() { return open("Event"); }
    static std::string write(const std::string& text) { return WholePhone::write("Description", text); }
    static Stores allowed() {
        Stores stores;
        stores.eventAccess = Access::Allow;
        return stores;
    }
};

TEST_F(WrittenEvents, CarryNothingOverARestart) {
    make(allowed());

    play(openEvent() + chooseEverything + turnAllDay + write("Lunch") + "- stopApp\n" + openEvent() + lookAround +
         write("Again"));

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

TEST_F(WrittenEvents, AreReadByKhal) {
    make(allowed());
    play(openEvent() + chooseEverything + write("Lunch; with A, ü"));

    const auto shown = Khal(folder, root()).list("{calendar}|{title}|{start}|{end}", "2026-03-01", "2026-06-01");

    EXPECT_EQ(shown, (std::vector<std::string>{"Work|Lunch; with A, ü|2026-03-20 09:15|2026-03-20 10:45",
                                               "Work|Lunch; with A, ü|2026-03-27 09:15|2026-03-27 10:45",
                                               "Work|Lunch; with A, ü|2026-04-03 09:15|2026-04-03 10:45"}));
}

} // namespace
} // namespace phone
