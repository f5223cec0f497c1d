#include "Quorvan/event/EventDate.h"

#include "Quorvan/common/ChooserFrame.h"
#include "Quorvan/common/Resources.h"
#include "Quorvan/common/Screen.h"
#include "Quorvan/common/ScreenState.h"
#include "Quorvan/common/SettingRows.h"
#include "Quorvan/common/Tables.h"
#include "Quorvan/common/TakeBack.h"
#include "Quorvan/event/EventDateEnd.h"
#include "Quorvan/event/EventDateStart.h"
#include "Quorvan/event/EventTimes.h"
#include "platform/uikit/UINavigationController.h"

namespace quorvan {

void EventDate::define(objc::ClassTable<EventDate>& c) {
    c.init<"initWithNibName:bundle:", &EventDate::initWithNibName>()
        .overrides<"viewWillAppear:", &EventDate::viewWillAppear>()
        .overrides<"viewDidLoad", &EventDate::viewDidLoad>()
        .def<"createReminder", &EventDate::createReminder>()
        .action<"valueChanged:", &EventDate::valueChanged>()
        .overrides<"didReceiveMemoryWarning", &EventDate::didReceiveMemoryWarning>()

        .conforms("UITableViewDataSource")
        .def<"numberOfSectionsInTableView:", &EventDate::numberOfSections>()
        .def<"tableView:numberOfRowsInSection:", &EventDate::numberOfRows>()
        .def<"tableView:cellForRowAtIndexPath:", &EventDate::cellForRow>()
        .conforms("UITableViewDelegate")
        .def<"tableView:didSelectRowAtIndexPath:", &EventDate::didSelectRow>()
        .action<"back:", &EventDate::back>();
}

void EventDate::initWithNibName(const NSString& nib, const NSObject& bundle) {
    super<"initWithNibName:bundle:">(nib, bundle);
}

EventDate::~EventDate() {
    takeBackDelegates(dateOcccur, *this);
    takeBackTarget(allDayAllNight, *this);
}

void EventDate::viewWillAppear(bool) {
    if (dateOcccur) {
        setEverythingHidden(view(), false);
    }
}

void EventDate::viewDidLoad() {
    super<"viewDidLoad">();
    startScreen(*this, localized("Date"));
    showPanel(*this, createReminder());
    const NSDate now = NSDate::now();
    if (!startDate) {
        startDate = clockText(now);
    }
    if (!endDate) {
        endDate = clockTextAnHourLater(now);
    }
}

UIView EventDate::createReminder() {
    ChooserFrame frame(*this, {panelOrigin, chooserSize}, "Date"_ns);
    allDayAllNight = makeSwitch();
    allDayAllNight->addTarget(*this, objc::selector<"valueChanged:">(), UIControlEventValueChanged);
    allDayAllNight->setOn(allDayer, false);
    frame.addSwitch(allDayAllNight, localized("All-day"), 83.5);
    frame.addBar();
    dateOcccur = makeTable(*this, {0, 84, panelWidth, 214}); // docs/kept.md: the panel cuts
    frame.add(dateOcccur);
    dateOcccur->setScrollEnabled(false);
    return frame.finish();
}

void EventDate::valueChanged(const objc::Object&) { allDayer = allDayAllNight->isOn(); }

void EventDate::didReceiveMemoryWarning() { super<"didReceiveMemoryWarning">(); }

objc::Int EventDate::numberOfSections(const UITableView&) { return 1; }

objc::Int EventDate::numberOfRows(const UITableView&, objc::Int) { return 2; }

/// Each row that is drawn keeps the compose screen's Date row up to date.
UITableViewCell EventDate::cellForRow(const UITableView& table, const NSIndexPath& path) {
    constexpr RowAccessory accessory{
        .frame = {133, 0, 157, 28}, .value = {0, 5, 148, 17}, .arrow = {150, 8.5, 7, 10.5}};
    const bool isStart = path.row() == 0;
    const auto cell = settingCell(table, {isStart ? "Start" : "End", accessory, isStart ? startDate : endDate});
    dateRange = rangeText(startDate, endDate);
    accountName->reloadData();
    return cell;
}

void EventDate::didSelectRow(const UITableView&, const NSIndexPath& path) {
    dateOcccur->cellForRow(path).setSelected(false, true);
    allDayer = allDayAllNight->isOn();
    setEverythingHidden(view(), true); // shown again when the chooser is popped
    UIViewController chooser;
    if (path.row() == 0) {
        chooser = objc::Ref<EventDateStart>::make();
    } else {
        chooser = objc::Ref<EventDateEnd>::make();
    }
    navigationController().push(chooser, true);
}

void EventDate::back(const objc::Object&) {
    allDayer = allDayAllNight->isOn();
    navigationController().popToRoot(true);
}

} // namespace quorvan
