/// Screens that a test writes down, as the phone application would print them.
#pragma once

#include "phone/elements/AccessibilityTree.h"
#include "phone/elements/Find.h"
#include "phone/elements/Refusal.h"

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>
#include <vector>

namespace phone::webdriver {

/// One view; `more` are attributes, `inside` what is in it.
inline std::string view(const std::string& className, const std::string& kind, int identity,
                        const std::string& more = "", const std::string& inside = "") {
    std::ostringstream text;
    text << "<" << className << " kind=\"" << kind << "\" identity=\"" << identity << "\" alpha=\"1\"";
    const auto unlessGiven = [&](const char* name, const char* value) {
        if (more.find(std::string(name) + "=") == std::string::npos) {
            text << " " << name << "=\"" << value << "\"";
        }
    };
    unlessGiven("hidden", "false");
    unlessGiven("enabled", "true");
    unlessGiven("visible", "true");
    unlessGiven("screen", "0 0 10 10");
    text << " " << more << ">" << inside << "</" << className << ">";
    return text.str();
}

inline std::string screen(const std::string& views) {
    return "<screen width=\"320\" height=\"568\" orientation=\"PORTRAIT\">" + views + "</screen>";
}

/// A label, a button, a field and two rows in a window.
inline std::string form() {
    const auto row = [](int identity, const char* name, const char* value) {
        return view("UITableViewCell", "UITableViewCell", identity, "accessory=\"none\" selected=\"false\"",
                    view("UILabel", "UILabel", identity + 1, "text=\"" + std::string(name) + "\"") +
                        view("UILabel", "UILabel", identity + 2, "text=\"" + std::string(value) + "\""));
    };
    return view(
        "UIWindow", "UIWindow", 1, "",
        view("UILabel", "UILabel", 2, "text=\"Äpfel &amp; Birnen\" screen=\"15 20.6 100 21\"") +
            view("UIButton", "UIButton", 3, "text=\"Done\" id=\"finish\" state=\"normal\" touch=\"5 5\"",
                 view("UILabel", "UILabel", 4, "text=\"Done\"")) +
            view("UITextField", "UITextField", 5, "text=\"\" placeholder=\"Title\" state=\"normal\"") +
            view("UITableView", "UITableView", 6, "", row(10, "Calendar", "Work") + row(20, "Repeat", "Never")));
}

/// Names of what was found, or types where there is no name.
inline std::vector<std::string> names(const std::vector<Element>& elements) {
    std::vector<std::string> all;
    for (const Element& element : elements) {
        all.push_back(element.name().value_or(element.type()));
    }
    return all;
}

using Names = std::vector<std::string>;

/// The refusal's error and message: "invalid selector: …"; "" when nothing was refused.
inline std::string refusalOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const Refusal& refusal) {
        return std::string(refusal.name()) + ": " + refusal.what();
    }
    return "";
}

/// Finds on the form.
class Form : public testing::Test {
protected:
    Names found(const std::string& strategy, const std::string& value) {
        return names(find(tree.application(), strategy, value));
    }
    Element one(std::uint64_t identity) const { return tree.byIdentity(identity); }

    AccessibilityTree tree{screen(form()), "Phone"};
};

} // namespace phone::webdriver
