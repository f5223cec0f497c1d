#include "phone/flow/ApplicationProcess.h"

#include "phone/flow/EnvironmentLock.h"
#include "phone/substrate/Loader.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <limits>
#include <poll.h>
#include <spawn.h>
#include <sstream>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace phone {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr int socketInProcess = 3;
constexpr int displayInProcess = 4;
constexpr int firstFree = 5;
constexpr milliseconds dyingPatience{5000}; // for a process that has closed its socket or was asked to end
constexpr milliseconds waitStep{2};

/// What a process of this machine needs of the driver's own environment; nothing else reaches it.
constexpr std::array inherited = {"PATH",         "LD_LIBRARY_PATH",      "ASAN_OPTIONS",     "UBSAN_OPTIONS",
                                  "LSAN_OPTIONS", "ASAN_SYMBOLIZER_PATH", "LLVM_PROFILE_FILE"};

std::vector<std::string> environment(const ApplicationProcess::Start& start) {
    std::vector<std::string> all = {"TZ=" + start.settings.zone, "HOME=" + start.root + "/var/mobile", "LC_ALL=C.UTF-8",
                                    "LANG=C.UTF-8"};
    const EnvironmentLock lock;
    for (const char* name : inherited) {
        if (const char* value = std::getenv(name)) {
            all.push_back(std::string(name) + "=" + value);
        }
    }
    return all;
}

std::vector<std::string> arguments(const ApplicationProcess::Start& start) {
    std::array<char, 64> now{};
    std::snprintf(now.data(), now.size(), "%.3f", start.now);
    std::vector<std::string> all = {start.executable,
                                    "--socket-fd",
                                    std::to_string(socketInProcess),
                                    "--root",
                                    start.root,
                                    "--device",
                                    start.settings.device,
                                    "--app",
                                    start.settings.application,
                                    "--language",
                                    start.settings.language,
                                    "--system",
                                    start.settings.system,
                                    "--zone",
                                    start.settings.zone,
                                    "--now",
                                    now.data()};
    if (!start.settings.region.empty()) {
        all.insert(all.end(), {"--region", start.settings.region});
    }
    if (!start.settings.hours.empty()) {
        all.insert(all.end(), {"--hours", start.settings.hours});
    }
    if (start.clockRuns) {
        all.emplace_back("--clock-runs");
    }
    if (start.display >= 0) {
        all.insert(all.end(), {"--display-fd", std::to_string(displayInProcess)});
    }
    return all;
}

/// The same file under a number that no process is started with; the old number is closed.
int aside(int descriptor) {
    const int other = fcntl(descriptor, F_DUPFD_CLOEXEC, firstFree);
    close(descriptor);
    return other;
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> all;
    for (std::string& text : texts) {
        all.push_back(text.data());
    }
    all.push_back(nullptr);
    return all;
}

/// What the new process does with its files before it starts.
class FileActions {
public:
    FileActions() { posix_spawn_file_actions_init(&_actions); }
    ~FileActions() { posix_spawn_file_actions_destroy(&_actions); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;

    void duplicate(int from, int to) { posix_spawn_file_actions_adddup2(&_actions, from, to); }
    void openNothing(int as) { posix_spawn_file_actions_addopen(&_actions, as, "/dev/null", O_RDONLY, 0); }
    const posix_spawn_file_actions_t* get() const { return &_actions; }

private:
    posix_spawn_file_actions_t _actions{};
};

/// A process that is not touched by what the driver does with its signals, nor by those that its terminal sends.
class SpawnAttributes {
public:
    SpawnAttributes() {
        posix_spawnattr_init(&_attributes);
        sigset_t none;
        sigset_t usual;
        sigemptyset(&none);
        sigfillset(&usual);
        posix_spawnattr_setsigmask(&_attributes, &none);
        posix_spawnattr_setsigdefault(&_attributes, &usual);
        posix_spawnattr_setpgroup(&_attributes, 0);
        posix_spawnattr_setflags(&_attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP);
    }
    ~SpawnAttributes() { posix_spawnattr_destroy(&_attributes); }
    SpawnAttributes(const SpawnAttributes&) = delete;
    SpawnAttributes& operator=(const SpawnAttributes&) = delete;

