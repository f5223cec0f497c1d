/// How often the event repeats, and the row that opens the chooser of when that ends.
#pragma once

#include "platform/uikit/UITableView.h"
#include "platform/uikit/UIViewController.h"

namespace quorvan {

class EventRemind : public objc::Defines<EventRemind, UIViewController> {
public:
    static constexpr auto objc_name = "EventRemind";
    static void define(objc::ClassTable<EventRemind>& c);
    ~EventRemind();

private:
    void initWithNibName(const NSString& nib, const NSObject& bundle);
    void viewDidLoad();
    void viewWillAppear(bool animated);
    UIView reminderList();
    void didReceiveMemoryWarning();

    objc::Int numberOfSections(const UITableView& table);
    objc::Int numberOfRows(const UITableView& table, objc::Int section);
    NSString titleForHeader(const UITableView& table, objc::Int section);
    UITableViewCell cellForRow(const UITableView& table, const NSIndexPath& path);
    void didSelectRow(const UITableView& table, const NSIndexPath& path);
    void back(const objc::Object& sender);

    void pushEndChooser();
    void choose(const NSIndexPath& path);
};

} // namespace quorvan
