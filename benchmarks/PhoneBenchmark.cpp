// How long the phone takes over what a person and a flow do most.

#include "benchmarks/Call.h"
#include "phone/device/Log.h"
#include "phone/elements/AccessibilityTree.h"
#include "phone/elements/Find.h"
#include "phone/elements/Source.h"

#include <benchmark/benchmark.h>

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

namespace {

/// For what the benchmarks write; of the host, for the phone in this process has a temporary folder of its own.
const std::string folder = P_tmpdir "/phone-benchmark-" + std::to_string(getpid());

std::unique_ptr<Call> onlyCall;

/// The one call of this process; the log is emptied, for it keeps everything by design.
Call& call() {
    if (!onlyCall) {
        onlyCall = std::make_unique<Call>("older");
    }
    phone::Log::shared().clear();
    return *onlyCall;
}

void openTheNote(benchmark::State& state) {
    for (auto _ : state) {
        call().openNote();
        state.PauseTiming();
        call().cancel();
        state.ResumeTiming();
    }
}
BENCHMARK(openTheNote)->Unit(benchmark::kMillisecond);

void typeACharacter(benchmark::State& state) {
    call().openNote();
    call().startTyping();
    for (auto _ : state) {
        call().screen().type("a");
    }
    call().cancel();
}
BENCHMARK(typeACharacter)->Unit(benchmark::kMicrosecond)->Iterations(400);

void dumpTheTree(benchmark::State& state) {
    call().openNote();
    for (auto _ : state) {
        benchmark::DoNotOptimize(call().screen().tree());
    }
    call().cancel();
}
BENCHMARK(dumpTheTree)->Unit(benchmark::kMicrosecond);

/// The note with the keyboard: nothing has more elements.
std::string largestScreen() {
    call().openNote();
    call().startTyping();
    std::string tree = call().screen().tree(true);
    call().cancel();
    return tree;
}

/// The phone application's part of finding.
void dumpTheTreeForFinding(benchmark::State& state) {
    call().openNote();
    call().startTyping();
    for (auto _ : state) {
        benchmark::DoNotOptimize(call().screen().tree(true));
    }
    call().cancel();
}
BENCHMARK(dumpTheTreeForFinding)->Unit(benchmark::kMicrosecond);

void printTheSource(benchmark::State& state) {
    const std::string screen = largestScreen();
    for (auto _ : state) {
        const phone::webdriver::AccessibilityTree tree(screen, "Phone");
        benchmark::DoNotOptimize(xmlSource(tree.application()));
    }
}
BENCHMARK(printTheSource)->Unit(benchmark::kMicrosecond);

/// From the printed tree to what a tester's program asked for.
void findAnElement(benchmark::State& state, const char* strategy, const char* value) {
    const std::string screen = largestScreen();
    for (auto _ : state) {
        const phone::webdriver::AccessibilityTree tree(screen, "Phone");
        if (phone::webdriver::find(tree.application(), strategy, value).empty()) {
            state.SkipWithError("there is no such element");
            break;
        }
    }
}
BENCHMARK_CAPTURE(findAnElement, xpath, "xpath", "//XCUIElementTypeKey[@label='m']")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(findAnElement, predicate, "predicate string",
                  "type == 'XCUIElementTypeKey' AND label MATCHES[c] '[m]'")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(findAnElement, classChain, "class chain", "**/XCUIElementTypeKeyboard/*[`label == 'm'`]")
    ->Unit(benchmark::kMicrosecond);

void takeAPicture(benchmark::State& state) {
    const std::string picture = folder + "-picture.png";
    call().openNote();
    for (auto _ : state) {
        call().screen().screenshot(picture);
    }
    call().cancel();
    std::filesystem::remove(picture);
}
BENCHMARK(takeAPicture)->Unit(benchmark::kMillisecond);

/// The driver and the phone application as processes of their own, in a new root folder.
void playTheNoteFlow(benchmark::State& state) {
    const std::string phone = PHONE_EXECUTABLE;
    const std::string make = phone + " new --root " + folder;
    const std::string play =
        phone + " play " SOURCE_DIRECTORY "/flows/note.yaml --root " + folder + " --out " + folder + "/out >/dev/null";
    for (auto _ : state) {
        state.PauseTiming();
        std::filesystem::remove_all(folder);
        const bool made = std::system(make.c_str()) == 0;
        state.ResumeTiming();
        if (!made || std::system(play.c_str()) != 0) {
            state.SkipWithError("the flow failed");
            break;
        }
    }
    std::filesystem::remove_all(folder);
}
BENCHMARK(playTheNoteFlow)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    onlyCall.reset();
    std::fflush(nullptr);
    std::_Exit(EXIT_SUCCESS); // as on a device nothing is torn down at the end of a process
}
