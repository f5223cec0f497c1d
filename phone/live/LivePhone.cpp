#include "phone/live/LivePhone.h"

#include "phone/device/Profile.h"
#include "phone/flow/PhoneZone.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <ctime>
#include <poll.h>
#include <set>
#include <sys/eventfd.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace phone {

namespace {

using std::chrono::duration;
using std::chrono::milliseconds;
using Seconds = duration<double>;

constexpr Seconds longestSettling{60}; // what moves for longer moves for ever
constexpr milliseconds longestLook{100};
constexpr milliseconds fingerPatience{10000};
constexpr milliseconds answerPatience{20000};
constexpr Seconds longestWait{3600}; // between two looks at the clock; further away nothing can be reckoned

double hostTime() { return Seconds(std::chrono::system_clock::now().time_since_epoch()).count(); }

/// Whether a command only asks.
bool isQuestion(const std::string& what) {
    static const std::set<std::string> questions = {"tree", "log", "screenshot", "picture", "state", "clipboard"};
    return questions.contains(what);
}

std::size_t pixelsOf(const std::string& device) {
    const auto profile = deviceNamed(device);
    if (!profile) {
        throw ScreenError("no such device: " + device);
    }
    return static_cast<std::size_t>(std::ceil(profile->width * profile->scale) *
                                    std::ceil(profile->height * profile->scale));
}

} // namespace

LivePhone::LivePhone(std::string executable, std::string root, LaunchSettings settings)
    : _executable(std::move(executable)), _root(std::move(root)), _settings(std::move(settings)),
      _alarm(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (_alarm < 0) {
        throw std::system_error(errno, std::generic_category(), "no alarm for the clock");
    }
    _timekeeper = std::thread([this] { keepTime(); });
}

LivePhone::~LivePhone() {
    {
        const std::lock_guard lock(_mutex);
        _closing = true;
        _process.reset();
        changed();
    }
    wakeTimekeeper();
    _timekeeper.join();
    close(_alarm);
}

void LivePhone::launch() { launch(status().settings); }

void LivePhone::launch(const LaunchSettings& settings) {
    const std::lock_guard lock(_mutex);
    end();
    _settings = settings;
    start();
}

void LivePhone::stop() {
    if (status().life == Life::Running) {
        waitUntilNothingMoves(longestSettling);
    }
    const std::lock_guard lock(_mutex);
    end();
    _epitaph.clear();
}

void LivePhone::start() {
    rememberZone(_root, _settings.zone);
    _glass = std::make_unique<Glass>(pixelsOf(_settings.device));
    ++_launches;
    _epitaph.clear();
    _touch = nullptr; // went with the application before
    changed();
    try {
        _process =
            std::make_unique<ApplicationProcess>(ApplicationProcess::Start{.executable = _executable,
                                                                           .root = _root,
                                                                           .settings = _settings,
                                                                           .now = _standingClock.value_or(hostTime()),
                                                                           .clockRuns = !_standingClock,
                                                                           .display = _glass->descriptor()});
        _process->setPatience(answerPatience);
        _now = Clock::now();
        wakeTimekeeper();       // to watch over this process
        ask({{"do", "state"}}); // says what is due
    } catch (const ApplicationDied& death) {
        died(death.what());
        throw;
    }
}

void LivePhone::end() {
    if (!_process) {
        return;
    }
    const auto ending = std::move(_process);
    _due.reset();
    _moving = false;
    changed();
    try {
        ending->stop();
    } catch (const ApplicationDied& death) {
        died(death.what());
    }
}

LivePhone::Status LivePhone::status() const {
    const std::lock_guard lock(_mutex);
    const Life life = _process ? Life::Running : _epitaph.empty() ? Life::Ended : Life::Died;
    return {.life = life,
            .epitaph = _epitaph,
            .launch = _launches,
            .process = _process ? _process->processIdentifier() : 0,
            .settings = _settings,
            .clockStands = _standingClock.has_value(),
            .loaderLines = _process ? _process->loaderLines() : std::vector<std::string>()};
}

nlohmann::json LivePhone::request(const nlohmann::json& command) {
    const std::string what = command.at("do");
    if (what == "advance") {
        letTimePass(command.at("seconds"));
        return {{"ok", true}};
    }
    if (what == "settle") {
        waitUntilNothingMoves(longestSettling);
    }
    const std::lock_guard lock(_mutex);
    const nlohmann::json answer = perform(command);
    if (what == "touch") {
        const bool isUp = command.at("phase") == "ended" || command.at("phase") == "cancelled";
        _touch = isUp ? nlohmann::json() : command;
        _lastTouch = Clock::now();
    }
    return answer;
}

void LivePhone::rest(double longest) {
    waitUntilNothingMoves(std::min(Seconds(longest), longestSettling));
    const std::lock_guard lock(_mutex);
    if (!_moving) {
        perform({{"do", "settle"}}); // what waits for the end of movement
    }
}

void LivePhone::interrupt() {
    const std::lock_guard lock(_mutex);
    _closing = true;
    changed();
    wakeTimekeeper();
}

void LivePhone::chooseClock(std::optional<double> moment) {
    const std::lock_guard lock(_mutex);
    _standingClock = moment;
    if (_process) {
        perform({{"do", "setClock"}, {"seconds", moment.value_or(hostTime())}, {"runs", !moment.has_value()}});
    }
}

ScreenBand LivePhone::picture(std::uint64_t since) {
    const std::lock_guard lock(_mutex);
    if (_process) {
        _glass->take(perform({{"do", "picture"}}));
    }
    return _glass ? _glass->since(since) : ScreenBand{};
}

