#include "phone/eventkit/ItemText.h"

namespace phone::ical {

namespace {

constexpr const char* orderProperty = "X-PHONE-ORDER";

/// A text that is empty is none: the format's readers drop it.
void setOptionalText(icalcomponent* in, icalproperty_kind kind, const std::optional<std::string>& text) {
    if (text && !text->empty()) {
        setText(in, kind, *text);
    }
}

} // namespace

void setItem(icalcomponent* in, const StoredItem& item) {
    setText(in, ICAL_UID_PROPERTY, item.id);
    // The format wants a stamp; what was never saved has none of its own.
    setMoment(in, ICAL_DTSTAMP_PROPERTY, item.modified.value_or(0));
    if (item.created) {
        setMoment(in, ICAL_CREATED_PROPERTY, *item.created);
    }
    if (item.modified) {
        setMoment(in, ICAL_LASTMODIFIED_PROPERTY, *item.modified);
    }
    setText(in, ICAL_SUMMARY_PROPERTY, item.title);
    setOptionalText(in, ICAL_DESCRIPTION_PROPERTY, item.notes);
    setOptionalText(in, ICAL_LOCATION_PROPERTY, item.location);
    if (item.order != 0) {
        setOwn(in, orderProperty, item.order);
    }
}

void addAlarms(icalcomponent* to, const StoredItem& item) {
    for (const CalendarAlarm& alarm : item.alarms) {
        addAlarm(to, alarm, item.title);
    }
}

void readItem(icalcomponent* in, StoredItem& item) {
    item.id = textOf(in, ICAL_UID_PROPERTY).value_or("");
    item.title = textOf(in, ICAL_SUMMARY_PROPERTY).value_or("");
    item.notes = textOf(in, ICAL_DESCRIPTION_PROPERTY);
    item.location = textOf(in, ICAL_LOCATION_PROPERTY);
    item.alarms = alarmsIn(in);
    item.created = momentIn(in, ICAL_CREATED_PROPERTY);
    item.modified = momentIn(in, ICAL_LASTMODIFIED_PROPERTY);
    item.order = ownIn(in, orderProperty);
}

icalcomponent* itemIn(const Component& calendar, icalcomponent_kind kind) {
    if (calendar == nullptr || icalcomponent_isa(calendar.get()) == kind) {
        return calendar.get();
    }
    for (icalcomponent* at = icalcomponent_get_first_component(calendar.get(), kind); at != nullptr;
         at = icalcomponent_get_next_component(calendar.get(), kind)) {
        if (icalcomponent_get_first_property(at, ICAL_RECURRENCEID_PROPERTY) == nullptr) {
            return at;
        }
    }
    return nullptr;
}

} // namespace phone::ical
