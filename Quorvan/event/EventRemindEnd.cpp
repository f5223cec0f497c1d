#include "Quorvan/event/EventRemindEnd.h"

#include "Quorvan/common/ChooserFrame.h"
#include "Quorvan/common/DateText.h"
#include "Quorvan/common/Resources.h"
#include "Quorvan/common/Screen.h"
#include "Quorvan/common/ScreenState.h"
#include "Quorvan/common/TakeBack.h"
#include "Quorvan/common/WaysBack.h"

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

EventRemindEnd::~EventRemindEnd() { takeBackTarget(endrPicker, *this); }

void EventRemindEnd::viewDidLoad() {
    super<"viewDidLoad">();
    startScreen(*this, localized("Date"));
    showPanel(*this, reminderList());
}

UIView EventRemindEnd::reminderList() {
    ChooserFrame frame(*this, {quarterOrigin(chooserSize.height), chooserSize}, "Date"_ns);
    allDayAllNight = makeSwitch();
    allDayAllNight->setOn(false, false);
    frame.addSwitch(allDayAllNight, localized("Never"), 84);
    frame.addBar();
    endrPicker = makePicker(*this, {0, 67.5, panelWidth, 216}); // docs/kept.md: pickers overlap
    endrPicker->setDatePickerMode(UIDatePickerMode::Date);
    frame.add(endrPicker);
    return frame.finish();
}

void EventRemindEnd::pickerChanged(const objc::Object&) { takeDate(); }

/// Takes over what the picker shows, unless the repetition never ends. Gives what it shows.
NSDate EventRemindEnd::takeDate() {
    const auto writer = formatter("dd/MM");
    const NSDate date = endrPicker->date();
    if (!allDayAllNight->isOn()) {
        eventRemindEndDate = date;
        eventRemindEnd = writer.string(date);
    }
    return date;
}

void EventRemindEnd::back(const objc::Object&) {
    neverOrNot = allDayAllNight->isOn();
    const NSDate date = takeDate();
    if (neverOrNot) {
        eventRemindEnd = localized("Never");
    }
    eventRemindEndDate = date; // even where it never ends: the flag tells
    eRemindTable->reloadData();
    popToSecond(*this);
}

void EventRemindEnd::didReceiveMemoryWarning() { super<"didReceiveMemoryWarning">(); }

} // namespace quorvan
