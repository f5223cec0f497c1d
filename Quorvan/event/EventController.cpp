#include "Quorvan/event/EventController.h"

#include "Quorvan/event/EventCalendar.h"
#include "Quorvan/event/EventDate.h"
#include "Quorvan/event/EventRemind.h"
#include "Quorvan/event/EventTimes.h"
#include "platform/foundation/NSDateComponents.h"

namespace quorvan {

namespace {

/// An hour after the date by its clock; from 23 o'clock on the calendar goes on to the next day.
NSDate anHourLater(const NSDate& date) {
    const auto gregorian = NSCalendar::withIdentifier(objc::borrow<NSString>(NSGregorianCalendar));
    const objc::Int hour = hourOf(date);
    const objc::Int minute = minuteOf(date);
    const auto components =
        gregorian.components(NSCalendarUnit::Year | NSCalendarUnit::Month | NSCalendarUnit::Day | NSCalendarUnit::Hour |
                                 NSCalendarUnit::Minute | NSCalendarUnit::Second | NSCalendarUnit::Weekday,
                             date);
    components.setHour(hour + 1);
    components.setMinute(minute);
    return gregorian.date(components);
}

} // namespace

void EventController::define(objc::ClassTable<EventController>& c) {
    ComposeScreen::define(c);
    c.def<"firstStuff", &EventController::firstStuff>()
        .overrides<"viewDidLoad", &EventController::viewDidLoad>()
        .def<"createReminder", &EventController::createReminder>()
        .overrides<"didReceiveMemoryWarning", &EventController::didReceiveMemoryWarning>()

        .conforms("UITextFieldDelegate")
        .def<"textFieldShouldBeginEditing:", &EventController::textFieldShouldBeginEditing>()
        .def<"textFieldShouldReturn:", &EventController::textFieldShouldReturn>()
        .def<"textFieldShouldEndEditing:", &EventController::textFieldShouldEndEditing>()

        .action<"done:", &EventController::done>()
        .action<"cancel:", &EventController::cancel>();
}

EventController::~EventController() {
    // Their panel outlives the screen in the shared variables, and they do not keep their delegate alive.
    description.setDelegate(nullptr);
    location.setDelegate(nullptr);
}

/// From now for an hour.
void EventController::firstStuff() {
    const NSDate now = NSDate::now();
    endingDate = anHourLater(now);
    startingDate = now;
}

void EventController::viewDidLoad() {
    const NSString title = localized("Event");
    super<"viewDidLoad">();
    firstStuff();
    startScreen(*this, title);
    reminderView = createReminder();
    showPanel(*this, reminderView);
    eRemind = localized("Never");
    elist = localized("Default");
    const NSDate now = NSDate::now();
    dateRange = rangeText(clockText(now), clockTextAnHourLater(now));
}

UIView EventController::createReminder() {
    const auto panel = makePanel(composeSize, quarterOrigin(composeSize.height));
    addComposeBar(panel, *this, localized("Event"));

    description = UITextField::withFrame({16, 55.8125, 274, 23.625});
    location = UITextField::withFrame({16, 104.0625, 274, 23.625});
    addSeparator(panel, {16, 91.75, 274, 0.5});
    const UITextField fields[] = {description, location};
    for (const auto& field : fields) {
        field.setDelegate(*this);
        field.setReturnKeyType(UIReturnKeyType::Done);
    }
    location.setPlaceholder(localized("Location"));
    description.setPlaceholder(localized("Description"));
    panel.addSubview(description);
    panel.addSubview(location);

    finishComposePanel(panel, *this);
    return panel;
}

void EventController::didReceiveMemoryWarning() { super<"didReceiveMemoryWarning">(); }

bool EventController::textFieldShouldBeginEditing(const UITextField& field) {
    makeRoomForKeyboard(*this, field.superview());
    return true;
}

bool EventController::textFieldShouldReturn(const UITextField& field) {
    centerPanel(*this, field.superview());
    field.resignFirstResponder();
    return true;
}

bool EventController::textFieldShouldEndEditing(const UITextField& field) {
    field.resignFirstResponder();
    return true;
}

void EventController::endEditing() {
    centerPanel(*this, reminderView);
    description.resignFirstResponder();
    location.resignFirstResponder();
}

Setting EventController::settingAt(objc::Int row) {
    constexpr RowAccessory narrow{.frame = {103, 0, 157, 28}, .value = {0, 5, 148, 17}, .arrow = {150, 8.5, 7, 10.5}};
    constexpr RowAccessory wide{.frame = {103, 0, 187, 28}, .value = {0, 5, 178, 17}, .arrow = {180, 8.5, 7, 10.5}};
    switch (row) {
    case 0:
        return {"Calendar", narrow, elist};
    case 1:
        return {"Date", wide, dateRange};
    default:
        return {"Repeat", narrow, eRemind};
    }
}

UIViewController EventController::chooserAt(objc::Int row) {
    switch (row) {
    case 0:
        return objc::Ref<EventCalendar>::make();
    case 1:
        return objc::Ref<EventDate>::make();
    default:
        return objc::Ref<EventRemind>::make();
    }
}

void EventController::cancel(const objc::Object&) { activity().activityDidFinish(true); }

} // namespace quorvan