nlohmann::json LivePhone::perform(const nlohmann::json& command) {
    checkRunning();
    catchUp();
    nlohmann::json answer = ask(command);
    if (!isQuestion(command.at("do"))) {
        changed();
    }
    return answer;
}

nlohmann::json LivePhone::ask(const nlohmann::json& command) {
    try {
        nlohmann::json answer = _process->request(command);
        _moving = answer.value("moving", false);
        _due.reset();
        if (answer.contains("next")) {
            const Seconds wait = std::min(Seconds(answer.at("next").get<double>()), longestWait);
            _due = _now + std::chrono::ceil<Clock::duration>(wait);
            wakeTimekeeper();
        }
        return answer;
    } catch (const ApplicationDied& death) {
        died(death.what());
    }
    checkRunning(); // says what it died of, and what to do
    return {};
}

void LivePhone::catchUp() {
    const auto now = Clock::now();
    if (now > _now) {
        const double seconds = Seconds(now - _now).count();
        const bool isDue = _due && now >= *_due;
        _now = now;
        ask({{"do", "advance"}, {"seconds", seconds}});
        if (isDue) {
            changed();
        }
    }
}

void LivePhone::died(const std::string& epitaph) {
    _process.reset();
    _due.reset();
    _moving = false;
    _epitaph = epitaph;
    changed();
}

void LivePhone::changed() {
    ++_changes;
    _news.notify_all();
}

void LivePhone::checkRunning() const {
    if (!_process) {
        throw ApplicationDied(_epitaph.empty() ? "the phone application does not run; launch it"
                                               : _epitaph + "; launch it again");
    }
}

void LivePhone::letTimePass(double seconds) {
    const auto until = Clock::now() + std::chrono::ceil<Clock::duration>(std::min(Seconds(seconds), longestWait));
    std::unique_lock lock(_mutex);
    checkRunning();
    while (!_closing && Clock::now() < until) {
        _news.wait_until(lock, until);
        checkRunning();
    }
    catchUp();
}

void LivePhone::waitUntilNothingMoves(Seconds longest) {
    const auto last = Clock::now() + std::chrono::ceil<Clock::duration>(longest);
    std::unique_lock lock(_mutex);
    for (;;) {
        checkRunning();
        catchUp();
        const auto now = Clock::now();
        if (!_moving || now >= last || _closing) {
            return;
        }
        _news.wait_until(lock, std::min(_due.value_or(now + longestLook), now + longestLook));
    }
}

void LivePhone::keepTime() {
    std::unique_lock lock(_mutex);
    while (!_closing) {
        std::array<pollfd, 2> waiting = {{{_alarm, POLLIN, 0}, {_process ? _process->descriptor() : -1, 0, 0}}};
        timespec left{};
        if (_due) {
            const auto wait = std::max(*_due - Clock::now(), Clock::duration::zero());
            const auto seconds = std::chrono::floor<std::chrono::seconds>(wait);
            left = {seconds.count(), std::chrono::nanoseconds(wait - seconds).count()};
        }
        const timespec* longest = _due ? &left : nullptr;
        lock.unlock();
        ppoll(waiting.data(), waiting.size(), longest, nullptr);
        eventfd_t rung = 0;
        eventfd_read(_alarm, &rung);
        lock.lock();
        if (!_process) {
            continue;
        }
        try {
            _process->checkAlive();
            if (_due && Clock::now() >= *_due) {
                catchUp();
            }
        } catch (const ApplicationDied& death) {
            if (_process) { // it is seen here first
                died(death.what());
            }
        } catch (const std::exception&) {
            _due.reset(); // what was due was refused; the next answer says when something is
        }
    }
}

void LivePhone::wakeTimekeeper() const { eventfd_write(_alarm, 1); }

std::uint64_t LivePhone::changes() const {
    const std::lock_guard lock(_mutex);
    return _changes;
}

std::uint64_t LivePhone::waitForChange(std::uint64_t seen, milliseconds longest) const {
    std::unique_lock lock(_mutex);
    _news.wait_for(lock, longest, [&] { return _changes != seen || _moving || _closing; });
    return _changes;
}

bool LivePhone::isMoving() const {
    const std::lock_guard lock(_mutex);
    return _moving;
}

bool LivePhone::isFingerDown() const {
    const std::lock_guard lock(_mutex);
    return _finger != 0;
}

void LivePhone::announce() {
    const std::lock_guard lock(_mutex);
    changed();
}

LivePhone::Finger::Finger(LivePhone& phone) : _phone(phone) {
    std::unique_lock lock(_phone._mutex);
    while (_phone._finger != 0 && !_phone._closing) {
        const auto last = _phone._lastTouch + fingerPatience;
        if (Clock::now() >= last) {
            _phone.takeFingerAway();
        } else {
            _phone._news.wait_until(lock, last);
        }
    }
    _number = _phone._finger = ++_phone._fingers;
    _launch = _phone._launches;
    _phone._lastTouch = Clock::now();
}

LivePhone::Finger::~Finger() {
    const std::lock_guard lock(_phone._mutex);
    if (_phone._finger == _number) {
        _phone.takeFingerAway();
    }
}

bool LivePhone::Finger::isHeld() const {
    const std::lock_guard lock(_phone._mutex);
    return _phone._finger == _number && _phone._launches == _launch && _phone._process;
}

void LivePhone::takeFingerAway() {
    _finger = 0;
    nlohmann::json touch = std::exchange(_touch, nullptr);
    if (_process && touch.is_object()) {
        touch["phase"] = "cancelled";
        try {
            perform(touch);
        } catch (const ScreenError&) {
            // The application has gone, and the touch with it.
        }
    }
    _news.notify_all();
}

} // namespace phone
