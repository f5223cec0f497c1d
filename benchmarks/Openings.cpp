// Opens the sheet ten thousand times in one process, in turn for a note that is cancelled, a reminder and an event that
// are saved, and prints what that leaves behind: nothing.
// Exits with 1 when there are more objects of any class at the end than at the beginning.

#include "benchmarks/Call.h"
#include "phone/device/Log.h"
#include "phone/foundation/LiveObjects.h"
#include "platform/objc/Class.h"

#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace {

constexpr int openings = 10'000;
constexpr int stretch = 1'000; // from one line of figures to the next
constexpr int warmUp = 30;     // until what is made once has been made

double residentMegabytes() {
    long pages = 0;
    std::ifstream("/proc/self/statm") >> pages >> pages;
    return static_cast<double>(pages * sysconf(_SC_PAGESIZE)) / (1 << 20);
}

void open(Call& call, int times) {
    for (int i = 0; i < times; ++i) {
        switch (i % 3) {
        case 0:
            call.openNote();
            call.cancel();
            break;
        case 1:
            call.saveReminder();
            break;
        default:
            call.saveEvent();
        }
        // The log keeps everything by design; it is not what is measured.
        phone::Log::shared().clear();
    }
}

long total(const std::map<std::string, int>& counts) {
    long sum = 0;
    for (const auto& [name, count] : counts) {
        sum += count;
    }
    return sum;
}

int run() {
    phone::countLiveObjects();
    Call call("older"); // the newer call screen gains a tap area at every opening, by design
    open(call, warmUp);
    const auto before = phone::liveObjects();

    std::printf("openings   live objects   resident MB   ms per opening\n");
    std::printf("%8d   %12ld   %11.1f   %14s\n", 0, total(before), residentMegabytes(), "");
    for (int done = stretch; done <= openings; done += stretch) {
        const auto start = std::chrono::steady_clock::now();
        open(call, stretch);
        const std::chrono::duration<double, std::milli> passed = std::chrono::steady_clock::now() - start;
        std::printf("%8d   %12ld   %11.1f   %14.2f\n", done, total(phone::liveObjects()), residentMegabytes(),
                    passed.count() / stretch);
        std::fflush(stdout);
    }

    int status = EXIT_SUCCESS;
    for (const auto& [name, count] : phone::liveObjects()) {
        const auto known = before.find(name);
        if (const int grown = count - (known == before.end() ? 0 : known->second); grown > 0) {
            std::printf("%s: %d more\n", name.c_str(), grown);
            status = EXIT_FAILURE;
        }
    }
    return status;
}

} // namespace

int main() {
    int status = EXIT_FAILURE;
    try {
        status = run();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "openings: %s\n", error.what());
    }
    std::fflush(nullptr);
    std::_Exit(status); // as on a device nothing is torn down at the end of a process
}
