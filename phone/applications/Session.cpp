#include "phone/applications/Session.h"

#include "phone/applications/CallService.h"
#include "phone/device/Log.h"
#include "phone/device/RunLoop.h"
#include "phone/eventkit/AccessRequests.h"
#include "phone/foundation/Text.h"
#include "phone/foundation/WallClock.h"
#include "phone/uikit/Application.h"
#include "phone/uikit/Compositor.h"
#include "phone/uikit/HeldScreen.h"
#include "phone/uikit/Interface.h"
#include "phone/uikit/Keyboard.h"
#include "phone/uikit/TouchDelivery.h"
#include "phone/uikit/TreeDump.h"
#include "platform/objc/Exception.h"
#include "platform/objc/Pool.h"
#include "platform/uikit/UIPasteboard.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>

namespace phone {

namespace {

using nlohmann::json;

/// What moves for longer than this moves for ever.
constexpr double longestSettling = 60; // seconds
/// How soon to look again for what an answer of the store that is under way leaves to the main thread.
constexpr double nextLook = 0.02; // seconds

const char* nameOf(CallService::Phase phase) {
    static constexpr const char* names[] = {"idle", "ringing", "active", "held", "ended"};
    return names[static_cast<int>(phase)];
}

json whatThePhoneDoes() {
    const CallService& call = CallService::shared();
    return {{"orientation", HeldScreen::shared().orientation()},
            {"call", {{"phase", nameOf(call.phase())}, {"number", call.number()}, {"seconds", call.seconds()}}},
            {"clock", WallClock::now()},
            {"keyboard", Keyboard::shared().isShown()},
            {"logged", Log::shared().size()}};
}

/// For who moves the clock in real time: `next`, in how many seconds something is due, where anything is; and `moving`,
/// whether that comes to an end by itself.
void addTimes(json& answer) {
    const RunLoop& loop = RunLoop::main();
    const bool isAnswering = eventkit::AccessRequests::shared().isAnswering();
    double next = isAnswering ? nextLook : std::numeric_limits<double>::infinity();
    if (const double timer = loop.nextTimer(); timer >= 0) {
        next = std::min(next, std::max(0.0, timer - loop.now()));
    }
    if (std::isfinite(next)) {
        answer["next"] = next;
    }
    answer["moving"] = loop.nextMovement() >= 0 || isAnswering;
}

} // namespace

Session::Session(const Settings& settings, Start start) {
    try {
        run([&] { boot(settings, start); });
    } catch (const ScreenError&) {
        // The epitaph tells; every command will.
    }
}

json Session::request(const json& command) {
    json answer;
    run([&] { answer = perform(command); });
    addTimes(answer);
    return answer;
}

void Session::run(const std::function<void()>& work) {
    if (isDead()) {
        throw ScreenError(_epitaph);
    }
    // The one place where exceptions are caught. What a command itself refuses comes as a C++ exception;
    // a platform exception has passed through the application's code, which is then in no state to go on.
    const objc::Pool pool; // outside, so that what is thrown outlives the frames it leaves
    try {
        work();
        RunLoop::main().drain();
        return;
    } catch (const ScreenError&) {
        throw;
    } catch (const std::exception& refusal) {
        throw ScreenError(refusal.what());
    } catch (...) {
        const objc::Object thrown = objc::caughtObject();
        die(text(thrown.send<"name", NSString>()), text(thrown.send<"reason", NSString>()));
    }
    throw ScreenError(_epitaph);
}

void Session::die(const std::string& name, const std::string& reason) {
    Log::shared().add("exception", {{"name", name}, {"reason", reason}});
    _epitaph = "the phone application died of an uncaught exception: " + name + ": " + reason;
}

json Session::perform(const json& command) {
    const std::string what = command.at("do");
    if (what == "touch") {
        deliverTouch(command);
    } else if (what == "type") {
        typeText(command.at("text"));
    } else if (what == "key") {
        pressKey(command.at("key"));
    } else if (what == "advance") {
        RunLoop::main().advance(command.at("seconds"));
    } else if (what == "settle") {
        waitUntilNothingMoves();
    } else if (what == "picture") {
        return _display.update();
    } else if (what == "state") {
        return whatThePhoneDoes();
    } else if (what == "tree") {
        std::optional<CGPoint> touched;
        if (command.contains("at")) {
            touched = HeldScreen::shared().upright(CGPoint{command.at("at").at(0), command.at("at").at(1)});
        }
        return {{"tree", dumpTree(command.value("finding", false), touched)}};
    } else if (what == "log") {
        return {{"log", Log::shared().lines(command.value("from", std::size_t{0}))}};
    } else if (what == "screenshot") {
        takeScreenshot(command);
    } else if (what == "phoneCall") {
        CallService::shared().perform(command.at("action"), command.value("number", ""));
    } else if (what == "setClock") {
        const double moment = command.at("seconds");
        command.value("runs", false) ? WallClock::run(moment) : WallClock::set(moment);
    } else if (what == "setStoreAnswers") {
        letStoresAnswer(command.at("when"));
    } else if (what == "memoryWarning") {
        Application::of(UIApplication::shared())->warnOfMemory();
    } else if (what == "setOrientation") {
        const std::string orientation = command.at("orientation");
        if (!HeldScreen::shared().turn(orientation)) {
            throw ScreenError("no such orientation: " + orientation);
        }
        Interface::shared().deviceTurned();
    } else if (what == "setClipboard") {
        UIPasteboard::general().setString(string(command.at("text")));
    } else if (what == "clipboard") {
        return {{"text", text(UIPasteboard::general().string())}};
    } else if (what == "pasteText") {
        phone::pasteText(); // not Screen's command of that name, which comes here
    } else if (what == "hideKeyboard") {
        phone::hideKeyboard();
    } else {
        throw ScreenError("no such command: " + what);
    }
    return json::object();
}

void Session::deliverTouch(const json& command) {
    const std::string phase = command.at("phase");
    const CGPoint point = HeldScreen::shared().upright(CGPoint{command.at("x"), command.at("y")});
    TouchDelivery& delivery = TouchDelivery::shared();
    if (phase == "began") {
        delivery.began(point);
    } else if (phase == "moved") {
        delivery.moved(point);
    } else if (phase == "ended") {
        delivery.moved(point);
        delivery.ended();
    } else if (phase == "cancelled") {
        delivery.cancel();
    } else {
        throw ScreenError("no such phase of a touch: " + phase);
    }
}

void Session::letStoresAnswer(const std::string& when) {
    using Answers = eventkit::AccessRequests::Answers;
    static const std::map<std::string, Answers> words = {
        {"late", Answers::Late}, {"early", Answers::Early}, {"concurrent", Answers::Concurrent}};
    const auto found = words.find(when);
    if (found == words.end()) {
        throw ScreenError("a store answers late, early or concurrent, not " + when);
    }
    eventkit::AccessRequests::shared().setAnswers(found->second);
}

void Session::takeScreenshot(const json& command) {
    const std::string path = command.at("path");
    bool written = false;
    if (command.contains("rect")) {
        const json& rect = command.at("rect");
        const CGRect area{{rect.at(0), rect.at(1)}, {rect.at(2), rect.at(3)}};
        const CGSize screen = HeldScreen::shared().size();
        if (!(area.origin.x >= 0 && area.origin.y >= 0 && area.size.width > 0 && area.size.height > 0 &&
              area.maxX() <= screen.width && area.maxY() <= screen.height)) {
            throw ScreenError("the part to be pictured does not lie on the screen");
        }
        written = writeScreenshot(path, area);
    } else {
        written = writeScreenshot(path);
    }
    if (!written) {
        throw ScreenError("cannot write " + path);
    }
}

void Session::waitUntilNothingMoves() {
    RunLoop& loop = RunLoop::main();
    auto& requests = eventkit::AccessRequests::shared();
    const double end = loop.now() + longestSettling;
    bool wasAnswered = false;
    do {
        loop.drain();
        for (double next = loop.nextMovement(); next >= 0 && next <= end; next = loop.nextMovement()) {
            loop.advance(std::max(0.0, next - loop.now()));
        }
        wasAnswered = requests.answerWaiting(); // what moves for ever holds no answer back
        wasAnswered = requests.waitForConcurrent() || wasAnswered;
    } while (wasAnswered);
}

} // namespace phone
