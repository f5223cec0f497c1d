/// The variables through which compose screens and choosers talk: one of each in the process, alive as
/// long as the process, and reset only where a screen says so.
#pragma once

#include "platform/foundation/NSDate.h"
#include "platform/foundation/NSString.h"
#include "platform/uikit/UIDatePicker.h"
#include "platform/uikit/UINavigationBar.h"
#include "platform/uikit/UISwitch.h"
#include "platform/uikit/UITableView.h"

namespace quorvan {

// The note composer.
extern objc::Global<UIView> noteView;            // the panel shown now
extern objc::Global<UINavigationItem> navigItem; // the panel bar's title and buttons
extern objc::Global<NSString> noteOut;           // the text for the panel that is built next
extern objc::Global<NSString> titleOut;          // the title for the panel that is built next
extern objc::Global<NSString> nAccount;          // the name of the chosen account
extern objc::Int storeNum;                       // the chosen store's place in the list; negative: the default one
extern objc::Int previousSelection;              // the row of the account chooser marked last

// The reminder composer.
extern objc::Global<NSString> rlist;        // what the List row shows
extern objc::Global<NSString> rDate;        // what the Remind me row shows
extern objc::Global<NSString> type;         // what the Priority row shows
extern objc::Int chosen;                    // the chosen list's place in the store; negative: the default one
extern objc::Int prevSelection;             // the row of the list chooser marked last
extern objc::Int prior;                     // the chosen priority's row, 0 to 3
extern objc::Int preSelection;              // the row of the priority chooser marked last
extern objc::Global<NSDate> remDate;        // the alarm's date; nil until one was picked
extern objc::Global<UIDatePicker> myPicker; // the alarm date chooser's picker

// The event composer.
extern objc::Global<NSDate> startingDate;       // when the event starts
extern objc::Global<NSDate> endingDate;         // when it ends
extern objc::Global<NSString> dateRange;        // what the Date row shows
extern objc::Global<NSString> elist;            // what the Calendar row shows
extern objc::Global<NSString> eRemind;          // what the Repeat row shows
extern objc::Int chosenNum;                     // the chosen calendar's place in the store; negative: the default one
extern objc::Int prevSelect;                    // the row of the calendar chooser marked last
extern objc::Int preSelect;                     // the chosen repetition's row, 0 to 5; negative: none was chosen
extern bool allDayer;                           // the event is all-day
extern objc::Global<UITableView> dateOcccur;    // the date form's table
extern objc::Global<NSString> startDate;        // what the form's Start row shows
extern objc::Global<NSString> endDate;          // what the form's End row shows
extern objc::Global<UIDatePicker> startPicker;  // the start chooser's picker
extern objc::Global<UIDatePicker> endPicker;    // the end chooser's picker
extern objc::Global<UITableView> eRemindTable;  // the repeat chooser's table
extern objc::Global<NSString> eventRemindEnd;   // what the repeat chooser's End Date row shows
extern objc::Global<NSDate> eventRemindEndDate; // when the repetition ends; nil until one was picked
extern objc::Global<UIDatePicker> endrPicker;   // the repeat end chooser's picker

// Shared by the composers.
extern objc::Global<UIView> reminderView;        // the panel of the reminder or event screen built last
extern objc::Global<UISwitch> allDayAllNight;    // the switch of the chooser built last
extern bool neverOrNot;                          // that switch's state: remind; for an event, never end repeating
extern objc::Global<NSArray> identifiers;        // the calendars that a list chooser fetched last
extern objc::Global<NSArray> identifiersSaved;   // the identifiers file as read last, or the lists fetched for saving
extern objc::Global<NSMutableArray> titlesSaved; // the titles file as read last: a list chooser's rows
extern objc::Global<UITableView> accountName;    // the settings table of the compose screen open now

} // namespace quorvan
