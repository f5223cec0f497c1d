/// What the screens on which a reminder or an event is written have in common: the panel's lower half with three
/// rows, the way to a chooser and back, and the keyboard.
#pragma once

#include "Quorvan/common/Panel.h"
#include "Quorvan/common/Resources.h"
#include "Quorvan/common/Screen.h"
#include "Quorvan/common/ScreenState.h"
#include "Quorvan/common/SettingRows.h"
#include "Quorvan/common/TakeBack.h"
#include "platform/uikit/UIActivity.h"
#include "platform/uikit/UINavigationController.h"

namespace quorvan {

/// What the panel measures.
inline constexpr CGSize composeSize{panelWidth, 270};

/// Adds the table of the three rows to the panel, its separators, and rounds its corners.
void finishComposePanel(const UIView& panel, const UIViewController& screen);
/// Moves the panel to the middle of what the screen leaves when it allows for a keyboard, or of all of it.
void makeRoomForKeyboard(const UIViewController& screen, const UIView& panel);
void centerPanel(const UIViewController& screen, const UIView& panel);

/// T gives its `input()`, nil until the panel is built, which takes the keyboard where the person wants that at
/// once; `endEditing()`; `settingAt()` and a new `chooserAt()` for a row.
template <class T>
class ComposeScreen : public objc::Defines<T, UIViewController> {
public:
    static void define(objc::ClassTable<T>& c) {
        c.template init<"initWithNibName:bundle:", &ComposeScreen::initWithNibName>()
            .template overrides<"viewWillAppear:", &ComposeScreen::viewWillAppear>()
            .template overrides<"viewDidAppear:", &ComposeScreen::viewDidAppear>()
            .template get<"activity", &ComposeScreen::_activity>()
            .template set<"setActivity:", &ComposeScreen::_activity>()
            .template def<"returnMethod", &ComposeScreen::returnMethod>()

            .conforms("UITableViewDataSource")
            .template def<"numberOfSectionsInTableView:", &ComposeScreen::numberOfSections>()
            .template def<"tableView:numberOfRowsInSection:", &ComposeScreen::numberOfRows>()
            .template def<"tableView:cellForRowAtIndexPath:", &ComposeScreen::cellForRow>()
            .conforms("UITableViewDelegate")
            .template def<"tableView:didSelectRowAtIndexPath:", &ComposeScreen::didSelectRow>();
    }

protected:
    ~ComposeScreen() { takeBackDelegates(accountName, *this); }

    const UIActivity& activity() const { return _activity; }

private:
    void initWithNibName(const NSString& nib, const NSObject& bundle) {
        this->template super<"initWithNibName:bundle:">(nib, bundle);
    }

    void viewWillAppear(bool) {
        if (self().input()) {
            setEverythingHidden(this->view(), false);
        }
    }

    void viewDidAppear(bool) {
        if (isOn(preference::focusAtOnce)) {
            self().input().becomeFirstResponder();
        }
    }

    // docs/kept.md: spare messages
    void returnMethod() {
        accountName->reloadData();
        (void)cellForRow(accountName, NSIndexPath::forRow(2, 0));
    }

    objc::Int numberOfSections(const UITableView&) { return 1; }
    objc::Int numberOfRows(const UITableView&, objc::Int) { return 3; }

    UITableViewCell cellForRow(const UITableView& table, const NSIndexPath& path) {
        return settingCell(table, self().settingAt(path.row()));
    }

    void didSelectRow(const UITableView&, const NSIndexPath& path) {
        accountName->cellForRow(path).setSelected(false, true);
        setEverythingHidden(this->view(), true); // shown again when the chooser is popped
        self().endEditing();
        const UIViewController chooser = self().chooserAt(path.row());
        this->navigationController().push(chooser, true);
    }

    T& self() { return static_cast<T&>(*this); }

    UIActivity _activity;
};

} // namespace quorvan
