/// The phone application as a process of its own.
#pragma once

#include "phone/device/Screen.h"
#include "phone/flow/PhoneOptions.h"

#include <chrono>
#include <string>
#include <sys/types.h>
#include <vector>

namespace phone {

/// The application ended without having been asked to, or stopped answering; it is gone. The text says
/// how, with the last line that it wrote to its standard error.
class ApplicationDied : public ScreenError {
public:
    using ScreenError::ScreenError;
};

/// Speaks JSON lines over a socket: a command, an answer. Started by the constructor, ended by `stop` or,
/// without a word, by the destructor. However the process ends, the driver goes on.
class ApplicationProcess : public Screen {
public:
    struct Start {
        std::string executable;
        std::string root; // the phone's root folder, a path of the host
        LaunchSettings settings;
        double now = 0;         // the wall clock: seconds since 1970, UTC
        bool clockRuns = false; // whether the wall clock moves by itself
        int display = -1;       // memory that takes the screen's pixels; the caller's own, -1 for none
    };

    /// The phone application's executable: it lies beside the one that runs here.
    static std::string executableBesideThis();

    /// Throws ScreenError when the process cannot be started, ApplicationDied when it does not come up.
    explicit ApplicationProcess(const Start& start);
    ~ApplicationProcess() override;
    ApplicationProcess(const ApplicationProcess&) = delete;
    ApplicationProcess& operator=(const ApplicationProcess&) = delete;

    /// Throws ApplicationDied when the process has ended, and ScreenError when it refuses the command.
    nlohmann::json request(const nlohmann::json& command) override;

    /// Asks it to end and waits. Throws ApplicationDied when its end is not a clean one. Once stopped,
    /// every request throws.
    void stop();

    bool isRunning() const { return _process > 0; }
    pid_t processIdentifier() const { return _process; }
    /// Reports a hang-up when the process ends; for waiting alone.
    int descriptor() const { return _socket; }
    /// Throws ApplicationDied when the process has ended unasked. Not while a request is under way.
    void checkAlive();

    /// What the phone's loader said while the application came up: a line for each library that it passed over.
    const std::vector<std::string>& loaderLines() const { return _loaderLines; }

    /// How long an answer may take, of real time, before the application counts as hung.
    void setPatience(std::chrono::milliseconds patience) { _patience = patience; }

private:
    void launch(const Start& start);
    void comeUp();
    void send(const std::string& line);
    std::string receive();
    /// Waits for the end of the process, kills it when that does not come, and forgets it.
    int reap(std::chrono::milliseconds patience);
    [[noreturn]] void died(const std::string& how);
    /// The exit status or signal, and what the process said last.
    std::string epitaph(int status) const;
    std::string lastErrorLine() const;
    std::vector<std::string> linesOfTheLoader() const;
    /// The last that the process has written, of at most so many bytes.
    std::string written(std::size_t most) const;

    pid_t _process = 0; // 0 when none runs
    int _socket = -1;
    int _errors = -1; // a file in memory that takes the process's standard output and error
    std::vector<std::string> _loaderLines;
    std::string _received;
    std::chrono::milliseconds _patience = std::chrono::seconds(60);
};

} // namespace phone
