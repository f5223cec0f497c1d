#include "Quorvan/event/EventRemindEnd.h"

#include "Quorvan/common/ChooserFrame.h"
#include "Quorvan/common/DateText.h"
#include "Quorvan/common/Resources.h"
#include "Quorvan/common/ScreenState.h"

namespace quorvan {

void EventRemindEnd::define(objc::ClassTable<EventRemindEnd>& c) {
    c.init<"initWithNibName:bundle:", &EventRemindEnd::initWithNibName>()
        .overrides<"viewDidLoad", &EventRemindEnd::viewDidLoad>()
        .def<"reminderList", &EventRemindEnd::reminderList>()
        .action<"pickerChanged:", &EventRemindEnd::pickerChanged>()
        .action<"back:", &EventRemindEnd::back>()
        .overrides<"didReceiveMemoryWarning", &EventRemindEnd::didReceiveMemoryWarning>();
}

void EventRemindEnd::initWithNibName(const NSString& nib, const NSObject& bundle) {
    super<"initWithNibName:bundle:">(nib, bundle);
}

void EventRemindEnd::viewDidLoad() {
    super<"viewDidLoad">();
    startChooser(*this, localized("Date"));
    showPanel(*this, reminderList());
}

UIView EventRemindEnd::reminderList() {
    ChooserFrame frame(*this, chooserSize, localized("Date"), quarterOrigin(chooserSize.height));
    frame.addSwitch(localized("Never"), false, 84);
    frame.addBar();
    endrPicker = frame.addPicker(*this, {0, 67.5, panelWidth, 216}); // covers the switch's row in part, by design
    endrPicker->setDatePickerMode(UIDatePickerMode::Date);
    return frame.finish();
}

/// Takes over what the picker shows, unless the repetition never ends.
void EventRemindEnd::pickerChanged(const objc::Object&) {
    if (!allDayAllNight->isOn()) {
        eventRemindEndDate = endrPicker->date();
        eventRemindEnd = dateText(endrPicker->date(), "dd/MM");
    }
}

void EventRemindEnd::back(const objc::Object& sender) {
    neverOrNot = allDayAllNight->isOn();
    pickerChanged(sender);
    if (neverOrNot) {
        eventRemindEnd = localized("Never");
    }
    eventRemindEndDate = endrPicker->date(); // even where it never ends: the flag tells
    eRemindTable->reloadData();
    popToSecond(*this);
}

void EventRemindEnd::didReceiveMemoryWarning() { super<"didReceiveMemoryWarning">(); }

} // namespace quorvan
