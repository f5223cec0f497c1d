/// A phone of its own for each test: a fresh root folder, the phone application in this process, a finger.
#pragma once

#include "phone/applications/Session.h"
#include "phone/device/Log.h"
#include "phone/eventkit/CalendarFolder.h"
#include "phone/notes/NotesDatabase.h"
#include "platform/objc/Pool.h"
#include "platform/uikit/UIApplication.h"

#include <gtest/gtest.h>
#include <pugixml.hpp>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

/// Boots at the first use, or by `boot`. Everything after that runs inside one autorelease pool.
/// A log entry `unanswered`, `exception` or `offMainThread` fails the test unless it was expected; the library's own
/// messages off the main thread are.
class PhoneTest : public testing::Test {
public:
    PhoneTest();
    ~PhoneTest() override;

    // Before booting. The defaults: iphone5, the newer application, system 7, English, 5 March 2026 14:37:12 UTC,
    // the device's own notes account (default) and one named "Mail".
    void useDevice(const std::string& name);
    void useApplication(const std::string& name);
    /// The device, whichever, does not answer what kind it is.
    void withholdIdiom() { _withholdsIdiom = true; }
    void useLanguage(const std::string& tag) { _settings.language = tag; }
    void useRegion(const std::string& code) { _settings.region = code; }
    /// "12" or "24".
    void useHours(const std::string& name) { _settings.hours = phone::hoursNamed(name); }
    /// "7" or "8".
    void useSystem(const std::string& name) { _settings.system = *phone::systemNamed(name); }
    void useZone(const std::string& name) { _settings.zone = name; }
    void useAccounts(std::vector<phone::NotesAccount> accounts) { _accounts = std::move(accounts); }
    /// Default: to be asked, with the lists Tasks (the default), Shopping and Work.
    void useReminders(phone::Access access, std::vector<phone::CalendarStore> lists);
    void useReminders(phone::Access access) { _reminderAccess = access; }
    /// Default: to be asked, with the calendars Home (the default), Work and Holidays (read-only).
    void useEvents(phone::Access access, std::vector<phone::CalendarStore> calendars);
    void useEvents(phone::Access access) { _eventAccess = access; }
    /// Boots with neither library nor application: for tests of the platform's classes alone.
    void useClassesOnly() { _start = phone::Start::Classes; }
    /// Writes the preferences as the settings pane would: values are `true`, `false`, numbers or texts.
    void writePreferences(const nlohmann::json& values);
    phone::Session& boot();

    // What a person does. Points of the screen.
    void tap(double x, double y);
    /// Touches the first element with exactly this text or placeholder, where a finger reaches it.
    void tapOn(const std::string& text);
    void tapOn(const pugi::xml_node& element);
    void touch(phone::Screen::Phase phase, double x, double y) { boot().touch(phase, x, y); }
    void type(const std::string& text) { boot().type(text); }
    void key(const std::string& name) { boot().key(name); }
    void advance(double seconds) { boot().advance(seconds); }
    void settle() { boot().settle(); }
    /// A call comes in, ringing; its screen has appeared afterwards.
    void call(const std::string& number = "+49 30 1234567");
    void phoneCall(const std::string& action) { boot().phoneCall("", action); }
    /// Does some work as the application's own code would, between two cycles of the main loop.
    void run(const std::function<void()>& work) { boot().run(work); }
    /// A window in front of the application's with nothing in it, as large as the screen and shown.
    UIWindow window();

    // What there is to see.
    /// The finding tree as it is now; nodes live until the next call.
    const pugi::xml_document& tree();
    /// The first element with this text, title or placeholder that can be touched, else the first at all;
    /// null when there is none.
    pugi::xml_node find(const std::string& text);
    /// The `index`-th element of the class, in tree order; null when there are fewer.
    pugi::xml_node findClass(const std::string& name, int index = 0);
    int countClass(const std::string& name);
    bool isVisible(const std::string& text);
    std::string attribute(const pugi::xml_node& element, const char* name) { return element.attribute(name).value(); }

    // What has happened.
    std::vector<nlohmann::ordered_json> log() { return phone::Log::shared().entries(); }
    /// The entries of one kind, in order.
    std::vector<nlohmann::ordered_json> log(const std::string& what);
    /// Entries of this kind ("unanswered", "exception", "offMainThread") do not fail the test.
    void expectLogged(const std::string& what) { _expected.push_back(what); }

    // What lies on the device. Paths of the device.
    std::filesystem::path hostPath(const std::string& devicePath) const;
    bool exists(const std::string& devicePath) const { return std::filesystem::exists(hostPath(devicePath)); }
    /// "" for a file that is not there.
    std::string read(const std::string& devicePath) const;
    void write(const std::string& devicePath, const std::string& content);
    void remove(const std::string& devicePath) { std::filesystem::remove_all(hostPath(devicePath)); }
    std::vector<phone::NoteRow> notes() const;
    phone::CalendarFolder calendarFolder(phone::EntityType type) const { return {_root.string(), type}; }
    /// In the order of creation.
    std::vector<phone::ReminderRow> reminders() const;
    std::vector<phone::EventRow> events() const;

protected:
    void TearDown() override;

private:
    bool isExpected(const std::string& what) const;

    phone::Settings _settings;
    bool _withholdsIdiom = false;
    phone::Start _start = phone::Start::Everything;
    std::vector<phone::NotesAccount> _accounts;
    phone::Access _reminderAccess = phone::Access::Ask;
    std::vector<phone::CalendarStore> _lists = {{"Tasks", true}, {"Shopping"}, {"Work"}};
    phone::Access _eventAccess = phone::Access::Ask;
    std::vector<phone::CalendarStore> _calendars = {{"Home", true}, {"Work"}, {"Holidays", false, true}};
    std::filesystem::path _root;
    std::unique_ptr<objc::Pool> _pool;
    std::unique_ptr<phone::Session> _session;
    pugi::xml_document _tree;
    std::vector<UIWindow> _windows;
    std::vector<std::string> _expected;
};
