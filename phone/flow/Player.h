/// Plays flows on a phone.
#pragma once

#include "phone/flow/ApplicationProcess.h"
#include "phone/flow/Engine.h"
#include "phone/flow/Flow.h"
#include "phone/flow/PlayReport.h"

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
        std::string root;       // the phone's root folder; absolute
        std::string out;        // where pictures and dumps go; absolute
        PhoneOptions phone;     // go before a flow's header
        double startedAt = 0;   // the wall clock's first moment where nothing else is given
        std::string executable; // the phone application
    };

    explicit Player(Options options) : _options(std::move(options)) {}

    /// Gives the program's exit status: that of the first failure, 0 without one. Each failure is one
    /// line on standard error; the rest of its flow is not played. At the end the application is ended.
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
    /// What the loader has said and was not told yet, a line each on standard error.
    void tellLoaderLines();
    /// Lets everything come to rest, then ends the application; nothing when none runs.
    void stop();
    double moment(const std::string& localTime) const;
    std::string outputPath(const std::string& name, const char* ending) const;

    Options _options;
    PlayReport _report;
    LaunchSettings _settings;                         // of the flow that is played
    std::string _clockZone;                           // the zone that the command line's `now` was last read in
    double _wallClock = 0;                            // stands still but for setClock
    std::set<std::string> _loaderLines;               // what was told of the loader's
    std::string _storeAnswers;                        // as set for this run, or for the next one; "" for the usual
    std::unique_ptr<ApplicationProcess> _application; // nullptr when none runs
};

} // namespace phone
