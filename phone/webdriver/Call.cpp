#include "phone/webdriver/Call.h"

#include "phone/elements/Refusal.h"

#include <cmath>

namespace phone::webdriver {

namespace {

[[noreturn]] void missing(const std::string& key, const char* kind) {
    throw Refusal(Error::InvalidArgument, "\"" + key + "\" has to be " + kind);
}

} // namespace

std::string Call::parameter(const std::string& name) const {
    const auto found = parameters.find(name);
    return found == parameters.end() ? "" : found->second;
}

std::string Call::queried(const std::string& name) const {
    const auto found = query.find(name);
    return found == query.end() ? "" : found->second;
}

bool Call::has(const std::string& key) const { return body.contains(key) && !body.at(key).is_null(); }

std::string Call::text(const std::string& key) const {
    if (!has(key) || !body.at(key).is_string()) {
        missing(key, "a text");
    }
    return body.at(key);
}

std::string Call::text(const std::string& key, const std::string& otherwise) const {
    return has(key) ? text(key) : otherwise;
}

double Call::number(const std::string& key) const {
    if (!has(key) || !body.at(key).is_number() || !std::isfinite(body.at(key).get<double>())) {
        missing(key, "a number");
    }
    return body.at(key);
}

double Call::number(const std::string& key, double otherwise) const { return has(key) ? number(key) : otherwise; }

bool Call::flag(const std::string& key, bool otherwise) const {
    if (!has(key)) {
        return otherwise;
    }
    if (!body.at(key).is_boolean()) {
        missing(key, "true or false");
    }
    return body.at(key);
}

} // namespace phone::webdriver
