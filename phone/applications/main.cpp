// The phone application as a process of its own: takes commands as JSON lines from a socket, one answer
// a line, until the other side closes. The time zone is in the environment.

#include "phone/applications/Session.h"
#include "phone/applications/SocketLines.h"

#include <cstdio>
#include <cstdlib>
#include <getopt.h>
#include <stdexcept>

namespace {

using nlohmann::json;

constexpr int exitDied = 1;
constexpr int exitUnusable = 2;

struct Options {
    int socket = -1;
    int display = -1;
    phone::Settings settings;
};

/// Throws std::invalid_argument with a line for the person.
Options parse(int argc, char** argv) {
    enum Option { Socket = 1, Display, Root, Device, App, Language, Region, Hours, System, Now, Zone, ClockRuns };
    static constexpr option known[] = {{"socket-fd", required_argument, nullptr, Socket},
                                       {"display-fd", required_argument, nullptr, Display},
                                       {"root", required_argument, nullptr, Root},
                                       {"device", required_argument, nullptr, Device},
                                       {"app", required_argument, nullptr, App},
                                       {"language", required_argument, nullptr, Language},
                                       {"region", required_argument, nullptr, Region},
                                       {"hours", required_argument, nullptr, Hours},
                                       {"system", required_argument, nullptr, System},
                                       {"now", required_argument, nullptr, Now},
                                       {"zone", required_argument, nullptr, Zone},
                                       {"clock-runs", no_argument, nullptr, ClockRuns},
                                       {nullptr, 0, nullptr, 0}};
    Options options;
    std::string device = "iphone5";
    std::string application;
    std::string system(phone::usualSystem);
    for (int found = 0; (found = getopt_long(argc, argv, "", known, nullptr)) != -1;) {
        switch (found) {
        case Socket:
            options.socket = std::stoi(optarg);
            break;
        case Display:
            options.display = std::stoi(optarg);
            break;
        case Root:
            options.settings.root = optarg;
            break;
        case Device:
            device = optarg;
            break;
        case App:
            application = optarg;
            break;
        case Language:
            options.settings.language = optarg;
            break;
        case Region:
            options.settings.region = optarg;
            break;
        case Hours:
            options.settings.hours = phone::hoursNamed(optarg);
            break;
        case System:
            system = optarg;
            break;
        case Now:
            options.settings.now = std::stod(optarg);
            break;
        case Zone:
            options.settings.zone = optarg;
            break;
        case ClockRuns:
            options.settings.clockRuns = true;
            break;
        default:
            throw std::invalid_argument("unusable option");
        }
    }
    if (options.socket < 0 || options.settings.root.empty()) {
        throw std::invalid_argument("--socket-fd and --root are needed");
    }
    const auto deviceProfile = phone::deviceNamed(device);
    if (!deviceProfile) {
        throw std::invalid_argument("no such device: " + device);
    }
    const auto profile = phone::applicationNamed(application.empty() ? deviceProfile->application : application);
    if (!profile) {
        throw std::invalid_argument("no such application: " + application);
    }
    const auto systemProfile = phone::systemNamed(system);
    if (!systemProfile) {
        throw std::invalid_argument("no such system: " + system);
    }
    options.settings.device = *deviceProfile;
    options.settings.system = *systemProfile;
    options.settings.application = *profile;
    return options;
}

json answer(phone::Session& session, const std::string& line) {
    try {
        json result = session.request(json::parse(line));
        result["ok"] = true;
        return result;
    } catch (const std::exception& error) {
        json refusal = {{"ok", false}, {"error", error.what()}};
        if (session.isDead()) {
            refusal["died"] = true;
        }
        return refusal;
    }
}

int serve(const Options& options) {
    phone::Session session(options.settings);
    session.showOn(options.display);
    phone::SocketLines lines(options.socket);
    while (const auto line = lines.read()) {
        lines.write(answer(session, *line).dump(-1, ' ', false, json::error_handler_t::replace));
        if (session.isDead()) {
            return exitDied;
        }
    }
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv) {
    int status = exitUnusable;
    try {
        status = serve(parse(argc, argv));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "phone-application: %s\n", error.what());
    }
    // As on a device nothing is torn down at the end of a process.
    std::fflush(nullptr);
    std::_Exit(status);
}
