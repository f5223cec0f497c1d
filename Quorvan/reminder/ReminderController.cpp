#include "Quorvan/reminder/ReminderController.h"

#include "Quorvan/common/Motion.h"
#include "Quorvan/reminder/ReminderDate.h"
#include "Quorvan/reminder/ReminderList.h"
#include "Quorvan/reminder/ReminderPriority.h"
#include "platform/foundation/NSCharacterSet.h"

namespace quorvan {

namespace {

bool hasLineBreak(const NSString& text) {
    return text.rangeOfCharacterFromSet(NSCharacterSet::newlines()).location != NSNotFound && !isEmpty(text);
}

} // namespace

void ReminderController::define(objc::ClassTable<ReminderController>& c) {
    ComposeScreen::define(c);
    c.overrides<"viewDidLoad", &ReminderController::viewDidLoad>()
        .def<"createReminder", &ReminderController::createReminder>()

        .conforms("UITextViewDelegate")
        .def<"textView:shouldChangeTextInRange:replacementText:", &ReminderController::shouldChangeText>()
        .def<"textViewDidBeginEditing:", &ReminderController::textViewDidBeginEditing>()
        .def<"textViewDidEndEditing:", &ReminderController::textViewDidEndEditing>()

        .action<"done:", &ReminderController::done>()
        .action<"cancel:", &ReminderController::cancel>();
}

// Its panel outlives the screen in the shared variables, and the text does not keep its delegate alive.
ReminderController::~ReminderController() { note.setDelegate(nullptr); }

void ReminderController::viewDidLoad() {
    super<"viewDidLoad">();
    startScreen(*this, localized("Reminder"));
    reminderView = createReminder();
    showPanel(*this, reminderView);
    type = localized("None");
    rlist = localized("List");
    rDate = localized("Never");
}

UIView ReminderController::createReminder() {
    const auto panel = makePanel(composeSize);
    addComposeBar(panel, *this, localized("Reminder"));

    note = UITextView::withFrame({0, barHeight, panelWidth, 94.5});
    note.setDelegate(*this);
    note.setFont(UIFont::system(17));
    note.setReturnKeyType(UIReturnKeyType::Done);
    note.setText(placeholder("Description"));
    note.setTextColor(grey());
    panel.addSubview(note);

    finishComposePanel(panel, *this);
    return panel;
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
    makeRoomForKeyboard(*this, textView.superview());
    if (textView.text().isEqualToString(placeholder("Description"))) {
        textView.setText(""_ns);
        textView.setTextColor(UIColor::black());
    }
    textView.becomeFirstResponder();
}

void ReminderController::textViewDidEndEditing(const UITextView& textView) {
    centerPanel(*this, textView.superview());
    if (isEmpty(textView.text())) {
        textView.setText(placeholder("Description"));
        textView.setTextColor(grey());
    }
    textView.resignFirstResponder();
}

void ReminderController::endEditing() { note.resignFirstResponder(); }

Setting ReminderController::settingAt(objc::Int row) {
    constexpr RowAccessory accessory{
        .frame = {173, 0, 117, 28}, .value = {0, 5, 108, 17}, .arrow = {110, 8.5, 7, 10.5}};
    switch (row) {
    case 0:
        return {"List", accessory, rlist};
    case 1:
        return {"Remind me", accessory, rDate};
    default:
        return {"Priority", accessory, type};
    }
}

UIViewController ReminderController::chooserAt(objc::Int row) {
    switch (row) {
    case 0:
        return objc::Ref<ReminderList>::make();
    case 1:
        return objc::Ref<ReminderDate>::make();
    default:
        return objc::Ref<ReminderPriority>::make();
    }
}

void ReminderController::cancel(const objc::Object&) { fadeOut(reminderView, activity()); }

} // namespace quorvan
