#include "phone/flow/Player.h"

#include "phone/eventkit/CalendarFolder.h"
#include "phone/flow/AtomicFile.h"
#include "phone/flow/LocalTime.h"
#include "phone/flow/PhoneZone.h"
#include "phone/flow/Preferences.h"
#include "phone/flow/ProcessPhone.h"

#include <cstdio>
#include <filesystem>

namespace phone {

namespace {

constexpr int statusFailed = 1;
constexpr int statusUnusable = 2;
constexpr int mostRounds = 1000; // of a `repeat` that gives no number

/// A command inside has failed and was told of.
struct Abandoned {
    int status;
};

} // namespace

/// Does one command.
struct Player::Performer {
    Player& player;
    const Command& command;

    Screen& screen() const { return player.screen(command); }
    Engine engine() const { return Engine(screen()); }

    void operator()(const commands::LaunchApp&) const { player.launch(); }
    void operator()(const commands::StopApp&) const {
        screen();
        player.stop();
    }
    void operator()(const commands::PhoneCall& call) const { screen().phoneCall(call.number, call.action); }
    void operator()(const commands::Tap& tap) const {
        switch (tap.kind) {
        case commands::Tap::Kind::Single:
            return engine().tap(tap.selector);
        case commands::Tap::Kind::Long:
            return engine().longPress(tap.selector);
        case commands::Tap::Kind::Double:
            return engine().doubleTap(tap.selector);
        }
    }
    void operator()(const commands::Swipe& swipe) const { engine().swipe(swipe.start, swipe.end, swipe.seconds); }
    void operator()(const commands::InputText& input) const { screen().type(input.text); }
    void operator()(const commands::EraseText& erase) const { engine().erase(erase.count); }
    void operator()(const commands::PressKey& press) const { screen().key(press.key); }
    void operator()(const commands::SetClipboard& set) const { screen().setClipboard(set.text); }
    void operator()(const commands::PasteText&) const { screen().pasteText(); }
    void operator()(const commands::HideKeyboard&) const { screen().hideKeyboard(); }
    void operator()(const commands::AssertVisible& check) const { engine().assertVisible(check.selector); }
    void operator()(const commands::AssertNotVisible& check) const { engine().assertNotVisible(check.selector); }
    void operator()(const commands::WaitForAnimationToEnd&) const { screen().settle(); }
    void operator()(const commands::Advance& advance) const { screen().advance(advance.seconds); }
    void operator()(const commands::SetOrientation& turn) const { screen().setOrientation(turn.orientation); }

    void operator()(const commands::Toggle& toggle) const { engine().toggle(toggle.selector); }
    void operator()(const commands::PickDate& pick) const { engine().pickDate(pick.localTime); }

    void operator()(const commands::SetClock& set) const {
        player._wallClock = player.moment(set.localTime);
        if (Screen* running = player._phone.screen()) {
            running->setClock(player._wallClock);
        }
    }
    void operator()(const commands::SetPreferences& set) const { writePreferences(player._options.root, set); }

    void operator()(const commands::SetPermissions& set) const {
        const auto decide = [&](EntityType type, const std::optional<Access>& access) {
            if (access) {
                CalendarFolder(player._options.root, type).setAccess(*access);
            }
        };
        decide(EntityType::Reminder, set.reminders);
        decide(EntityType::Event, set.events);
    }
    void operator()(const commands::SetStoreAnswers& set) const {
        player._storeAnswers = set.when;
        if (Screen* running = player._phone.screen()) {
            running->setStoreAnswers(set.when);
        }
    }

    void operator()(const commands::MemoryWarning&) const { screen().warnOfMemory(); }

    void operator()(const commands::TakeScreenshot& shot) const {
        const std::string path = player.outputPath(shot.name, ".png");
        screen().screenshot(path);
    }
    void operator()(const commands::DumpTree& dump) const {
        writeAtomically(player.outputPath(dump.name, ".xml"), screen().tree());
    }
    void operator()(const commands::DumpLog& dump) const {
        writeAtomically(player.outputPath(dump.name, ".jsonl"), screen().log());
    }

    void operator()(const commands::RunFlow& flow) const {
        if (flow.when && !(flow.when->visible ? engine().becomesVisible(flow.when->selector)
                                              : engine().becomesInvisible(flow.when->selector))) {
            return;
        }
        all(flow.commands);
    }
    void operator()(const commands::Repeat& repeat) const {
        for (long round = 0; !repeat.times || round < *repeat.times; ++round) {
            if (repeat.loop && !goesOn(*repeat.loop)) {
                return;
            }
            if (!repeat.times && round == mostRounds) {
                throw CommandFailure("still going after " + std::to_string(mostRounds) + " rounds");
            }
            all(repeat.commands);
        }
    }

    /// A thing that is to be there is waited for; one that is not to be there would, once it has come and
    /// ended the loop, be waited for to go again, so that is asked as the screen stands.
    bool goesOn(const Condition& condition) const {
        return condition.visible ? engine().becomesVisible(condition.selector)
                                 : !engine().isVisible(condition.selector);
    }

