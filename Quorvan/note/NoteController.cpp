#include "Quorvan/note/NoteController.h"

#include "Quorvan/common/Motion.h"
#include "Quorvan/common/Panel.h"
#include "Quorvan/common/Resources.h"
#include "Quorvan/common/Screen.h"
#include "Quorvan/common/ScreenState.h"
#include "Quorvan/common/SettingRows.h"
#include "Quorvan/common/Tables.h"
#include "Quorvan/common/TakeBack.h"
#include "Quorvan/note/KeptText.h"
#include "Quorvan/note/NoteAccountController.h"
#include "platform/foundation/NSNotification.h"
#include "platform/foundation/NSNumber.h"
#include "platform/uikit/UIKeyboard.h"

namespace quorvan {

namespace {

constexpr const char* panelMove = "noteView";
constexpr const char* fieldMove = "theBox";

constexpr CGFloat titleTop = 10.8125; // below the bar and its line
constexpr CGFloat titleHeight = 23.625;
constexpr CGFloat titleBottom = 79.4375; // where the line under the title lies, but for a line's thickness

/// What a screen allows for the keyboard, in points.
CGFloat keyboardAllowance() { return isTablet() ? 352 : 216; }

UIInterfaceOrientation orientation() { return UIApplication::shared().statusBarOrientation(); }

bool isTabletHeldUpright() { return isTablet() && orientation() == UIInterfaceOrientation::Portrait; }

/// How high the text is on a panel without a title field.
CGFloat textHeight() { return notePanelSize().height - 87 - hairline(); }

} // namespace

void NoteController::define(objc::ClassTable<NoteController>& c) {
    c.init<"initWithNibName:bundle:", &NoteController::initWithNibName>()
        .overrides<"viewDidLoad", &NoteController::viewDidLoad>()
        .overrides<"viewWillAppear:", &NoteController::viewWillAppear>()
        .overrides<"viewDidAppear:", &NoteController::viewDidAppear>()
        .overrides<"didReceiveMemoryWarning", &NoteController::didReceiveMemoryWarning>()
        .get<"activity", &NoteController::_activity>()
        .set<"setActivity:", &NoteController::_activity>()

        .def<"repeatedCreations", &NoteController::repeatedCreations>()
        .def<"createNote", &NoteController::createNote>()
        .def<"registerForKeyboardNotifications", &NoteController::registerForKeyboardNotifications>()
        .action<"keyboardWasShown:", &NoteController::keyboardWasShown>()

        .conforms("UITextViewDelegate")
        .def<"textViewDidBeginEditing:", &NoteController::textViewDidBeginEditing>()
        .def<"textViewDidEndEditing:", &NoteController::textViewDidEndEditing>()
        .def<"textView:shouldChangeTextInRange:replacementText:", &NoteController::shouldChangeText>()
        .conforms("UITextFieldDelegate")
        .def<"textFieldShouldBeginEditing:", &NoteController::textFieldShouldBeginEditing>()
        .def<"textFieldShouldReturn:", &NoteController::textFieldShouldReturn>()

        .conforms("UITableViewDataSource")
        .def<"numberOfSectionsInTableView:", &NoteController::numberOfSections>()
        .def<"tableView:numberOfRowsInSection:", &NoteController::numberOfRows>()
        .def<"tableView:cellForRowAtIndexPath:", &NoteController::cellForRow>()
        .conforms("UITableViewDelegate")
        .def<"tableView:didSelectRowAtIndexPath:", &NoteController::didSelectRow>()

        .overrides<"shouldAutorotateToInterfaceOrientation:", &NoteController::shouldAutorotate>()
        .overrides<"willRotateToInterfaceOrientation:duration:", &NoteController::willRotate>()
        .overrides<"didRotateFromInterfaceOrientation:", &NoteController::didRotate>()

        .action<"done:", &NoteController::done>()
        .action<"cancel:", &NoteController::cancel>();
}

void NoteController::initWithNibName(const NSString& nib, const NSObject& bundle) {
    super<"initWithNibName:bundle:">(nib, bundle);
}

NoteController::~NoteController() {
    // The panel built last stays in the shared variables, and it does not keep its delegates alive.
    note.setDelegate(nullptr);
    titleField.setDelegate(nullptr);
    takeBackDelegates(accountName, *this);
    NSNotificationCenter::defaultCenter().removeObserver(*this);
}

void NoteController::viewDidLoad() {
    super<"viewDidLoad">();
    nAccount = localized("Default");
    const KeptText kept = KeptText::read();
    titleOut = kept.title ? kept.title : localized("Title");
    noteOut = kept.text ? kept.text : placeholder("Note");
    repeatedCreations();
}

void NoteController::viewWillAppear(bool animated) {
    super<"viewWillAppear:">(animated);
    if (note) {
        noteOut = note.text();
    }
    if (titleField) {
        titleOut = titleField.text();
    }
    setEverythingHidden(view(), true); // the old views stay, hidden, beneath the new ones
    repeatedCreations();
}

void NoteController::viewDidAppear(bool animated) {
    super<"viewDidAppear:">(animated);
    if (isOn(preference::focusAtOnce)) {
        note.becomeFirstResponder();
    }
}

void NoteController::didReceiveMemoryWarning() { super<"didReceiveMemoryWarning">(); }

void NoteController::repeatedCreations() {
    addBackdrop(view(), view().bounds());
    titleScreen(*this, "Note"_ns);

    noteView = createNote();
    noteView->setCenter(view().center());
    noteView->setAlpha(0);
    view().addSubview(noteView);
    fadeIn(noteView);
}

UIView NoteController::createNote() {
    const bool hasTitle = isOn(preference::separateTitle);
    const CGFloat line = hairline();
    const CGFloat width = notePanelSize().width;
    const auto panel = makePanel(notePanelSize());

    navigItem = addComposeBar(panel, *this, localized("Note"));

    note = UITextView::make();
    if (hasTitle) {
        // docs/kept.md: the account row lies over the text's end
        note.setFrame({0, 2 * line + titleBottom, width, textHeight()});
        addTitle(panel);
    } else {
        note.setFrame({0, line + barHeight, width, textHeight()});
        titleField = nullptr;
    }
    addText(panel);

    addSettingsTable(panel, *this, {0, textHeight() + barHeight, width, line + 43});

    addSeparator(panel, {0, (barHeight - line) + textHeight(), width, line});
    addSeparator(panel, {0, barHeight, width, line});
    roundCorners(panel);
    return panel;
}

void NoteController::addTitle(const UIView& panel) {
    const CGFloat line = hairline();
    const CGFloat width = notePanelSize().width;
    titleField = UITextField::withFrame({15, line + barHeight + titleTop, width - 15, titleHeight});
    titleField.setPlaceholder(localized("Title"));
    titleField.setDelegate(*this);
    titleField.setReturnKeyType(UIReturnKeyType::Done);
    if (titleOut && !titleOut->isEqualToString(localized("Title"))) {
        titleField.setText(titleOut);
    }
    addSeparator(panel, {14, line + titleBottom, width - 14, line});
    panel.addSubview(titleField);
}

void NoteController::addText(const UIView& panel) {
    note.setDelegate(*this);
    note.setReturnKeyType(UIReturnKeyType::Default);
    note.setFont(UIFont::system(17));
    if (noteOut) {
        note.setText(noteOut);
        if (noteOut->isEqualToString(placeholder("Note"))) {
            note.setTextColor(grey());
        }
    }
    panel.addSubview(note);
}

// docs/kept.md: spare messages
void NoteController::registerForKeyboardNotifications() {
    NSNotificationCenter::defaultCenter().addObserver(*this, objc::selector<"keyboardWasShown:">(),
                                                      objc::borrow<NSString>(UIKeyboardDidShowNotification), nullptr);
}

void NoteController::keyboardWasShown(const objc::Object& notification) {
    if (isTablet()) {
        return;
    }
    const auto frame = objc::as<NSNotification>(notification)
                           .userInfo()
                           .at<NSValue>(objc::borrow<NSString>(UIKeyboardFrameBeginUserInfoKey))
                           .CGRectValue();
    glide(panelMove, noteView, centerAboveKeyboard(view(), frame.size.height));
}

void NoteController::textViewDidBeginEditing(const UITextView& textView) {
    if (!isTabletHeldUpright()) {
        glide(panelMove, noteView, centerAboveKeyboard(view(), keyboardAllowance()));
    }
    textView.setDelegate(*this);
    if (textView.text().isEqualToString(placeholder("Note"))) {
        textView.setText(""_ns);
        textView.setTextColor(UIColor::black());
    }
    textView.becomeFirstResponder();
}

void NoteController::textViewDidEndEditing(const UITextView& textView) {
    textView.setDelegate(*this);
    if (isEmpty(textView.text())) {
        textView.setText(placeholder("Note"));
        textView.setTextColor(grey());
    }
    if (isTablet() && !isTabletHeldUpright()) {
        glide(panelMove, noteView, view().center());
    }
    textView.resignFirstResponder();
}

bool NoteController::shouldChangeText(const UITextView&, NSRange, const NSString&) { return true; }

bool NoteController::textFieldShouldBeginEditing(const UITextField& field) {
    const UIView panel = field.superview();
    if (isTablet()) {
        const CGPoint now = panel.frame().origin;
        glide(fieldMove, ^{
          panel.setFrame({{now.x, isTabletHeldUpright() ? now.y : panelOrigin.y}, notePanelSize()});
        });
    } else {
        glide(panelMove, noteView, centerAboveKeyboard(view(), keyboardAllowance()));
    }
    return true;
}

bool NoteController::textFieldShouldReturn(const UITextField& field) {
    glide(fieldMove, field.superview(), view().center());
    field.resignFirstResponder();
    return true;
}

objc::Int NoteController::numberOfSections(const UITableView&) { return 1; }

objc::Int NoteController::numberOfRows(const UITableView&, objc::Int) { return 1; }

UITableViewCell NoteController::cellForRow(const UITableView& table, const NSIndexPath&) {
    const auto cell = plainCell(table, localized("Account"));
    cell.setAccessoryView(makeAccessory(
        {.frame = {103, 0, 150, 28}, .value = {0, 5, 139.5, 17}, .arrow = {141.5, 8.5, 7, 10.5}}, nAccount));
    return cell;
}

void NoteController::didSelectRow(const UITableView&, const NSIndexPath& path) {
    keepTexts();
    accountName->cellForRow(path).setSelected(false, true);
    const auto chooser = objc::Ref<NoteAccountController>::make();
    setEverythingHidden(view(), true);
    note.resignFirstResponder();
    titleField.resignFirstResponder();
    navigationController().push(chooser, true);
}

bool NoteController::shouldAutorotate(UIInterfaceOrientation) { return isTablet(); }

void NoteController::willRotate(UIInterfaceOrientation, double) {
    if (!isTablet()) {
        return;
    }
    note.resignFirstResponder();
    titleField.resignFirstResponder();
    keepTexts();
    removeEverything(view());
}

void NoteController::didRotate(UIInterfaceOrientation) {
    if (!isTablet()) {
        return;
    }
    keepTexts();
    repeatedCreations();
}

void NoteController::keepTexts() {
    noteOut = note.text();
    titleOut = titleField.text();
}

} // namespace quorvan
