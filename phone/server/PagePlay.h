/// Plays flows on the phone that the page shows.
#pragma once

#include "phone/live/LivePhone.h"

#include <memory>
#include <mutex>
#include <nlohmann/json.hpp>
#include <string>

namespace phone {

class LiveFlowPhone;

/// One at a time; calls may come from any thread.
class PagePlay {
public:
    explicit PagePlay(LivePhone& phone) : _phone(phone) {}

    /// Plays the flow, as long as that takes, with nobody else's finger on the screen. Where the flow's header says
    /// nothing the phone stays as it is. Gives `ok`, `lines` (what the play has to say, failures with their place) and
    /// `pictures` (the folder with what the flow has pictured and dumped; null where it has nothing). Throws InputError
    /// when the text is no flow, or when another is played.
    nlohmann::json play(const std::string& text, const std::string& name);
    /// The play that runs ends with its next step.
    void cancel();
    /// `running`, and of the command under way `line` and `command`.
    nlohmann::json state() const;

private:
    struct Running {
        std::shared_ptr<LiveFlowPhone> phone;
        int line = 0;
        std::string command;
    };
    class Turn;

    LivePhone& _phone;
    mutable std::mutex _mutex;
    Running _running; // without a phone when nothing is played
};

} // namespace phone
