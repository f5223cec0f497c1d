#include "Quorvan/event/EventRemind.h"

#include "Quorvan/common/ChooserFrame.h"
#include "Quorvan/common/Resources.h"
#include "Quorvan/common/Screen.h"
#include "Quorvan/common/ScreenState.h"
#include "Quorvan/common/SettingRows.h"
#include "Quorvan/common/Tables.h"
#include "Quorvan/common/TakeBack.h"
#include "Quorvan/event/EventRemindEnd.h"
#include "platform/uikit/UINavigationController.h"

namespace quorvan {

namespace {

constexpr objc::Int intervals = 1; // the section

NSString intervalText(objc::Int row) {
    constexpr const char* keys[] = {"Never", "Every Day", "Every Week", "Every 2 Weeks", "Every Month"};
    return localized(row >= 0 && row <= 4 ? keys[row] : "Every Year");
}

void fillEndDate(const UITableViewCell& cell) {
    const auto accessory = makeAccessory(
        {.frame = {153, 0, 107, 28}, .value = {0, 5, 98, 17}, .arrow = {100, 8.5, 7, 10.5}}, eventRemindEnd);
    if (!cell.textLabel().text().isEqualToString(localized("Every Year"))) { // docs/kept.md: the last interval
        cell.setAccessoryView(accessory);
    }
    cell.textLabel().setText(localized("End Date"));
}

void fillInterval(const UITableViewCell& cell, objc::Int row) {
    cell.textLabel().setText(intervalText(row));
    cell.setAccessoryType(UITableViewCellAccessoryType::None); // docs/kept.md: checkmarks go
}

} // namespace

void EventRemind::define(objc::ClassTable<EventRemind>& c) {
    c.init<"initWithNibName:bundle:", &EventRemind::initWithNibName>()
        .overrides<"viewDidLoad", &EventRemind::viewDidLoad>()
        .overrides<"viewWillAppear:", &EventRemind::viewWillAppear>()
        .def<"reminderList", &EventRemind::reminderList>()
        .overrides<"didReceiveMemoryWarning", &EventRemind::didReceiveMemoryWarning>()

        .conforms("UITableViewDataSource")
        .def<"numberOfSectionsInTableView:", &EventRemind::numberOfSections>()
        .def<"tableView:numberOfRowsInSection:", &EventRemind::numberOfRows>()
        .def<"tableView:titleForHeaderInSection:", &EventRemind::titleForHeader>()
        .def<"tableView:cellForRowAtIndexPath:", &EventRemind::cellForRow>()
        .conforms("UITableViewDelegate")
        .def<"tableView:didSelectRowAtIndexPath:", &EventRemind::didSelectRow>()
        .action<"back:", &EventRemind::back>();
}

void EventRemind::initWithNibName(const NSString& nib, const NSObject& bundle) {
    super<"initWithNibName:bundle:">(nib, bundle);
}

EventRemind::~EventRemind() { takeBackDelegates(eRemindTable, *this); }

void EventRemind::viewDidLoad() {
    super<"viewDidLoad">();
    eventRemindEnd = localized("Never"); // docs/kept.md: rows forget, choices stay
    startScreen(*this, localized("Repeat"));
    showPanel(*this, reminderList());
}

void EventRemind::viewWillAppear(bool) {
    if (eRemindTable) {
        setEverythingHidden(view(), false);
    }
}

UIView EventRemind::reminderList() {
    ChooserFrame frame(*this, {panelOrigin, chooserSize}, "Repeat"_ns);
    frame.addBar();
    eRemindTable = makeTable(*this, frame.belowBar());
    frame.add(eRemindTable);
    return frame.finish();
}

void EventRemind::didReceiveMemoryWarning() { super<"didReceiveMemoryWarning">(); }

objc::Int EventRemind::numberOfSections(const UITableView&) { return 2; }

objc::Int EventRemind::numberOfRows(const UITableView&, objc::Int section) { return section == 0 ? 1 : 6; }

NSString EventRemind::titleForHeader(const UITableView&, objc::Int section) {
    switch (section) {
    case 0:
        return localized("End Date");
    case intervals:
        return localized("Repeat Interval");
    default:
        return ""_ns;
    }
}

UITableViewCell EventRemind::cellForRow(const UITableView& table, const NSIndexPath& path) {
    // One of each is taken, whichever is needed.
    const auto interval = cellWithIdentifier(table, "Cell"_ns);
    const auto end = cellWithIdentifier(table, "Cell2"_ns);
    if (path.section() == intervals) {
        fillInterval(interval, path.row());
        return interval;
    }
    fillEndDate(end);
    return end;
}

void EventRemind::didSelectRow(const UITableView&, const NSIndexPath& path) {
    if (path.section() == intervals) {
        choose(path);
    } else {
        pushEndChooser();
    }
}

void EventRemind::choose(const NSIndexPath& path) {
    const auto cell = moveCheckmark(eRemindTable, preSelect, path);
    cell.setSelected(false, true);
    preSelect = path.row();
    eRemind = cell.textLabel().text();
    accountName->reloadData();
}

void EventRemind::pushEndChooser() {
    const auto chooser = objc::Ref<EventRemindEnd>::make();
    setEverythingHidden(view(), true); // shown again when the chooser is popped
    navigationController().push(chooser, true);
}

void EventRemind::back(const objc::Object&) { navigationController().popToRoot(true); }

} // namespace quorvan
