/// The accounts that a note can be written into, one row each.
#pragma once

#include "platform/notes/NoteContext.h"
#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UITableView.h"

namespace quorvan {

class NoteAccountController : public objc::Defines<NoteAccountController, UIViewController> {
public:
    static constexpr auto objc_name = "NoteAccountController";
    static void define(objc::ClassTable<NoteAccountController>& c);
    ~NoteAccountController();

private:
    void initWithNibName(const NSString& nib, const NSObject& bundle);
    void viewDidLoad();
    void didReceiveMemoryWarning();
    UIView createNote();

    objc::Int numberOfSections(const UITableView& table);
    objc::Int numberOfRows(const UITableView& table, objc::Int section);
    UITableViewCell cellForRow(const UITableView& table, const NSIndexPath& path);
    void didSelectRow(const UITableView& table, const NSIndexPath& path);
    void back(const objc::Object& sender);

    bool shouldAutorotate(UIInterfaceOrientation orientation);
    void willRotate(UIInterfaceOrientation orientation, double seconds);
    void didRotate(UIInterfaceOrientation from);

    UITableView nAtable;
};

} // namespace quorvan
