/// The whole phone, as a person at the command line has it: the driver, the application with the library in
/// a process of its own, a fresh root folder.
#pragma once

#include "phone/flow/NewPhone.h"
#include "phone/flow/Player.h"
#include "phone/flow/Records.h"
#include "tests/InstalledLibrary.h"
#include "tests/flow/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace phone {

class WholePhone : public testing::Test {
protected:
    static constexpr const char* zone = "Europe/Berlin";

    /// Makes the phone; call first.
    void make(const Stores& stores = {}) {
        _options.root = folder.path("root");
        _options.out = folder.path("out");
        _options.executable = BUILD_DIRECTORY "/phone-application";
        _options.phone.zone = zone;
        _options.phone.now = "2026-03-05T14:37:12";
        makePhone(_options.root, STAGE_DIRECTORY, stores);
        installChosenLibrary(_options.root);
    }
    /// Plays these commands as one flow; expects all of them to hold. Gives what stands on standard error.
    std::string play(const std::string& commands) {
        return play(_options, {Flow::read(folder.write("flow.yaml", commands))});
    }
    /// Plays flows one after the other on the phones that their headers ask for; expects all of them to hold.
    void playFiles(const std::vector<std::string>& files) { playFlows(read(files)); }
    /// The same, while the calendar store answers on threads of its own in every run of the application.
    void playConcurrently(const std::vector<std::string>& files) {
        std::vector<Flow> flows = read(files);
        for (Flow& flow : flows) {
            answerConcurrently(flow.commands);
        }
        playFlows(flows);
    }
    // Commands, to be put together.
    /// A new run, a call that is accepted, and a tap on the top of its screen.
    static std::string openSheet() {
        return "- launchApp\n- phoneCall: {number: '+49 30 1234567', action: call}\n- phoneCall: {action: accept}\n"
               "- tapOn: {point: '160,50'}\n";
    }
    /// The same, and a pick from the sheet.
    static std::string open(const std::string& activity) {
        return openSheet() + "- tapOn: '" + activity + "'\n- waitForAnimationToEnd\n";
    }
    /// Writes into the text that shows this placeholder, and saves.
    static std::string write(const std::string& placeholder, const std::string& text) {
        return "- tapOn: '" + placeholder + "'\n- inputText: '" + text +
               "'\n- tapOn: 'Done'\n- waitForAnimationToEnd\n";
    }

    nlohmann::ordered_json recorded(const char* kind) const { return records(_options.root, zone).at(kind); }
    std::string root() const { return _options.root; }
    /// Runs a program with the phone's calendars; gives what it prints.
    std::string printed(const std::string& command) {
        const std::string whole = "HOME=" + folder.path() + " TZ=" + zone + " LC_ALL=C.UTF-8 " + command + " > " +
                                  folder.path("printed") + " 2> " + folder.path("complaints");
        EXPECT_EQ(std::system(whole.c_str()), 0) << folder.read("complaints");
        return folder.read("printed");
    }

    TemporaryFolder folder;

private:
    static std::vector<Flow> read(const std::vector<std::string>& files) {
        std::vector<Flow> flows;
        for (const std::string& file : files) {
            flows.push_back(Flow::read(file));
        }
        return flows;
    }
    void playFlows(const std::vector<Flow>& flows) {
        Player::Options options = _options;
        options.phone = {};
        play(options, flows);
    }
    static void answerConcurrently(std::vector<Command>& given) {
        std::vector<Command> all;
        for (Command& command : given) {
            if (auto* inner = std::get_if<commands::RunFlow>(&command.what)) {
                answerConcurrently(inner->commands);
            } else if (auto* loop = std::get_if<commands::Repeat>(&command.what)) {
                answerConcurrently(loop->commands);
            }
            const bool isLaunch = std::holds_alternative<commands::LaunchApp>(command.what);
            const Place place = command.place;
            all.push_back(std::move(command));
            if (isLaunch) {
                all.push_back({place, "setStoreAnswers", commands::SetStoreAnswers{"concurrent"}});
            }
        }
        given = std::move(all);
    }
    static std::string play(const Player::Options& options, const std::vector<Flow>& flows) {
        Player player(options);
        testing::internal::CaptureStderr();
        const int status = player.play(flows);
        const std::string complaints = testing::internal::GetCapturedStderr();
        EXPECT_EQ(status, 0) << complaints;
        return complaints;
    }

    Player::Options _options;
};

} // namespace phone
