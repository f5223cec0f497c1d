/// One note being written: a panel with the text, a title field if the person wants one, and the account.
#pragma once

#include "platform/uikit/UIActivity.h"
#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UINavigationController.h"
#include "platform/uikit/UITableView.h"
#include "platform/uikit/UITextField.h"
#include "platform/uikit/UITextView.h"

namespace quorvan {

class NoteController : public objc::Defines<NoteController, UIViewController> {
public:
    static constexpr auto objc_name = "NoteController";
    static void define(objc::ClassTable<NoteController>& c);
    ~NoteController();

private:
    // Life
    void initWithNibName(const NSString& nib, const NSObject& bundle);
    void viewDidLoad();
    void viewWillAppear(bool animated);
    void viewDidAppear(bool animated);
    void didReceiveMemoryWarning();

    // Building
    void repeatedCreations();
    UIView createNote();
    void addTitle(const UIView& panel);
    void addText(const UIView& panel);

    // Keyboard and text
    void registerForKeyboardNotifications();
    void keyboardWasShown(const objc::Object& notification);
    void textViewDidBeginEditing(const UITextView& textView);
    void textViewDidEndEditing(const UITextView& textView);
    bool shouldChangeText(const UITextView& textView, NSRange range, const NSString& replacement);
    bool textFieldShouldBeginEditing(const UITextField& field);
    bool textFieldShouldReturn(const UITextField& field);

    // The account row
    objc::Int numberOfSections(const UITableView& table);
    objc::Int numberOfRows(const UITableView& table, objc::Int section);
    UITableViewCell cellForRow(const UITableView& table, const NSIndexPath& path);
    void didSelectRow(const UITableView& table, const NSIndexPath& path);

    // Rotation, tablets only
    bool shouldAutorotate(UIInterfaceOrientation orientation);
    void willRotate(UIInterfaceOrientation orientation, double seconds);
    void didRotate(UIInterfaceOrientation from);

    // Done and Cancel (NoteSaving.cpp)
    void done(const objc::Object& sender);
    void cancel(const objc::Object& sender);

    void keepTexts();

    UITextView note;        // nil until the panel is built
    UITextField titleField; // nil while the title field is switched off
    UIActivity _activity;
};

} // namespace quorvan
