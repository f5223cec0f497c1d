/// The chooser of a reminder list or an event calendar. Each time it is made it asks the store for access
/// and, when the answer comes, writes the titles of the store's calendars into a file; its rows are what
/// that file held when the view loaded.
#pragma once

#include "Quorvan/common/ChooserFrame.h"
#include "Quorvan/common/Resources.h"
#include "Quorvan/common/Screen.h"
#include "Quorvan/common/ScreenState.h"
#include "Quorvan/common/Tables.h"
#include "Quorvan/common/TakeBack.h"
#include "Quorvan/common/WaysBack.h"
#include "platform/eventkit/EKEventStore.h"

namespace quorvan {

/// Forgets the calendars fetched before, fetches the store's of one kind, with a request for access, and writes
/// their files.
void fetchCalendars(EKEntityType kind, const char* identifiersFile, const char* titlesFile);
/// Reads the two files into the shared variables; nil for one that is missing.
void readCalendars(const char* identifiersFile, const char* titlesFile);
/// A row of the titles as read; "" where the file holds no text.
NSString savedTitle(objc::Int row);

/// T names its values: `kind`, `identifiersFile`, `titlesFile`, `controllerTitle`, `barTitle`, `firstBarTitle`,
/// `reload`, gives its shared variables, `marked()`, `choice()` and `shown()`, and keeps its `table()`.
template <class T>
class CalendarChooser : public objc::Defines<T, UIViewController> {
public:
    static void define(objc::ClassTable<T>& c) {
        c.template init<"initWithNibName:bundle:", &T::initWithNibName>()
            .template overrides<"viewDidLoad", &T::viewDidLoad>()
            .template overrides<"didReceiveMemoryWarning", &T::didReceiveMemoryWarning>()
            .template def<"reminderList", &T::reminderList>()

            .conforms("UITableViewDataSource")
            .template def<"numberOfSectionsInTableView:", &T::numberOfSections>()
            .template def<"tableView:numberOfRowsInSection:", &T::numberOfRows>()
            .template def<"tableView:cellForRowAtIndexPath:", &T::cellForRow>()
            .conforms("UITableViewDelegate")
            .template def<"tableView:didSelectRowAtIndexPath:", &T::didSelectRow>()
            .template action<"back:", &T::back>();
    }

    void initWithNibName(const NSString& nib, const NSObject& bundle) {
        if (this->template super<"initWithNibName:bundle:">(nib, bundle)) {
            fetchCalendars(T::kind, T::identifiersFile, T::titlesFile);
        }
    }

    void viewDidLoad() {
        this->template super<"viewDidLoad">();
        readCalendars(T::identifiersFile, T::titlesFile);
        startScreen(*this, localized(T::controllerTitle));
        showPanel(*this, reminderList());
    }

    void didReceiveMemoryWarning() { this->template super<"didReceiveMemoryWarning">(); }

    UIView reminderList() {
        ChooserFrame frame(*this, {panelOrigin, chooserSize}, NSString::utf8(T::barTitle),
                           NSString::utf8(T::firstBarTitle));
        frame.addBar();
        table() = makeTable(*this, frame.belowBar());
        frame.add(table());
        return frame.finish();
    }

    objc::Int numberOfSections(const UITableView&) { return 1; }

    objc::Int numberOfRows(const UITableView&, objc::Int) { return static_cast<objc::Int>(titlesSaved->count()); }

    UITableViewCell cellForRow(const UITableView& asking, const NSIndexPath& path) {
        return plainCell(asking, savedTitle(path.row()));
    }

    void didSelectRow(const UITableView&, const NSIndexPath& path) {
        const auto cell = moveCheckmark(table(), T::marked(), path);
        cell.setSelected(false, true);
        T::marked() = path.row();
        T::choice() = path.row();
        T::shown() = cell.textLabel().text();
        accountName->reloadData();
    }

    void back(const objc::Object&) { popToCompose(*this, T::reload); }

private:
    UITableView& table() { return static_cast<T&>(*this).table(); }
};

} // namespace quorvan