    const posix_spawnattr_t* get() const { return &_attributes; }

private:
    posix_spawnattr_t _attributes{};
};

} // namespace

std::string ApplicationProcess::executableBesideThis() {
    return (std::filesystem::read_symlink("/proc/self/exe").parent_path() / "phone-application").string();
}

ApplicationProcess::ApplicationProcess(const Start& start) {
    launch(start);
    try {
        comeUp();
    } catch (...) {
        reap(milliseconds(0));
        close(_socket);
        close(_errors);
        throw;
    }
}

ApplicationProcess::~ApplicationProcess() {
    if (isRunning()) {
        shutdown(_socket, SHUT_RDWR);
        reap(dyingPatience);
    }
    close(_socket);
    close(_errors);
}

void ApplicationProcess::launch(const Start& start) {
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        throw ScreenError(std::string("no socket for the phone application: ") + std::strerror(errno));
    }
    _socket = ends[0];
    _errors = memfd_create("phone-application", MFD_CLOEXEC);

    // The new process's numbers may be in use here; what is handed over must not be overwritten on the way.
    _socket = aside(_socket);
    ends[1] = aside(ends[1]);
    const int display = start.display < 0 ? -1 : fcntl(start.display, F_DUPFD_CLOEXEC, firstFree);

    FileActions actions;
    actions.openNothing(STDIN_FILENO);
    actions.duplicate(_errors, STDOUT_FILENO);
    actions.duplicate(_errors, STDERR_FILENO);
    actions.duplicate(ends[1], socketInProcess);
    if (display >= 0) {
        actions.duplicate(display, displayInProcess);
    }

    auto words = arguments(start);
    auto variables = environment(start);
    const SpawnAttributes attributes;
    const int error = posix_spawn(&_process, start.executable.c_str(), actions.get(), attributes.get(),
                                  pointers(words).data(), pointers(variables).data());
    close(ends[1]);
    if (display >= 0) {
        close(display);
    }
    if (error != 0) {
        _process = 0;
        close(_socket);
        close(_errors);
        throw ScreenError("cannot start " + start.executable + ": " + std::strerror(error));
    }
}

void ApplicationProcess::comeUp() {
    try {
        advance(0); // answers once the application has come up
        _loaderLines = linesOfTheLoader();
    } catch (const ApplicationDied& death) {
        std::string how = death.what();
        for (const std::string& line : linesOfTheLoader()) { // it may have died for want of that library
            how += how.find(line) == std::string::npos ? "; " + line : "";
        }
        throw ApplicationDied(how);
    }
}

nlohmann::json ApplicationProcess::request(const nlohmann::json& command) {
    if (!isRunning()) {
        throw ApplicationDied("the phone application does not run");
    }
    using nlohmann::json;
    send(command.dump(-1, ' ', false, json::error_handler_t::replace) + "\n");
    const std::string line = receive();
    json answer = json::parse(line, nullptr, false);
    if (!answer.is_object() || !answer.contains("ok")) {
        kill(_process, SIGKILL);
        reap(dyingPatience);
        throw ApplicationDied("the phone application answered nonsense: " + line.substr(0, 200));
    }
    if (answer.value("ok", false)) {
        return answer;
    }
    const std::string error = answer.value("error", "the phone application refused the command");
    if (answer.value("died", false)) {
        reap(dyingPatience);
        throw ApplicationDied(error);
    }
    throw ScreenError(error);
}

