/// How urgent a reminder is: four rows.
#pragma once

#include "platform/uikit/UITableView.h"
#include "platform/uikit/UIViewController.h"

namespace quorvan {

class ReminderPriority : public objc::Defines<ReminderPriority, UIViewController> {
public:
    static constexpr auto objc_name = "ReminderPriority";
    static void define(objc::ClassTable<ReminderPriority>& c);
    ~ReminderPriority();

private:
    void initWithNibName(const NSString& nib, const NSObject& bundle);
    void viewDidLoad();
    UIView reminderList();

    objc::Int numberOfSections(const UITableView& table);
    objc::Int numberOfRows(const UITableView& table, objc::Int section);
    UITableViewCell cellForRow(const UITableView& table, const NSIndexPath& path);
    void didSelectRow(const UITableView& table, const NSIndexPath& path);
    void back(const objc::Object& sender);

    UITableView reminderPriorTable;
};

} // namespace quorvan
