/// Plays flows on a phone.
#pragma once

#include "phone/flow/Engine.h"
#include "phone/flow/Flow.h"
#include "phone/flow/FlowPhone.h"
#include "phone/flow/PlayReport.h"

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace phone {

/// One play: flows one after the other on one root folder. The application carries over from flow to
/// flow; over `stopApp` and `launchApp` only what lies in the root folder does.
class Player {
public:
    struct Options {
        std::string root;                             // the phone's root folder; absolute
        std::string out;                              // where pictures and dumps go; absolute
        PhoneOptions phone;                           // go before a flow's header
        double startedAt = 0;                         // the wall clock's first moment where nothing else is given
        std::string executable;                       // the phone application; of no use on a phone that is given
        bool leavesRunning = false;                   // whether the application goes on at the end
        std::function<void(const std::string&)> tell; // takes what is to be said; standard error unless given
        std::function<void(const Command&)> begins;   // hears of each command before it is done
    };

    /// On a phone of its own, whose time stands still but for the commands.
    explicit Player(Options options);
    /// The phone has to outlive the player.
    Player(Options options, FlowPhone& phone);

    /// Gives the program's exit status: that of the first failure, 0 without one. Each failure is told in one
    /// line; the rest of its flow is not played. At the end the application is ended.
    int play(const std::vector<Flow>& flows);

    const PlayReport& report() const { return _report; }

private:
    struct Performer;

    int playFlow(const Flow& flow);
    void enterFlow(const Flow& flow);
    int performAll(const std::vector<Command>& commands);
    /// Runs the work; gives 0, or the exit status after having told what went wrong.
    template <class Work>
    int attempt(const Place& place, const std::string& name, const Work& work);
    /// Throws InputError when the application does not run.
    Screen& screen(const Command& command);
    void launch();
    void tell(const std::string& line) const;
    /// What the loader has said and was not told yet, a line each.
    void tellLoaderLines();
    /// Lets everything come to rest, then ends the application; nothing when none runs.
    void stop();
    double moment(const std::string& localTime) const;
    std::string outputPath(const std::string& name, const char* ending) const;

    Options _options;
    PlayReport _report;
    LaunchSettings _settings;           // of the flow that is played
    std::string _clockZone;             // the zone that the command line's `now` was last read in
    double _wallClock = 0;              // stands still but for setClock
    std::set<std::string> _loaderLines; // what was told of the loader's
    std::string _storeAnswers;          // as set for this run, or for the next one; "" for the usual
    std::unique_ptr<FlowPhone> _own;    // nullptr when a phone was given
    FlowPhone& _phone;
};

} // namespace phone
