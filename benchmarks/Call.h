/// A phone with a call in progress, in this process: what the benchmarks measure.
#pragma once

#include "phone/applications/Session.h"

#include <filesystem>
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
    void openNote();
    /// The text has the keyboard.
    void startTyping();
    /// Back to the call screen.
    void cancel();

private:
    struct Point {
        double x = 0;
        double y = 0;
    };

    void tap(Point at);
    void tapAndWait(Point at);
    /// Where a finger reaches what reads so.
    Point find(const std::string& text);

    std::filesystem::path _root;
    std::unique_ptr<phone::Session> _session;
    // Where these are without the keyboard, the same at every opening.
    Point _noteTile;
    Point _cancel;
    Point _text;
    bool _typing = false;
};
