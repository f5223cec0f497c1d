#include "phone/server/PagePlay.h"

#include "phone/device/Profile.h"
#include "phone/flow/Player.h"
#include "phone/live/LiveFlowPhone.h"

#include <ctime>
#include <filesystem>

namespace phone {

namespace fs = std::filesystem;

namespace {

/// For pictures and dumps; gone again when there were none.
class OutputFolder {
public:
    OutputFolder() : _path((fs::temp_directory_path() / "phone-play-XXXXXX").string()) {
        if (!mkdtemp(_path.data())) {
            throw InputError("no folder for pictures can be made below " + fs::temp_directory_path().string());
        }
    }
    ~OutputFolder() {
        std::error_code ignored;
        fs::remove(_path, ignored); // an empty one alone
    }
    OutputFolder(const OutputFolder&) = delete;
    OutputFolder& operator=(const OutputFolder&) = delete;

    const std::string& path() const { return _path; }
    bool isEmpty() const { return fs::is_empty(_path); }

private:
    std::string _path;
};

} // namespace

/// Makes a flow the one that is played, and gives the clock back as it was.
class PagePlay::Turn {
public:
    Turn(PagePlay& play, std::shared_ptr<LiveFlowPhone> phone)
        : _play(play), _clockRan(!play._phone.status().clockStands) {
        {
            const std::lock_guard lock(play._mutex);
            if (play._running.phone) {
                throw InputError("another flow is being played");
            }
            play._running = {std::move(phone), 0, ""};
        }
        play._phone.announce();
    }
    ~Turn() {
        {
            const std::lock_guard lock(_play._mutex);
            _play._running = {};
        }
        try {
            if (_clockRan) {
                _play._phone.chooseClock(std::nullopt);
            }
        } catch (const ScreenError&) {
            // The application has died; the clock is chosen all the same.
        }
        _play._phone.announce();
    }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

private:
    PagePlay& _play;
    bool _clockRan;
};

nlohmann::json PagePlay::play(const std::string& text, const std::string& name) {
    Flow flow = Flow::parse(text, name);
    const LivePhone::Status status = _phone.status();
    flow.phone = completed(flow.phone, status.settings);
    const auto phone = std::make_shared<LiveFlowPhone>(_phone);
    const Turn turn(*this, phone);
    const LivePhone::Finger finger(_phone);
    const OutputFolder output;

    nlohmann::json lines = nlohmann::json::array();
    Player::Options options;
    options.root = _phone.root();
    options.out = output.path();
    options.startedAt = static_cast<double>(std::time(nullptr));
    options.leavesRunning = true;
    options.tell = [&](const std::string& line) { lines.push_back(line); };
    options.begins = [&](const Command& command) {
        {
            const std::lock_guard lock(_mutex);
            _running.line = command.place.line;
            _running.command = command.name;
        }
        _phone.announce();
    };
    const bool ok = Player(std::move(options), *phone).play({flow}) == 0;
    return {{"ok", ok},
            {"lines", lines},
            {"pictures", output.isEmpty() ? nlohmann::json() : nlohmann::json(output.path())}};
}

void PagePlay::cancel() {
    const std::lock_guard lock(_mutex);
    if (_running.phone) {
        _running.phone->cancel();
    }
}

nlohmann::json PagePlay::state() const {
    const std::lock_guard lock(_mutex);
    if (!_running.phone) {
        return {{"running", false}};
    }
    return {{"running", true}, {"line", _running.line}, {"command", _running.command}};
}

} // namespace phone
