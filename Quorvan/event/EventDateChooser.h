/// The chooser of the event's start or end: one date picker, which reads dates alone for an event of whole days.
#pragma once

#include "Quorvan/common/ChooserFrame.h"
#include "Quorvan/common/DateText.h"
#include "Quorvan/common/Resources.h"
#include "Quorvan/common/Screen.h"
#include "Quorvan/common/ScreenState.h"
#include "Quorvan/common/TakeBack.h"
#include "Quorvan/common/WaysBack.h"

namespace quorvan {

/// T names its values: `title`, and `firstDate()`, nil where the picker starts at the moment it is made; and
/// gives its shared variables: `picker()`, `date()` and `text()`.
template <class T>
class EventDateChooser : public objc::Defines<T, UIViewController> {
public:
    static void define(objc::ClassTable<T>& c) {
        c.template init<"initWithNibName:bundle:", &T::initWithNibName>()
            .template overrides<"viewDidLoad", &T::viewDidLoad>()
            .template def<"reminderList", &T::reminderList>()
            .template action<"pickerChanged:", &T::pickerChanged>()
            .template action<"back:", &T::back>()
            .template overrides<"didReceiveMemoryWarning", &T::didReceiveMemoryWarning>();
    }

    void initWithNibName(const NSString& nib, const NSObject& bundle) {
        this->template super<"initWithNibName:bundle:">(nib, bundle);
    }

    void viewDidLoad() {
        this->template super<"viewDidLoad">();
        startScreen(*this, localized(T::title));
        showPanel(*this, reminderList());
    }

    UIView reminderList() {
        ChooserFrame frame(*this, {panelOrigin, {panelWidth, 184}}, NSString::utf8(T::title));
        frame.addBar();
        T::picker() = makePicker(*this, {0, 33, panelWidth, 162}); // docs/kept.md: pickers overlap
        if (const NSDate first = T::firstDate()) {
            T::picker()->setDate(first, false);
        }
        if (allDayer) {
            T::picker()->setDatePickerMode(UIDatePickerMode::Date);
        }
        frame.add(T::picker());
        return frame.finish();
    }

    /// Takes over what the picker shows. Any date will do: an end before the start is not questioned here.
    void pickerChanged(const objc::Object&) {
        const auto writer = formatter(allDayer ? "dd/MM" : "dd/MM HH:mm");
        T::date() = T::picker()->date();
        T::text() = writer.string(T::date());
        accountName->reloadData();
        dateOcccur->reloadData();
    }

    void back(const objc::Object& sender) {
        pickerChanged(sender);
        popToSecond(*this);
    }

    void didReceiveMemoryWarning() { this->template super<"didReceiveMemoryWarning">(); }

protected:
    ~EventDateChooser() { takeBackTarget(T::picker(), *this); }
};

} // namespace quorvan
