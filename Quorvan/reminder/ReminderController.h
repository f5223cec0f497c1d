/// One reminder being written: a panel with its text and the rows for list, alarm and priority.
#pragma once

#include "platform/uikit/UIActivity.h"
#include "platform/uikit/UINavigationController.h"
#include "platform/uikit/UITableView.h"
#include "platform/uikit/UITextView.h"

class EKEventStore;

namespace quorvan {

class ReminderController : public objc::Defines<ReminderController, UIViewController> {
public:
    static constexpr auto objc_name = "ReminderController";
    static void define(objc::ClassTable<ReminderController>& c);
    ~ReminderController();

private:
    // Life
    void initWithNibName(const NSString& nib, const NSObject& bundle);
    void viewDidLoad();
    void viewWillAppear(bool animated);
    void viewDidAppear(bool animated);
    UIView createReminder();
    void returnMethod();

    // Text
    bool shouldChangeText(const UITextView& textView, NSRange range, const NSString& replacement);
    void textViewDidBeginEditing(const UITextView& textView);
    void textViewDidEndEditing(const UITextView& textView);

    // Rows
    objc::Int numberOfSections(const UITableView& table);
    objc::Int numberOfRows(const UITableView& table, objc::Int section);
    UITableViewCell cellForRow(const UITableView& table, const NSIndexPath& path);
    void didSelectRow(const UITableView& table, const NSIndexPath& path);

    // Done and Cancel
    void done(const objc::Object& sender); // ReminderSaving.cpp
    void cancel(const objc::Object& sender);
    void save(const EKEventStore& store);

    UITextView note; // nil until the panel is built
    UIActivity _activity;
};

} // namespace quorvan
