#include "Quorvan/reminder/ReminderPriority.h"

#include "Quorvan/common/ChooserFrame.h"
#include "Quorvan/common/Resources.h"
#include "Quorvan/common/Screen.h"
#include "Quorvan/common/ScreenState.h"
#include "Quorvan/common/Tables.h"
#include "Quorvan/common/TakeBack.h"
#include "Quorvan/common/WaysBack.h"

namespace quorvan {

void ReminderPriority::define(objc::ClassTable<ReminderPriority>& c) {
    c.init<"initWithNibName:bundle:", &ReminderPriority::initWithNibName>()
        .overrides<"viewDidLoad", &ReminderPriority::viewDidLoad>()
        .def<"reminderList", &ReminderPriority::reminderList>()

        .conforms("UITableViewDataSource")
        .def<"numberOfSectionsInTableView:", &ReminderPriority::numberOfSections>()
        .def<"tableView:numberOfRowsInSection:", &ReminderPriority::numberOfRows>()
        .def<"tableView:cellForRowAtIndexPath:", &ReminderPriority::cellForRow>()
        .conforms("UITableViewDelegate")
        .def<"tableView:didSelectRowAtIndexPath:", &ReminderPriority::didSelectRow>()
        .action<"back:", &ReminderPriority::back>();
}

void ReminderPriority::initWithNibName(const NSString& nib, const NSObject& bundle) {
    super<"initWithNibName:bundle:">(nib, bundle);
}

ReminderPriority::~ReminderPriority() { takeBackDelegates(reminderPriorTable); }

void ReminderPriority::viewDidLoad() {
    type = localized("None"); // docs/kept.md: rows forget, choices stay
    super<"viewDidLoad">();
    startScreen(*this, "Reminder"_ns);
    showPanel(*this, reminderList());
}

UIView ReminderPriority::reminderList() {
    ChooserFrame frame(*this, {panelOrigin, chooserSize}, localized("Priority")); // docs/kept.md: looked up twice
    frame.addBar();
    reminderPriorTable = makeTable(*this, frame.belowBar());
    frame.add(reminderPriorTable);
    return frame.finish();
}

objc::Int ReminderPriority::numberOfSections(const UITableView&) { return 1; }

objc::Int ReminderPriority::numberOfRows(const UITableView&, objc::Int) { return 4; }

UITableViewCell ReminderPriority::cellForRow(const UITableView& table, const NSIndexPath& path) {
    switch (path.row()) {
    case 0:
        return plainCell(table, localized("None"));
    case 1:
        return plainCell(table, "!"_ns);
    case 2:
        return plainCell(table, "!!"_ns);
    default:
        return plainCell(table, "!!!"_ns);
    }
}

void ReminderPriority::didSelectRow(const UITableView& table, const NSIndexPath& path) {
    const auto cell = moveCheckmark(table, preSelection, path);
    cell.setSelected(false, true);
    preSelection = path.row();
    prior = path.row();
    type = cell.textLabel().text();
    accountName->reloadData();
}

void ReminderPriority::back(const objc::Object&) { popToCompose(*this, Reload::BeforeThePop); }

} // namespace quorvan
