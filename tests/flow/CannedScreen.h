/// A screen that shows what a test gives it and notes what is done to it.
#pragma once

#include "phone/device/Screen.h"

#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace phone {

/// Shows a tree from a moment of its clock on, until the next one's.
class CannedScreen : public Screen {
public:
    explicit CannedScreen(const std::string& views) { show(0, views); }

    /// `views` is what stands inside the root element.
    void show(double from, const std::string& views) {
        _trees[from] = "<screen width=\"320\" height=\"568\" orientation=\"PORTRAIT\">" + views + "</screen>";
    }

    nlohmann::json request(const nlohmann::json& command) override {
        const std::string what = command.at("do");
        std::ostringstream line;
        if (what == "tree") {
            return {{"ok", true}, {"tree", std::prev(_trees.upper_bound(now + 1e-9))->second}};
        }
        if (what == "advance") {
            now += command.at("seconds").get<double>();
            return {{"ok", true}};
        }
        line << what;
        if (what == "touch") {
            line << " " << command.at("phase").get<std::string>() << " " << command.at("x").get<double>() << " "
                 << command.at("y").get<double>() << " at " << now;
        } else if (what == "key") {
            line << " " << command.at("key").get<std::string>();
        }
        done.push_back(line.str());
        return {{"ok", true}};
    }

    double now = 0;
    std::vector<std::string> done;

private:
    std::map<double, std::string> _trees;
};

} // namespace phone