    void all(const std::vector<Command>& inner) const {
        if (const int status = player.performAll(inner)) {
            throw Abandoned{status};
        }
    }
};

Player::Player(Options options)
    : _options(std::move(options)), _own(std::make_unique<ProcessPhone>(_options.executable, _options.root)),
      _phone(*_own) {}

Player::Player(Options options, FlowPhone& phone) : _options(std::move(options)), _phone(phone) {}

int Player::play(const std::vector<Flow>& flows) {
    int status = 0;
    for (const Flow& flow : flows) {
        const int result = playFlow(flow);
        status = status == 0 ? result : status;
    }
    if (_phone.screen() && !flows.empty() && !_options.leavesRunning) {
        const int result = attempt({flows.back().file, 0}, "the end of the play", [&] { stop(); });
        status = status == 0 ? result : status;
    }
    return status;
}

int Player::playFlow(const Flow& flow) {
    _report.beginFlow(flow.name, flow.file);
    int status = attempt({flow.file, 0}, "the header", [&] { enterFlow(flow); });
    if (status == 0) {
        status = performAll(flow.commands);
    }
    if (status == 0 && _phone.screen()) {
        const Place end = {flow.file, flow.commands.empty() ? 0 : flow.commands.back().place.line};
        status = attempt(end, "the end of the flow", [&] { _phone.screen()->settle(); });
    }
    _report.endFlow(status == 0);
    return status;
}

void Player::enterFlow(const Flow& flow) {
    const bool isFirst = _clockZone.empty();
    _settings = launchSettings(_options.phone, flow.phone);
    rememberZone(_options.root, _settings.zone);

    // The clock goes on from flow to flow unless a flow says what time it is.
    const double before = _wallClock;
    if (_options.phone.now) {
        if (_clockZone != _settings.zone) {
            _wallClock = moment(*_options.phone.now);
        }
    } else if (flow.phone.now) {
        _wallClock = moment(*flow.phone.now);
    } else if (isFirst) {
        _wallClock = _options.startedAt;
    }
    _clockZone = _settings.zone;
    if (Screen* running = _phone.screen(); running && _wallClock != before) {
        running->setClock(_wallClock);
    }
}

int Player::performAll(const std::vector<Command>& commands) {
    for (const Command& command : commands) {
        if (_options.begins) {
            _options.begins(command);
        }
        const std::size_t number = _report.beginCommand(command.place.line, command.name);
        const auto began = std::chrono::steady_clock::now();
        std::string message;
        const int status = attempt(command.place, command.name, [&] {
            try {
                std::visit(Performer{*this, command}, command.what);
            } catch (const std::exception& error) {
                message = error.what();
                throw;
            } catch (const Abandoned&) {
                message = "a command inside failed";
                throw;
            }
        });
        _report.endCommand(number, status == 0, message, std::chrono::steady_clock::now() - began);
        if (status != 0) {
            return status;
        }
    }
    return 0;
}

template <class Work>
int Player::attempt(const Place& place, const std::string& name, const Work& work) {
    const auto tellOf = [&](const std::exception& error) {
        std::string line = place.text() + ": " + name + ": " + error.what();
        for (char& c : line) {
            c = c == '\n' || c == '\r' ? ' ' : c;
        }
        tell(line);
    };
    try {
        work();
        return 0;
    } catch (const Abandoned& inner) {
        return inner.status;
    } catch (const InputError& error) {
        tellOf(error);
        return statusUnusable;
    } catch (const ApplicationDied& error) {
        _phone.forget();
        tellOf(error);
    } catch (const std::exception& error) {
        tellOf(error);
    }
    return statusFailed;
}

Screen& Player::screen(const Command& command) {
    Screen* running = _phone.screen();
    if (!running) {
        throw InputError("the phone application does not run; put `- launchApp` before " + command.name);
    }
    return *running;
}

void Player::launch() {
    stop();
    _phone.start(_settings, _wallClock);
    tellLoaderLines();
    if (!_storeAnswers.empty()) {
        _phone.screen()->setStoreAnswers(_storeAnswers);
    }
}

void Player::tellLoaderLines() {
    for (const std::string& line : _phone.loaderLines()) {
        if (_loaderLines.insert(line).second) {
            tell("phone: " + line);
        }
    }
}

void Player::tell(const std::string& line) const {
    if (_options.tell) {
        _options.tell(line);
    } else {
        std::fprintf(stderr, "%s\n", line.c_str());
    }
}

void Player::stop() {
    if (Screen* running = _phone.screen()) {
        running->settle();
        _phone.end();
        _storeAnswers.clear(); // goes with the process
    }
}

double Player::moment(const std::string& localTime) const {
    const auto moment = momentOf(localTime, _settings.zone);
    if (!moment) {
        throw InputError("clocks in " + _settings.zone + " never show " + localTime);
    }
    return *moment;
}

std::string Player::outputPath(const std::string& name, const char* ending) const {
    const auto path = std::filesystem::path(_options.out) / (name + ending);
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    if (error) {
        throw InputError({path.parent_path().string(), 0}, "cannot be made: " + error.message());
    }
    return path.string();
}

} // namespace phone
