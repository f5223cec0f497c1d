#include "phone/flow/Substitution.h"

#include <algorithm>

namespace phone {

namespace {

bool startsName(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_'; }

const std::string& value(const std::string& name, const Environment& environment, const Place& place) {
    if (!isVariableName(name)) {
        throw InputError(place, "only ${NAME} can be filled in, not ${" + name + "}");
    }
    const auto found = environment.find(name);
    if (found == environment.end()) {
        throw InputError(place, "${" + name + "} has no value; give it one under `env` in the header");
    }
    return found->second;
}

} // namespace

bool isVariableName(const std::string& name) {
    return !name.empty() && startsName(name.front()) &&
           std::all_of(name.begin(), name.end(), [](char c) { return startsName(c) || (c >= '0' && c <= '9'); });
}

std::string substituted(const std::string& text, const Environment& environment, const Place& place) {
    std::string result;
    std::size_t at = 0;
    for (;;) {
        const auto open = text.find("${", at);
        if (open == std::string::npos) {
            return result + text.substr(at);
        }
        result += text.substr(at, open - at);
        if (result.ends_with('\\') && open > at) {
            result.pop_back();
            result += "${";
            at = open + 2;
            continue;
        }
        const auto close = text.find('}', open);
        if (close == std::string::npos) {
            throw InputError(place, "`${` without `}`");
        }
        result += value(text.substr(open + 2, close - open - 2), environment, place);
        at = close + 1;
    }
}

} // namespace phone
