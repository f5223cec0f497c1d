#include "Quorvan/reminder/ReminderController.h"

#include "Quorvan/common/ChooserFrame.h"
#include "Quorvan/common/Panel.h"
#include "Quorvan/common/Resources.h"
#include "Quorvan/common/ScreenState.h"
#include "Quorvan/reminder/ReminderDate.h"
#include "Quorvan/reminder/ReminderList.h"
#include "Quorvan/reminder/ReminderPriority.h"
#include "platform/foundation/NSCharacterSet.h"
#include "platform/uikit/UIScreen.h"

namespace quorvan {

namespace {

constexpr const char* panelMove = "theBox";
constexpr CGSize panelSize{panelWidth, 270};

/// What the screen allows for the keyboard, in points, whatever keyboard there is.
constexpr CGFloat keyboardAllowance = 216;

bool hasLineBreak(const NSString& text) {
    return text.rangeOfCharacterFromSet(NSCharacterSet::newlines()).location != NSNotFound && !isEmpty(text);
}

} // namespace

void ReminderController::define(objc::ClassTable<ReminderController>& c) {
    c.init<"initWithNibName:bundle:", &ReminderController::initWithNibName>()
        .overrides<"viewDidLoad", &ReminderController::viewDidLoad>()
        .overrides<"viewWillAppear:", &ReminderController::viewWillAppear>()
        .overrides<"viewDidAppear:", &ReminderController::viewDidAppear>()
        .get<"activity", &ReminderController::_activity>()
        .set<"setActivity:", &ReminderController::_activity>()

        .def<"createReminder", &ReminderController::createReminder>()
        .def<"returnMethod", &ReminderController::returnMethod>()

        .conforms("UITextViewDelegate")
        .def<"textView:shouldChangeTextInRange:replacementText:", &ReminderController::shouldChangeText>()
        .def<"textViewDidBeginEditing:", &ReminderController::textViewDidBeginEditing>()
        .def<"textViewDidEndEditing:", &ReminderController::textViewDidEndEditing>()

        .conforms("UITableViewDataSource")
        .def<"numberOfSectionsInTableView:", &ReminderController::numberOfSections>()
        .def<"tableView:numberOfRowsInSection:", &ReminderController::numberOfRows>()
        .def<"tableView:cellForRowAtIndexPath:", &ReminderController::cellForRow>()
        .conforms("UITableViewDelegate")
        .def<"tableView:didSelectRowAtIndexPath:", &ReminderController::didSelectRow>()

        .action<"done:", &ReminderController::done>()
        .action<"cancel:", &ReminderController::cancel>();
}

void ReminderController::initWithNibName(const NSString& nib, const NSObject& bundle) {
    super<"initWithNibName:bundle:">(nib, bundle);
}

ReminderController::~ReminderController() {
    // The panel built last stays in the shared variables, and it does not keep its delegates alive.
    note.setDelegate(nullptr);
    releaseRows(*this);
}

void ReminderController::viewDidLoad() {
    super<"viewDidLoad">();
    startChooser(*this, UIScreen::main().bounds().size, localized("Reminder"));
    reminderView = createReminder();
    reminderView->setCenter(view().center());
    view().addSubview(reminderView);
    type = localized("None");
    rlist = localized("List");
    rDate = localized("Never");
}

void ReminderController::viewWillAppear(bool) {
    if (note) {
        setEverythingHidden(view(), false);
    }
}

void ReminderController::viewDidAppear(bool) {
    if (isOn(setting::focusAtOnce)) {
        note.becomeFirstResponder();
    }
}

UIView ReminderController::createReminder() {
    const auto panel = makePanel(panelSize);
    addComposeBar(panel, *this, localized("Reminder"));

    note = UITextView::withFrame({0, barHeight, panelWidth, 94.5});
    note.setDelegate(*this);
    note.setFont(UIFont::system(17));
    note.setReturnKeyType(UIReturnKeyType::Done);
    note.setText(placeholder("Description"));
    note.setTextColor(grey());
    panel.addSubview(note);

    accountName = UITableView::withFrame({0, 139.5, panelWidth, 174.5}, UITableViewStyle::Plain);
    accountName->setDelegate(*this);
    accountName->setDataSource(*this);
    panel.addSubview(accountName);
    accountName->setScrollEnabled(false);

    addSeparator(panel, {0, 139, panelWidth, 0.5});
    roundCorners(panel);
    addSeparator(panel, {0, barHeight, panelWidth, 0.5});
    return panel;
}

/// Nothing asks for it; kept for whoever does.
void ReminderController::returnMethod() {
    accountName->reloadData();
    (void)cellForRow(accountName, NSIndexPath::forRow(2, 0));
}

/// A line break ends the editing instead of entering the text, typed or pasted.
bool ReminderController::shouldChangeText(const UITextView& textView, NSRange, const NSString& replacement) {
    if (hasLineBreak(replacement)) {
        textView.resignFirstResponder();
        return false;
    }
    return true;
}

void ReminderController::textViewDidBeginEditing(const UITextView& textView) {
    glide(panelMove, textView.superview(), centerAboveKeyboard(view(), keyboardAllowance));
    if (textView.text().isEqualToString(placeholder("Description"))) {
        textView.setText(""_ns);
        textView.setTextColor(UIColor::black());
    }
    textView.becomeFirstResponder();
}

void ReminderController::textViewDidEndEditing(const UITextView& textView) {
    glide(panelMove, textView.superview(), view().center());
    if (isEmpty(textView.text())) {
        textView.setText(placeholder("Description"));
        textView.setTextColor(grey());
    }
    textView.resignFirstResponder();
}

objc::Int ReminderController::numberOfSections(const UITableView&) { return 1; }

objc::Int ReminderController::numberOfRows(const UITableView&, objc::Int) { return 3; }

UITableViewCell ReminderController::cellForRow(const UITableView& table, const NSIndexPath& path) {
    struct Row {
        const char* key;
        const NSString& value;
    };
    const Row rows[] = {{"List", rlist}, {"Remind me", rDate}, {"Priority", type}};
    const Row& row = rows[path.row() == 0 || path.row() == 1 ? path.row() : 2];
    const auto cell = plainCell(table, localized(row.key));
    cell.setAccessoryView(
        makeAccessory({.frame = {173, 0, 117, 28}, .value = {0, 5, 108, 17}, .arrow = {110, 8.5, 7, 10.5}}, row.value));
    return cell;
}

void ReminderController::didSelectRow(const UITableView&, const NSIndexPath& path) {
    accountName->cellForRow(path).setSelected(false, true);
    setEverythingHidden(view(), true); // shown again when the chooser is popped
    note.resignFirstResponder();
    UIViewController chooser;
    switch (path.row()) {
    case 0:
        chooser = objc::Ref<ReminderList>::make();
        break;
    case 1:
        chooser = objc::Ref<ReminderDate>::make();
        break;
    default:
        chooser = objc::Ref<ReminderPriority>::make();
    }
    navigationController().push(chooser, true);
}

void ReminderController::cancel(const objc::Object&) {
    const UIActivity activity = _activity;
    fade(reminderView, 0, ^{
      activity.activityDidFinish(true);
    });
}

} // namespace quorvan
