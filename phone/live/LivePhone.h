/// The phone as a person has it: time goes by, and whoever holds it shares it with others.
#pragma once

#include "phone/flow/ApplicationProcess.h"
#include "phone/live/Glass.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace phone {

/// Commands may come from any thread and are carried out one after the other. What waits (`advance`, `settle`) waits
/// in real time and keeps nobody else waiting. An application that dies is remembered as dead until it is launched
/// again; every command says so until then.
class LivePhone : public Screen {
public:
    using Clock = std::chrono::steady_clock;

    enum class Life { Ended, Running, Died };

    /// One moment of the application's life.
    struct Status {
        Life life = Life::Ended;
        std::string epitaph;      // what it died of
        std::uint64_t launch = 0; // how often it has been launched
        pid_t process = 0;
        LaunchSettings settings;
        bool clockStands = false;             // whether the wall clock was set, and stands still
        std::vector<std::string> loaderLines; // what the loader said while this application came up
    };

    /// `root` is the phone's root folder, a path of the host. Nothing runs yet.
    LivePhone(std::string executable, std::string root, LaunchSettings settings);
    ~LivePhone() override;
    LivePhone(const LivePhone&) = delete;
    LivePhone& operator=(const LivePhone&) = delete;

    /// Starts the application, after ending one that runs. Throws ScreenError when it does not come up.
    void launch();
    /// The same, with these settings from now on.
    void launch(const LaunchSettings& settings);
    /// Lets what moves come to rest, then ends it.
    void stop();

    Status status() const;
    const std::string& root() const { return _root; }

    nlohmann::json request(const nlohmann::json& command) override;

    /// Sets the wall clock, which stands still from then on, over launches too; without a moment it is the host's.
    void chooseClock(std::optional<double> moment);

    /// The screen's lines that are newer than a version; draws the screen first.
    ScreenBand picture(std::uint64_t since);

    /// Counts up whenever something may have changed: on the screen, or whether the application lives.
    std::uint64_t changes() const;
    /// Waits until there are more, something moves, or so much time has passed; then gives their number.
    std::uint64_t waitForChange(std::uint64_t seen, std::chrono::milliseconds longest) const;
    /// Whether something moves by itself right now.
    bool isMoving() const;
    /// Wakes whoever waits for a change: something beside the screen has.
    void announce();

    /// Waits until nothing moves any more, for so many seconds at most.
    void rest(double longest);
    /// Ends whatever waits, now and from now on: before the phone goes.
    void interrupt();

    /// Whether somebody has the finger.
    bool isFingerDown() const;

    /// The one finger that fits on the screen: who has it touches undisturbed.
    class Finger {
    public:
        /// Waits for it. One that rests in the same place for too long is taken away from whoever has it.
        explicit Finger(LivePhone& phone);
        /// A touch that is still down is cancelled.
        ~Finger();
        Finger(const Finger&) = delete;
        Finger& operator=(const Finger&) = delete;

        /// Whether it is still this one's: not taken away, and the application still that of the beginning.
        bool isHeld() const;

    private:
        LivePhone& _phone;
        std::uint64_t _number = 0;
        std::uint64_t _launch = 0;
    };

private:
    // All of these with _mutex held.
    void start();
    void end();
    nlohmann::json perform(const nlohmann::json& command);
    nlohmann::json ask(const nlohmann::json& command);
    void catchUp();
    void died(const std::string& epitaph);
    void changed();
    void checkRunning() const;
    void takeFingerAway();

    void letTimePass(double seconds);
    void waitUntilNothingMoves(std::chrono::duration<double> longest);
    void keepTime();
    void wakeTimekeeper() const;

    const std::string _executable;
    const std::string _root;

    mutable std::mutex _mutex;
    mutable std::condition_variable _news; // of _changes, _finger and _moving
    LaunchSettings _settings;
    std::unique_ptr<ApplicationProcess> _process; // nullptr when none runs
    std::unique_ptr<Glass> _glass;                // of this process or the last
    std::string _epitaph;                         // "" unless the last one died
    std::uint64_t _launches = 0;
    std::uint64_t _changes = 0;
    std::optional<double> _standingClock;
    Clock::time_point _now;                // up to where the animation clock has come
    std::optional<Clock::time_point> _due; // of the application's next timer
    bool _moving = false;
    std::uint64_t _fingers = 0;   // how often it has been taken
    std::uint64_t _finger = 0;    // which of these has it; 0 for none
    Clock::time_point _lastTouch; // when it was last taken or moved
    nlohmann::json _touch;        // the last command of one that is down; null for none
    bool _closing = false;

    int _alarm = -1; // wakes the timekeeper
    std::thread _timekeeper;
};

} // namespace phone
