/// The calendar store's classes without the library or the application.
#pragma once

#include "phone/foundation/Text.h"
#include "platform/eventkit/EKEventStore.h"
#include "tests/Raised.h"
#include "tests/phone/PhoneTest.h"

#include <optional>
#include <string>

class StoreTest : public PhoneTest {
protected:
    StoreTest() { useClassesOnly(); }

    /// A store that may do everything with reminders.
    EKEventStore allowedStore() {
        useReminders(phone::Access::Allow);
        return store();
    }
    EKEventStore store() {
        boot();
        return EKEventStore::make();
    }
    /// In the default list, with a title.
    static EKReminder reminder(const EKEventStore& store, const NSString& title = "Milk"_ns) {
        const auto made = EKReminder::withEventStore(store);
        made.setCalendar(store.defaultCalendarForNewReminders());
        made.setTitle(title);
        return made;
    }
    /// A day in May 2026.
    static NSDateComponents mayDay(int day) {
        const auto components = NSDateComponents::make();
        components.setYear(2026);
        components.setMonth(5);
        components.setDay(day);
        return components;
    }
    /// A time on it: half past the hour.
    static NSDateComponents may(int day, int hour) {
        const auto components = mayDay(day);
        components.setHour(hour);
        components.setMinute(30);
        return components;
    }
    /// The code of the error with which saving fails; nullopt when it does not fail.
    static std::optional<long> failure(const EKEventStore& store, const EKReminder& reminder) {
        NSError error;
        const bool isSaved = store.saveReminder(reminder, true, &error);
        return failure(isSaved, error);
    }
    static std::optional<long> failure(const EKEventStore& store, const EKEvent& event) {
        NSError error;
        const bool isSaved = store.saveEvent(event, EKSpan::FutureEvents, true, &error);
        return failure(isSaved, error);
    }
    /// "CLASS MESSAGE" of each entry.
    static std::vector<std::string> messages(const std::vector<nlohmann::ordered_json>& entries) {
        std::vector<std::string> all;
        for (const auto& entry : entries) {
            all.push_back(entry.at("class").get<std::string>() + " " + entry.at("message").get<std::string>());
        }
        return all;
    }
    static std::vector<std::string> titles(const NSArray& calendars) {
        std::vector<std::string> all;
        for (const NSObject& calendar : calendars) {
            all.push_back(phone::text(objc::as<EKCalendar>(calendar).title()));
        }
        return all;
    }

private:
    static std::optional<long> failure(bool isSaved, const NSError& error) {
        EXPECT_NE(isSaved, static_cast<bool>(error));
        if (!error) {
            return std::nullopt;
        }
        EXPECT_NE(phone::text(error.localizedDescription()), "");
        return error.code();
    }
};
