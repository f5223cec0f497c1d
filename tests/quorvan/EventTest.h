/// The event screen in a call, and its choosers: the fixture of the event's tests.
#pragma once

#include "tests/quorvan/CallTest.h"

#include <string>
#include <vector>

class EventTest : public CallTest {
protected:
    /// From the idle phone to the event screen, 5 March 2026, 14:37:12.
    void startEvent(const Start& with = {});
    /// The same with the wall clock at another local time.
    void startEventAt(const std::string& localTime, const std::string& zone = "UTC");
    /// Only in zones in which nothing is summer time just then, or before the first of two equal hours.
    void setClock(const std::string& localTime);
    /// The event screen once more, from the call screen.
    void openAnother();
    void startCalendar() { startAt({"Calendar"}); }
    void startDate() { startAt({"Date"}); }
    void startRepeat() { startAt({"Repeat"}); }
    void startRepeatEnd() { startAt({"Repeat", "End Date"}); }
    /// The event screen, and from there by these rows.
    void startAt(const std::vector<std::string>& rows);

    /// The panel on the screen now, as an element of the tree; null when there is none.
    pugi::xml_node shown();
    /// The class of the controller whose screen it is; "" for none.
    std::string screen();
    pugi::xml_node field(int index);
    pugi::xml_node picker() { return shown().child("UIDatePicker"); }
    bool isSwitchOn() { return shown().child("UISwitch").attribute("on").as_bool(); }
    /// What the row of this title shows.
    std::string value(const std::string& title);
    /// The texts of the rows that have a cell, top to bottom.
    std::vector<std::string> rows() { return CallTest::rows(shown()); }
    /// The same of the rows that carry a checkmark.
    std::vector<std::string> marked() { return CallTest::marked(shown()); }

    std::string panelFrame() { return attribute(shown(), "frame"); }

private:
    std::string _zone = "UTC";
};