void ApplicationProcess::send(const std::string& line) {
    const auto end = Clock::now() + _patience;
    for (std::size_t sent = 0; sent < line.size();) {
        const ssize_t count = ::send(_socket, line.data() + sent, line.size() - sent, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (count >= 0) {
            sent += static_cast<std::size_t>(count);
            continue;
        }
        if (errno != EAGAIN && errno != EINTR) {
            died("the phone application died");
        }
        pollfd waiting = {_socket, POLLOUT, 0};
        if (poll(&waiting, 1, 100) == 0 && Clock::now() > end) {
            kill(_process, SIGKILL);
            died("the phone application takes no commands any more and was killed");
        }
    }
}

std::string ApplicationProcess::receive() {
    const auto end = Clock::now() + _patience;
    for (;;) {
        if (const auto lineBreak = _received.find('\n'); lineBreak != std::string::npos) {
            std::string line = _received.substr(0, lineBreak);
            _received.erase(0, lineBreak + 1);
            return line;
        }
        const auto left = std::chrono::duration_cast<milliseconds>(end - Clock::now()).count();
        pollfd waiting = {_socket, POLLIN, 0};
        const int ready = poll(&waiting, 1, static_cast<int>(std::max<long>(left, 0)));
        if (ready == 0) {
            kill(_process, SIGKILL);
            died("the phone application did not answer for " + std::to_string(_patience.count() / 1000.0).substr(0, 4) +
                 " s and was killed");
        }
        std::array<char, 65536> chunk{};
        const ssize_t count = ready < 0 ? -1 : recv(_socket, chunk.data(), chunk.size(), 0);
        if (count > 0) {
            _received.append(chunk.data(), static_cast<std::size_t>(count));
        } else if (count == 0 || errno != EINTR) {
            died("the phone application died");
        }
    }
}

void ApplicationProcess::checkAlive() {
    if (!isRunning()) {
        return;
    }
    pollfd ended = {_socket, 0, 0};
    if (poll(&ended, 1, 0) > 0) {
        died("the phone application died");
    }
}

void ApplicationProcess::stop() {
    if (!isRunning()) {
        return;
    }
    shutdown(_socket, SHUT_WR); // it ends when its commands end
    const int status = reap(dyingPatience);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        throw ApplicationDied("the phone application did not end as it was asked to: " + epitaph(status));
    }
}

int ApplicationProcess::reap(milliseconds patience) {
    int status = 0;
    if (!isRunning()) {
        return status;
    }
    const auto end = Clock::now() + patience;
    while (waitpid(_process, &status, WNOHANG) == 0) {
        if (Clock::now() >= end) {
            kill(_process, SIGKILL);
            waitpid(_process, &status, 0);
            break;
        }
        std::this_thread::sleep_for(waitStep);
    }
    _process = 0;
    return status;
}

void ApplicationProcess::died(const std::string& how) {
    const int status = reap(dyingPatience);
    throw ApplicationDied(how + ": " + epitaph(status));
}

std::string ApplicationProcess::epitaph(int status) const {
    std::string text;
    if (WIFSIGNALED(status)) {
        text = "signal " + std::to_string(WTERMSIG(status)) + " (" + strsignal(WTERMSIG(status)) + ")";
    } else {
        text = "exit status " + std::to_string(WEXITSTATUS(status));
    }
    const std::string last = lastErrorLine();
    return last.empty() ? text : text + ", last words: " + last;
}

std::string ApplicationProcess::lastErrorLine() const {
    constexpr std::size_t tail = 8192;
    std::string text = written(tail);
    while (!text.empty()) {
        const auto end = text.find_last_not_of("\r\n");
        text.resize(end == std::string::npos ? 0 : end + 1);
        const auto start = text.find_last_of('\n');
        const std::string line = start == std::string::npos ? text : text.substr(start + 1);
        // A sanitizer ends with this line; the one before says what was wrong.
        if (!line.empty() && !line.ends_with("==ABORTING")) {
            return line;
        }
        text.resize(start == std::string::npos ? 0 : start);
    }
    return {};
}

std::vector<std::string> ApplicationProcess::linesOfTheLoader() const {
    std::vector<std::string> lines;
    std::istringstream all(written(std::numeric_limits<std::size_t>::max()));
    for (std::string line; std::getline(all, line);) {
        if (line.starts_with(loaderMark)) {
            lines.push_back(line);
        }
    }
    return lines;
}

std::string ApplicationProcess::written(std::size_t most) const {
    const auto size = static_cast<std::size_t>(std::max<off_t>(0, lseek(_errors, 0, SEEK_END)));
    std::string text(std::min(size, most), '\0');
    const ssize_t count = pread(_errors, text.data(), text.size(), static_cast<off_t>(size - text.size()));
    text.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    return text;
}

} // namespace phone
