/// One request to the WebDriver protocol, and its answer.
#pragma once

#include <nlohmann/json.hpp>

#include <map>
#include <string>

namespace phone::webdriver {

using Query = std::multimap<std::string, std::string>;

struct Call {
    nlohmann::json body = nlohmann::json::object();
    Query query;
    std::map<std::string, std::string> parameters; // what stands in the path: session, element, name, ...

    /// A parameter of the path; "" where it has none of this name.
    std::string parameter(const std::string& name) const;
    /// A value of the query; "" where there is none.
    std::string queried(const std::string& name) const;

    // Values of the body. All throw a Refusal, invalid argument, for a value of another type.
    bool has(const std::string& key) const;
    std::string text(const std::string& key) const;
    std::string text(const std::string& key, const std::string& otherwise) const;
    double number(const std::string& key) const;
    double number(const std::string& key, double otherwise) const;
    bool flag(const std::string& key, bool otherwise) const;
};

struct Answer {
    int status = 200;
    std::string body; // JSON
};

} // namespace phone::webdriver
