// Writes reminders and events as fast as a finger can while the calendar store answers on threads of its own, and
// counts what stands in the store afterwards: all of it, whatever came between. Disks that take their time, at random,
// make the threads meet at ever other places. Usage: concurrent-answers [ROUNDS [SEED]]. Exits with 1 at the first
// record that is missing, or when the application dies.

#include "benchmarks/Call.h"
#include "phone/device/Log.h"
#include "phone/eventkit/CalendarFolder.h"

#include <pugixml.hpp>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <set>
#include <sstream>
#include <stdexcept>
#include <thread>

namespace {

constexpr int defaultRounds = 1000;
constexpr int untilTheNextCount = 25; // rounds
constexpr int longestPause = 2000;    // microseconds

/// Of each thread its own, all from one seed.
class Chance {
public:
    static void seed(unsigned seed) { first = seed; }
    /// From 0 to `most`.
    static int upTo(int most) {
        thread_local std::mt19937 engine(first + ++threads);
        return std::uniform_int_distribution<int>(0, most)(engine);
    }
    static bool oneIn(int number) { return upTo(number - 1) == 0; }
    static void pause() {
        if (oneIn(2)) {
            std::this_thread::sleep_for(std::chrono::microseconds(upTo(longestPause)));
        }
    }

private:
    static inline std::atomic<unsigned> first = 0;
    static inline std::atomic<unsigned> threads = 0;
};

/// A finger that waits for nothing but what it touches.
class Finger {
public:
    explicit Finger(phone::Session& screen) : _screen(screen) {}

    void tapOn(const std::string& text) { tap("//*[@text='" + text + "' and @touch]"); }
    /// The first that the path finds, once it is there.
    void tap(const std::string& path) {
        if (!tapWithin(patience, path)) {
            throw std::runtime_error("nothing to touch is " + path);
        }
    }
    /// What a finger does on the call screen until the sheet is there: a sheet that still goes lets no other come.
    void openSheet(const std::string& activity) {
        for (int taps = 0; taps < mostTaps; ++taps) {
            tap(160, 50);
            if (tapWithin(1, "//*[@text='" + activity + "' and @touch]")) {
                return;
            }
        }
        throw std::runtime_error("no sheet comes");
    }
    void tap(double x, double y) {
        Chance::pause();
        _screen.touch(phone::Screen::Phase::Began, x, y);
        _screen.touch(phone::Screen::Phase::Ended, x, y);
    }
    void type(const std::string& text) { _screen.type(text); }

private:
    static constexpr double patience = 5; // seconds
    static constexpr double look = 0.05;  // seconds from one look at the screen to the next
    static constexpr int mostTaps = 10;

    bool tapWithin(double seconds, const std::string& path) {
        for (double waited = 0; waited < seconds; waited += look) {
            pugi::xml_document tree;
            tree.load_string(_screen.tree(true).c_str());
            std::istringstream numbers(tree.select_node(path.c_str()).node().attribute("touch").value());
            if (double x = 0, y = 0; numbers >> x >> y) {
                tap(x, y);
                return true;
            }
            _screen.advance(look);
        }
        return false;
    }

    phone::Session& _screen;
};

/// One job of the main job, and what it leaves.
class Writing {
public:
    explicit Writing(Call& call) : _call(call), _finger(call.screen()) {}

    void writeReminder(const std::string& title) {
        _finger.openSheet("Reminder");
        visitChooser("List");
        _finger.tap("//UITextView[@touch]");
        _finger.type(title);
        _finger.tapOn("Done");
        _reminders.insert(title);
    }
    void writeEvent(const std::string& title) {
        _finger.openSheet("Event");
        visitChooser("Calendar");
        _finger.tap("//UITextField[@touch]");
        _finger.type(title);
        _finger.tapOn("Done");
        _events.insert(title);
    }
    /// Throws where anything is missing, or too much.
    void count() {
        _call.screen().settle();
        compare(titles(phone::CalendarFolder(_call.root(), phone::EntityType::Reminder).reminders()), _reminders);
        compare(titles(phone::CalendarFolder(_call.root(), phone::EntityType::Event).events()), _events);
        phone::Log::shared().clear(); // it keeps everything by design
    }
    std::size_t number() const { return _reminders.size() + _events.size(); }

private:
    using Titles = std::multiset<std::string>;

    /// Each visit asks the store, whose answer may come at any time.
    void visitChooser(const std::string& row) {
        for (int visits = Chance::upTo(2); visits > 0; --visits) {
            _finger.tapOn(row);
            if (Chance::oneIn(2)) {
                _call.screen().advance(0.4);
            }
            _finger.tapOn("Back");
        }
    }
    template <class Rows>
    static Titles titles(const Rows& rows) {
        Titles all;
        for (const auto& row : rows) {
            all.insert(row.item.title);
        }
        return all;
    }
    static void compare(const Titles& found, const Titles& written) {
        if (found != written) {
            throw std::runtime_error(std::to_string(found.size()) + " records where " + std::to_string(written.size()) +
                                     " were written");
        }
    }

    Call& _call;
    Finger _finger;
    Titles _reminders;
    Titles _events;
};

int run(int rounds, unsigned seed) {
    Chance::seed(seed);
    Call call("older"); // the newer call screen gains a tap area at every opening, by design
    call.screen().setStoreAnswers("concurrent");
    Writing writing(call);
    for (int round = 1; round <= rounds; ++round) {
        const std::string title = "round " + std::to_string(round);
        Chance::oneIn(2) ? writing.writeReminder(title) : writing.writeEvent(title);
        if (round % untilTheNextCount == 0 || round == rounds) {
            writing.count();
            std::printf("%d of %d rounds, %zu records, none missing\n", round, rounds, writing.number());
            std::fflush(stdout);
        }
    }
    return EXIT_SUCCESS;
}

} // namespace

// What makes a file last. Nobody cuts the power here, but the wait for it is real.
extern "C" int fsync(int) {
    Chance::pause();
    return 0;
}

int main(int argc, char** argv) {
    const int rounds = argc > 1 ? std::atoi(argv[1]) : defaultRounds;
    const unsigned seed = argc > 2 ? static_cast<unsigned>(std::strtoul(argv[2], nullptr, 10)) : std::random_device()();
    std::printf("seed %u\n", seed);
    int status = EXIT_FAILURE;
    try {
        status = run(rounds, seed);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "concurrent-answers: seed %u: %s\n", seed, error.what());
    }
    std::fflush(nullptr);
    std::_Exit(status); // as on a device nothing is torn down at the end of a process
}
