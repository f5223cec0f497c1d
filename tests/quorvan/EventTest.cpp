#include "tests/quorvan/EventTest.h"

#include "phone/flow/LocalTime.h"

void EventTest::startEvent(const Start& with) {
    start(with);
    startCall();
    openAnother();
}

void EventTest::startEventAt(const std::string& localTime, const std::string& zone) {
    useZone(zone);
    _zone = zone;
    start();
    setClock(localTime);
    startCall();
    openAnother();
}

void EventTest::setClock(const std::string& localTime) { boot().setClock(*phone::momentOf(localTime, _zone)); }

void EventTest::openAnother() {
    openSheet();
    openEvent();
}

void EventTest::startAt(const std::vector<std::string>& rows) {
    startEvent();
    for (const auto& row : rows) {
        touchAndWait(row);
    }
}

pugi::xml_node EventTest::shown() {
    return tree().select_node("//*[@cornerRadius='5' and @visible='true'][UINavigationBar]").node();
}

std::string EventTest::screen() { return attribute(shown().parent(), "controller"); }

pugi::xml_node EventTest::field(int index) {
    pugi::xml_node found = shown().child("UITextField");
    return index == 0 ? found : found.next_sibling("UITextField");
}

std::string EventTest::value(const std::string& title) {
    const std::string path = ".//*[@row][.//UILabel[@text='" + title + "']]//UILabel[@align='right']";
    return attribute(shown().select_node(path.c_str()).node(), "text");
}
