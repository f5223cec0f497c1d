/// When the event takes place: all day or not, and the rows that open the choosers of its start and end.
#pragma once

#include "platform/uikit/UITableView.h"
#include "platform/uikit/UIViewController.h"

namespace quorvan {

class EventDate : public objc::Defines<EventDate, UIViewController> {
public:
    static constexpr auto objc_name = "EventDate";
    static void define(objc::ClassTable<EventDate>& c);
    ~EventDate();

private:
    void initWithNibName(const NSString& nib, const NSObject& bundle);
    void viewWillAppear(bool animated);
    void viewDidLoad();
    UIView createReminder();
    void valueChanged(const objc::Object& sender);
    void didReceiveMemoryWarning();

    objc::Int numberOfSections(const UITableView& table);
    objc::Int numberOfRows(const UITableView& table, objc::Int section);
    UITableViewCell cellForRow(const UITableView& table, const NSIndexPath& path);
    void didSelectRow(const UITableView& table, const NSIndexPath& path);
    void back(const objc::Object& sender);
};

} // namespace quorvan
