/// One reminder being written: a panel with its text and the rows for list, alarm and priority.
#pragma once

#include "Quorvan/common/ComposeScreen.h"
#include "platform/uikit/UITextView.h"

class EKEventStore;

namespace quorvan {

class ReminderController : public ComposeScreen<ReminderController> {
public:
    static constexpr auto objc_name = "ReminderController";
    static void define(objc::ClassTable<ReminderController>& c);
    ~ReminderController();

private:
    friend class ComposeScreen<ReminderController>;

    // Building
    void viewDidLoad();
    UIView createReminder();

    // Text
    bool shouldChangeText(const UITextView& textView, NSRange range, const NSString& replacement);
    void textViewDidBeginEditing(const UITextView& textView);
    void textViewDidEndEditing(const UITextView& textView);

    // For every compose screen
    const UITextView& input() const { return note; }
    void endEditing();
    static Setting settingAt(objc::Int row);
    static UIViewController chooserAt(objc::Int row);

    // Done and Cancel
    void done(const objc::Object& sender); // ReminderSaving.cpp
    void cancel(const objc::Object& sender);
    void save(const EKEventStore& store);

    UITextView note; // nil until the panel is built
};

} // namespace quorvan
