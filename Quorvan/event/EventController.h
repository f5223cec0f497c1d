/// One event being written: a panel with its description and place and the rows for calendar, date and repetition.
#pragma once

#include "Quorvan/common/ComposeScreen.h"
#include "platform/uikit/UITextField.h"

class EKEventStore;

namespace quorvan {

class EventController : public ComposeScreen<EventController> {
public:
    static constexpr auto objc_name = "EventController";
    static void define(objc::ClassTable<EventController>& c);
    ~EventController();

private:
    friend class ComposeScreen<EventController>;

    // Building
    void firstStuff();
    void viewDidLoad();
    UIView createReminder();
    void didReceiveMemoryWarning();

    // Keyboard
    bool textFieldShouldBeginEditing(const UITextField& field);
    bool textFieldShouldReturn(const UITextField& field);
    bool textFieldShouldEndEditing(const UITextField& field);

    // For every compose screen
    const UITextField& input() const { return description; }
    void endEditing();
    static Setting settingAt(objc::Int row);
    static UIViewController chooserAt(objc::Int row);

    // Done and Cancel
    void done(const objc::Object& sender); // EventSaving.cpp
    void cancel(const objc::Object& sender);
    void save(const EKEventStore& store);

    UITextField description; // nil until the panel is built; not what the object says of itself
    UITextField location;
};

} // namespace quorvan
