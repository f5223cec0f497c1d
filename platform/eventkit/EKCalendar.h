/// EKCalendar, a calendar or a list of reminders. Every call is safe on nil.
#pragma once

#include "platform/eventkit/EKObject.h"
#include "platform/foundation/NSString.h"

class EKCalendar : public EKObject {
public:
    static constexpr auto objc_name = "EKCalendar";
    using EKObject::EKObject;

    NSString title() const { return send<"title", NSString>(); }
    NSString calendarIdentifier() const { return send<"calendarIdentifier", NSString>(); }
    /// Whether items in it may be made and changed.
    bool allowsContentModifications() const { return send<"allowsContentModifications", bool>(); }
};
