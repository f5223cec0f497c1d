/// A phone with a call in progress, in this process: what the benchmarks measure.
#pragma once

#include "phone/applications/Session.h"
#include "phone/eventkit/CalendarItems.h"

#include <filesystem>
#include <map>
#include <memory>
#include <string>

/// One per process, in a fresh root folder that goes with it.
class Call {
public:
    /// `application` is "newer" or "older". The call has been accepted.
    explicit Call(const std::string& application);
    ~Call();
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

    phone::Session& screen() { return *_session; }
    std::string root() const { return _root.string(); }

    /// From the call screen to the note.
    void openNote() { open("Note"); }
    /// The text has the keyboard.
    void startTyping();
    /// Back to the call screen.
    void cancel();
    /// From the call screen and back: a reminder or an event is written and saved. Throws where none stands in the
    /// store afterwards; it is taken out again, so that the store grows no larger.
    void saveReminder();
    void saveEvent();

private:
    struct Point {
        double x = 0;
        double y = 0;
    };

    void open(const std::string& activity);
    void write(const std::string& placeholder);
    void takeSaved(phone::EntityType type);
    void tap(Point at);
    void tapAndWait(Point at);
    /// Touches what reads so on this screen. It is looked for once: it lies in the same place at every opening.
    void touch(const std::string& screen, const std::string& text);
    /// Where a finger reaches what reads so.
    Point find(const std::string& text);

    std::filesystem::path _root;
    std::unique_ptr<phone::Session> _session;
    std::map<std::string, Point> _points; // of a screen and a text
    std::string _screen;
};
