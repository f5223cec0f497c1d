/// A call in progress with the library loaded: the fixture of the library's tests.
#pragma once

#include "tests/phone/PhoneTest.h"

#include <ostream>
#include <string>
#include <utility>
#include <vector>

/// What a test's phone is.
struct Start {
    std::string device = "iphone5";
    std::string app = "newer";
    std::string language = "en";

    friend std::ostream& operator<<(std::ostream& out, const Start& start) {
        return out << start.device << ", " << start.app << ", " << start.language;
    }
};

class CallTest : public PhoneTest {
protected:
    /// Boots the phone; call first. What stands in the root folder may be changed before.
    void start(const Start& with = {});
    bool isStarted() const { return _started; }

    /// A call comes in, is accepted, and the call screen has appeared.
    void startCall();
    /// A tap on the top of the call screen; the sheet has appeared.
    void openSheet();
    /// The sheet's Note was picked; the note screen has appeared.
    void openNote();
    /// The sheet's Reminder was picked; the reminder screen has appeared.
    void openReminder();
    /// The sheet's Event was picked; the event screen has appeared.
    void openEvent();
    /// From the idle phone to the note screen.
    void startNote();
    /// From the idle phone to the reminder screen.
    void startReminder();
    /// Taps the text and types into it.
    void typeNote(const std::string& text);
    void typeTitle(const std::string& title);
    void touchAndWait(const pugi::xml_node& element);
    void touchAndWait(const std::string& text);
    /// Taps the bar button and waits until the call screen is back.
    void done();
    void cancel();
    /// Leaves a chooser; the compose screen has appeared.
    void goBack();
    /// Turns the wheels of the picker on the screen, by touches, to this local time.
    void pickDate(const std::string& localTime);
    /// Touches the switch on the line of the label.
    void toggle(const std::string& label);

    /// From now on calendar stores do not answer that they can be asked for access, as before platform 6.
    void withholdRequests();

    /// Before booting: a person in a region of 24 hours has set the clock to 12.
    void useTwelveHoursAgainstTheRegion() {
        useRegion("DE");
        useHours("12");
    }
    /// From now on labels come with a bold font of 17 points.
    void useBoldLabels();

    /// Turns on exactly these switches.
    void turnOn(const std::vector<int>& switches);
    /// Writes the kept-text file; a value may be any XML property list element.
    void keepText(const std::string& titleElement, const std::string& headerElement);
    /// What the kept-text file holds: "TITLE|HEADER".
    std::string keptText() const;
    static std::string resource(const std::string& name) { return "/Library/Quorvan/" + name; }

    /// The view of this class that lies foremost, itself; nil where there is none.
    template <class T>
    T liveView() {
        T found;
        run([&] { search(UIApplication::shared().keyWindow(), found); });
        return found;
    }

    /// The panel of the compose screen shown now, as an element of the tree; null when there is none.
    pugi::xml_node panel();
    /// The panel of the chooser of this class; null while it is not shown.
    pugi::xml_node chooser(const std::string& className);
    /// Expects what every panel of the library looks like, at this frame.
    void expectPanel(const pugi::xml_node& panel, const std::string& frame);
    /// What lies directly in a view, back to front: "CLASS FRAME".
    static std::vector<std::string> layout(const pugi::xml_node& view);
    /// What the rows of the panel's table that have a cell read, top to bottom.
    static std::vector<std::string> rows(const pugi::xml_node& panel);
    /// The texts of the rows that carry a checkmark.
    static std::vector<std::string> marked(const pugi::xml_node& panel);
    /// What a row of the compose screen's panel shows beside its name.
    std::string shownValue(int row);
    /// What a row of a screen on the navigation stack would show beside its name, were it drawn now.
    std::string drawnValue(objc::UInt place, objc::Int row, objc::Int section = 0);
    pugi::xml_node noteText() { return panel().child("UITextView"); }
    pugi::xml_node titleField() { return panel().child("UITextField"); }
    std::string shownText() { return attribute(noteText(), "text"); }
    std::string shownTitle() { return attribute(titleField(), "text"); }

    /// Of all entries of this kind, the given field, in order.
    std::vector<std::string> logged(const std::string& what, const std::string& field);

private:
    template <class T>
    static void search(const UIView& view, T& found) {
        if (objc::isKind<T>(view)) {
            found = objc::as<T>(view);
        }
        for (const NSObject& subview : view.subviews()) {
            search(objc::as<UIView>(subview), found);
        }
    }

    bool _started = false;
    bool _german = false;
};
