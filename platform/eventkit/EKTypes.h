/// The numbers of EventKit.
#pragma once

#include "platform/objc/Runtime.h"

/// `EKEntityType`: what a calendar holds, and what access is asked for.
enum class EKEntityType : objc::UInt { Event = 0, Reminder = 1 };

/// `EKAuthorizationStatus`
enum class EKAuthorizationStatus : objc::Int { NotDetermined = 0, Restricted = 1, Denied = 2, Authorized = 3 };

/// `EKRecurrenceFrequency`
enum class EKRecurrenceFrequency : objc::Int { Daily = 0, Weekly = 1, Monthly = 2, Yearly = 3 };

/// `EKSpan`: which occurrences of a repeating event a change is for.
enum class EKSpan : objc::Int { ThisEvent = 0, FutureEvents = 1 };

/// `EKErrorCode`, those that the phone gives.
enum class EKErrorCode : objc::Int {
    NoCalendar = 1,
    NoStartDate = 2,
    NoEndDate = 3,
    DatesInverted = 4,
    InternalFailure = 5,
    CalendarReadOnly = 6,
    DurationGreaterThanRecurrence = 7,
    AlarmGreaterThanRecurrence = 8,
    StartDateTooFarInFuture = 9,
    InvalidSpan = 13,
    RecurringReminderRequiresDueDate = 18,
    CalendarDoesNotAllowEvents = 22,
    CalendarDoesNotAllowReminders = 23,
    PriorityIsInvalid = 26,
};
