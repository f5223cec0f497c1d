#include "phone/flow/Stores.h"

#include "phone/flow/InputError.h"
#include "tests/flow/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace phone;
using testing::HasSubstr;

namespace {

Stores stores(const std::string& content) {
    const TemporaryFolder folder;
    return Stores::read(folder.write("stores.yaml", content));
}

std::string complaint(const std::string& content) {
    try {
        stores(content);
        return "";
    } catch (const InputError& error) {
        return error.what();
    }
}

} // namespace

TEST(Stores, KeepTheirDefaultsWhereTheFileSaysNothing) {
    const Stores given = stores("events: {access: deny}\n");

    ASSERT_EQ(given.notes.size(), 2u);
    EXPECT_EQ(given.notes[0].name, "LOCAL_NOTES_ACCOUNT");
    EXPECT_TRUE(given.notes[0].isDefault);
    EXPECT_EQ(given.events.size(), 3u);
    EXPECT_TRUE(given.events[2].isReadOnly);
    EXPECT_EQ(given.eventAccess, Access::Deny);
    EXPECT_EQ(given.reminderAccess, Access::Ask);
}

TEST(Stores, TakeTheFilesOrderAndMayBeEmptyOrWithoutADefault) {
    const Stores given = stores("notes: {accounts: [{name: B}, {name: A}]}\nreminders: {lists: []}\n");

    ASSERT_EQ(given.notes.size(), 2u);
    EXPECT_EQ(given.notes[0].name, "B");
    EXPECT_FALSE(given.notes[0].isDefault || given.notes[1].isDefault);
    EXPECT_TRUE(given.reminders.empty());
}

TEST(Stores, TakeListsAndCalendarsThatCannotBeChanged) {
    const Stores given = stores("reminders: {lists: [{title: A, readOnly: true}, {title: B, readOnly: false}]}\n"
                                "events: {calendars: [{title: C}, {title: D, readOnly: true}]}\n");

    ASSERT_EQ(given.reminders.size(), 2u);
    EXPECT_TRUE(given.reminders[0].isReadOnly);
    EXPECT_FALSE(given.reminders[1].isReadOnly);
    ASSERT_EQ(given.events.size(), 2u);
    EXPECT_FALSE(given.events[0].isReadOnly);
    EXPECT_TRUE(given.events[1].isReadOnly);
}

TEST(Stores, RefuseWhatTheContractDoesNotKnow) {
    EXPECT_THAT(complaint("note: {}\n"), HasSubstr("stores.yaml:1: unknown key `note`"));
    EXPECT_THAT(complaint("notes:\n  accounts:\n    - {name: A, readOnly: true}\n"),
                HasSubstr("stores.yaml:3: unknown key `readOnly`"));
    EXPECT_THAT(complaint("reminders: {lists: [{title: A, colour: red}]}\n"), HasSubstr("unknown key `colour`"));
    EXPECT_THAT(complaint("notes: {accounts: [{name: A, default: true}, {name: B, default: true}]}\n"),
                HasSubstr("one default only"));
    EXPECT_THAT(complaint("notes: {accounts: [{default: true}]}\n"), HasSubstr("needs the key `name`"));
    EXPECT_THAT(complaint("notes: {accounts: [{name: A, default: 1}]}\n"), HasSubstr("true or false"));
    EXPECT_THAT(complaint("notes: {accounts: A}\n"), HasSubstr("has to be a list"));
    EXPECT_THAT(complaint("events: {access: maybe}\n"), HasSubstr("not one of ask, allow, deny"));
    EXPECT_THAT(complaint("reminders: {calendars: []}\n"), HasSubstr("unknown key `calendars`"));
}
