#include "Quorvan/reminder/ReminderDate.h"

#include "Quorvan/common/ChooserFrame.h"
#include "Quorvan/common/DateText.h"
#include "Quorvan/common/Resources.h"
#include "Quorvan/common/Screen.h"
#include "Quorvan/common/ScreenState.h"
#include "Quorvan/common/TakeBack.h"
#include "Quorvan/common/WaysBack.h"

namespace quorvan {

namespace {

/// Takes over what the picker shows.
void takeDate() {
    rDate = dateText(myPicker->date(), "dd/MM HH:mm");
    remDate = myPicker->date();
}

} // namespace

void ReminderDate::define(objc::ClassTable<ReminderDate>& c) {
    c.init<"initWithNibName:bundle:", &ReminderDate::initWithNibName>()
        .overrides<"viewDidLoad", &ReminderDate::viewDidLoad>()
        .def<"reminderList", &ReminderDate::reminderList>()
        .action<"pickerChanged:", &ReminderDate::pickerChanged>()
        .action<"back:", &ReminderDate::back>();
}

void ReminderDate::initWithNibName(const NSString& nib, const NSObject& bundle) {
    super<"initWithNibName:bundle:">(nib, bundle);
}

ReminderDate::~ReminderDate() { takeBackTarget(myPicker, *this); }

void ReminderDate::viewDidLoad() {
    super<"viewDidLoad">();
    startScreen(*this, localized("Reminder"));
    showPanel(*this, reminderList());
}

UIView ReminderDate::reminderList() {
    ChooserFrame frame(*this, {panelOrigin, chooserSize}, "Date"_ns);
    allDayAllNight = makeSwitch();
    allDayAllNight->setOn(true, false);
    frame.addSwitch(allDayAllNight, localized("Remind Me"), 84);
    frame.addBar();
    myPicker = makePicker(*this, {0, 67.5, panelWidth, 216});
    frame.add(myPicker);
    return frame.finish();
}

void ReminderDate::pickerChanged(const objc::Object&) {
    takeDate();
    accountName->reloadData();
}

void ReminderDate::back(const objc::Object&) {
    takeDate();
    neverOrNot = allDayAllNight->isOn();
    if (!neverOrNot) {
        rDate = localized("Never");
    }
    popToCompose(*this, Reload::BeforeThePop);
}

} // namespace quorvan
