#include "Quorvan/event/EventRemind.h"

#include "Quorvan/common/ChooserFrame.h"
#include "Quorvan/common/Resources.h"
#include "Quorvan/common/ScreenState.h"
#include "Quorvan/common/SettingRows.h"
#include "Quorvan/event/EventRemindEnd.h"

namespace quorvan {

namespace {

constexpr objc::Int intervals = 1; // the section

NSString intervalText(objc::Int row) {
    constexpr const char* keys[] = {"Never", "Every Day", "Every Week", "Every 2 Weeks", "Every Month"};
    return localized(row >= 0 && row <= 4 ? keys[row] : "Every Year");
}

/// The arrow is put on unless the cell reads "Every Year", which no cell of its kind does; kept as it is.
void fillEndDate(const UITableViewCell& cell) {
    if (!cell.textLabel().text().isEqualToString(localized("Every Year"))) {
        cell.setAccessoryView(makeAccessory(
            {.frame = {153, 0, 107, 28}, .value = {0, 5, 98, 17}, .arrow = {100, 8.5, 7, 10.5}}, eventRemindEnd));
    }
    cell.textLabel().setText(localized("End Date"));
}

/// A checkmark does not outlast a reload, by design.
void fillInterval(const UITableViewCell& cell, objc::Int row) {
    cell.textLabel().setText(intervalText(row));
    cell.setAccessoryType(UITableViewCellAccessoryType::None);
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

EventRemind::~EventRemind() { forgetDelegates(eRemindTable, *this); }

void EventRemind::viewDidLoad() {
    super<"viewDidLoad">();
    eventRemindEnd = localized("Never"); // deliberate: the row forgets, the end chosen before stays
    startChooser(*this, localized("Repeat"));
    showPanel(*this, reminderList());
}

void EventRemind::viewWillAppear(bool) {
    if (eRemindTable) {
        setEverythingHidden(view(), false);
    }
}

UIView EventRemind::reminderList() {
    ChooserFrame frame(*this, chooserSize, localized("Repeat"));
    frame.addBar();
    eRemindTable = frame.addTable(*this);
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
