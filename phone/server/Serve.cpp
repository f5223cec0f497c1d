#include "phone/server/Serve.h"

#include "phone/server/Server.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <future>
#include <thread>

namespace phone {

namespace {

constexpr std::chrono::seconds farewell{2};

/// Blocks what ends the program, for all its threads from now on, so that one can wait for it.
sigset_t blockEndings() {
    sigset_t endings;
    sigemptyset(&endings);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        sigaddset(&endings, signal);
    }
    pthread_sigmask(SIG_BLOCK, &endings, nullptr);
    std::signal(SIGPIPE, SIG_IGN); // a client that has gone is no reason to end
    return endings;
}

} // namespace

int serve(const std::string& root, const LaunchSettings& settings, int port) {
    const sigset_t endings = blockEndings();
    LivePhone phone(ApplicationProcess::executableBesideThis(), root, settings);
    Server server(phone, port);
    try {
        phone.launch();
    } catch (const ScreenError& error) {
        std::fprintf(stderr, "phone: serve: %s\n", error.what()); // the clients may launch it again
    }
    std::thread serving([&] { server.run(); });
    std::printf("The phone is at http://127.0.0.1:%d\n", server.port());
    std::fflush(stdout);
    int signal = 0;
    sigwait(&endings, &signal);
    phone.interrupt();
    server.stop();
    // Clients that are in the middle of something get a moment; then the program ends with them.
    std::promise<void> ended;
    auto end = ended.get_future();
    std::thread([&] {
        serving.join();
        ended.set_value();
    }).detach();
    if (end.wait_for(farewell) == std::future_status::timeout) {
        phone.stop();
        std::fflush(nullptr);
        std::_Exit(EXIT_SUCCESS);
    }
    return EXIT_SUCCESS;
}

} // namespace phone
