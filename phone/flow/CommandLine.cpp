#include "phone/flow/CommandLine.h"

#include "phone/flow/AtomicFile.h"
#include "phone/flow/Help.h"
#include "phone/flow/LocalTime.h"
#include "phone/flow/NewPhone.h"
#include "phone/flow/PhoneZone.h"
#include "phone/flow/Player.h"
#include "phone/flow/Records.h"
#include "phone/packages/Installer.h"
#include "phone/server/Serve.h"
#include "phone/server/Server.h"

#include <CLI/CLI.hpp>

#include <array>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <string_view>

namespace phone {

namespace fs = std::filesystem;

namespace {

constexpr const char* version = "phone 0.1.0\n";
constexpr int statusUnusable = 2;

/// Everything that can stand on the command line.
struct Given {
    std::string root;
    std::string stores;
    std::vector<std::string> flows;
    std::string out;
    std::string report;
    PhoneOptions phone;
    std::string zone;
    bool json = false;
    std::string package;
    std::string removed;
    int port = Server::usualPort;
};

void check(std::string_view option, const std::string& value) {
    if (const auto wrong = whatIsWrongWith(option, value)) {
        throw InputError("--" + std::string(option) + ": " + *wrong);
    }
}

void checkPhone(const PhoneOptions& phone) {
    for (const PhoneOption& option : phoneOptions) {
        if (const auto& value = phone.*option.value) {
            check(option.name, *value);
        }
    }
}

/// The root folder of an existing phone, absolute.
std::string existingRoot(const std::string& root) {
    if (!fs::is_directory(root)) {
        throw InputError({root, 0}, "no such phone; make one with `phone new --root " + root + "`");
    }
    return fs::canonical(root).string();
}

int makeNew(const Given& given) {
    const Stores stores = given.stores.empty() ? Stores{} : Stores::read(given.stores);
    const fs::path stage = fs::read_symlink("/proc/self/exe").parent_path() / "stage";
    makePhone(fs::absolute(given.root), stage, stores);
    return EXIT_SUCCESS;
}

int play(const Given& given) {
    checkPhone(given.phone);
    Player::Options options;
    options.root = existingRoot(given.root);
    options.phone = given.phone;
    options.startedAt = static_cast<double>(std::time(nullptr));
    options.executable = ApplicationProcess::executableBesideThis();

    std::vector<Flow> flows; // all of them are checked before the first begins
    for (const std::string& file : given.flows) {
        flows.push_back(Flow::read(file));
    }
    std::error_code error;
    fs::create_directories(given.out, error);
    if (error || !fs::is_directory(given.out)) {
        throw InputError({given.out, 0}, "cannot be made a folder for pictures and dumps");
    }
    options.out = fs::canonical(given.out).string();

    Player player(std::move(options));
    const int status = player.play(flows);
    if (!given.report.empty()) {
        using nlohmann::ordered_json;
        const auto replace = ordered_json::error_handler_t::replace;
        writeAtomically(fs::absolute(given.report), player.report().json().dump(2, ' ', false, replace) + "\n");
    }
    return status;
}

int printRecords(const Given& given) {
    if (!given.zone.empty()) {
        check("zone", given.zone);
    }
    const std::string root = existingRoot(given.root);
    const auto all = records(root, given.zone.empty() ? rememberedZone(root) : given.zone);
    const auto replace = nlohmann::ordered_json::error_handler_t::replace;
    const std::string text = given.json ? all.dump(2, ' ', false, replace) + "\n" : recordsTable(all);
    std::fputs(text.c_str(), stdout);
    for (const std::string& broken : brokenRecords(root)) {
        std::fprintf(stderr, "%s\n", broken.c_str());
    }
    return EXIT_SUCCESS;
}

int install(const Given& given) {
    const std::string root = existingRoot(given.root);
    if (given.package.empty() == given.removed.empty()) {
        throw InputError("install: name a package's file, or one to --remove; see `phone help`");
    }
    const auto lines = given.removed.empty() ? installPackage(root, given.package) : removePackage(root, given.removed);
    for (const std::string& said : lines) {
        std::printf("%s\n", said.c_str());
    }
    return EXIT_SUCCESS;
}

int serveClients(const Given& given) {
    checkPhone(given.phone);
    if (given.port < 0 || given.port > 65535) {
        throw InputError("--port: a port is a number up to 65535, 0 for a free one");
    }
    return serve(existingRoot(given.root), launchSettings(given.phone, {}), given.port);
}

/// One line, without the line breaks that the parser may use.
std::string line(const char* text) {
    std::string all = text;
    std::replace(all.begin(), all.end(), '\n', ' ');
    return all;
}

int parseAndRun(int argc, char** argv) {
    Given given;
    CLI::App app("phone");
    app.set_help_flag();
    app.require_subcommand(1);

    CLI::App* makes = app.add_subcommand("new");
    makes->add_option("--root", given.root)->required();
    makes->add_option("--stores", given.stores);

    CLI::App* plays = app.add_subcommand("play");
    plays->add_option("flows", given.flows, "FLOW.yaml")->required();
    plays->add_option("--root", given.root)->required();
    plays->add_option("--out", given.out)->required();
    plays->add_option("--report", given.report);

    CLI::App* serves = app.add_subcommand("serve");
    serves->add_option("--root", given.root)->required();
    serves->add_option("--port", given.port);
    for (const PhoneOption& option : phoneOptions) {
        const std::string dashed = "--" + std::string(option.name);
        plays->add_option(dashed, given.phone.*option.value);
        if (option.name != "now") { // in real time the clock goes with this machine's
            serves->add_option(dashed, given.phone.*option.value);
        }
    }

    CLI::App* prints = app.add_subcommand("records");
    prints->add_option("--root", given.root)->required();
    prints->add_option("--zone", given.zone);
    prints->add_flag("--json", given.json);

    CLI::App* installs = app.add_subcommand("install");
    installs->add_option("package", given.package, "FILE.deb");
    installs->add_option("--remove", given.removed);
    installs->add_option("--root", given.root)->required();

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        throw InputError(line(error.what()) + "; see `phone help`");
    }
    return makes->parsed()      ? makeNew(given)
           : plays->parsed()    ? play(given)
           : installs->parsed() ? install(given)
           : serves->parsed()   ? serveClients(given)
                                : printRecords(given);
}

int run(int argc, char** argv) {
    const std::string_view command = argc > 1 ? argv[1] : "";
    const auto asksForHelp = [](std::string_view word) { return word == "--help" || word == "-h"; };
    if (command == "help" || std::any_of(argv + std::min(argc, 1), argv + argc, asksForHelp)) {
        std::fputs(helpText, stdout);
        return EXIT_SUCCESS;
    }
    if (command == "--version") {
        std::fputs(version, stdout);
        return EXIT_SUCCESS;
    }
    static constexpr std::array commands = {"new", "play", "records", "install", "serve"};
    if (std::find(commands.begin(), commands.end(), command) == commands.end()) {
        const std::string what =
            command.empty() ? "a command is missing" : "unknown command `" + std::string(command) + "`";
        throw InputError(what + "; the commands are new, play, records, install, serve and help");
    }
    return parseAndRun(argc, argv);
}

} // namespace

int runCommandLine(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const InputError& error) {
        std::fprintf(stderr, "%s%s\n", error.place().file.empty() ? "phone: " : "", error.what());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "phone: %s\n", error.what());
    }
    return statusUnusable;
}

} // namespace phone
