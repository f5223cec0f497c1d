/// The phone application in this process, as a screen that takes commands.
#pragma once

#include "phone/applications/Boot.h"
#include "phone/applications/Display.h"
#include "phone/device/Screen.h"

#include <functional>
#include <string>

namespace phone {

/// The one entry: every command of `Screen` is carried out here. A platform exception that nobody caught
/// ends the application, already at its start: it is logged, the command throws ScreenError, and so does
/// every command after it.
class Session : public Screen {
public:
    /// Boots the application; one per process.
    explicit Session(const Settings& settings, Start start = Start::Everything);

    nlohmann::json request(const nlohmann::json& command) override;

    /// Shows the screen in this memory, a descriptor, when asked to; see Display.
    void showOn(int memory) { _display = Display(memory); }

    /// Whether an exception has ended the application.
    bool isDead() const { return !_epitaph.empty(); }
    /// What it died of, for a person to read; "" while it lives.
    const std::string& epitaph() const { return _epitaph; }

    /// Does the work as a command: inside a pool, followed by what waits for the next cycle.
    void run(const std::function<void()>& work);

private:
    nlohmann::json perform(const nlohmann::json& command);
    void deliverTouch(const nlohmann::json& command);
    static void takeScreenshot(const nlohmann::json& command);
    /// "late", "early" or "concurrent".
    static void letStoresAnswer(const std::string& when);
    void waitUntilNothingMoves();
    void die(const std::string& name, const std::string& reason);

    std::string _epitaph;
    Display _display;
};

} // namespace phone
