// What a client sets up, and scripts, which are commands by another name.

#include "phone/webdriver/Commands.h"
#include "phone/webdriver/MobileCommands.h"

namespace phone::webdriver {

namespace {

constexpr double millisecondsPerSecond = 1000;
constexpr const char* native = "NATIVE_APP";

/// The scripts by which one client asks what other clients have routes for begin with these.
constexpr std::string_view asksDisplayed = "/* isDisplayed */";
constexpr std::string_view asksAttribute = "/* getAttribute */";
/// And the one that asks whether an element is being edited compares it with this.
constexpr std::string_view edited = "=== document.activeElement";
constexpr std::string_view mobile = "mobile:";

double timeout(const Call& call, const char* key, double now) {
    if (!call.has(key)) {
        return now;
    }
    const double given = call.number(key);
    constexpr double most = 9007199254740991; // as the protocol has it
    if (given < 0 || given > most) {
        throw Refusal(Error::InvalidArgument, std::string("\"") + key + "\" has to be 0 or more milliseconds");
    }
    return given / millisecondsPerSecond;
}

/// The arguments of a script: the first, where it is an object.
json argumentsOf(const Call& call) {
    if (!call.has("args")) {
        return json::object();
    }
    const json& all = call.body.at("args");
    if (!all.is_array()) {
        throw Refusal(Error::InvalidArgument, "\"args\" has to be a list");
    }
    if (all.empty() || all.front().is_null()) {
        return json::object();
    }
    if (!all.front().is_object()) {
        throw Refusal(Error::InvalidArgument, "a command's arguments are an object");
    }
    return all.front();
}

/// The same question by its own route; the script's first argument is the element.
json askedByScript(Session& session, const Call& call, json (*question)(Session&, const Call&)) {
    const json element = argumentsOf(call);
    if (!element.contains(elementKey) || !element.at(elementKey).is_string()) {
        throw Refusal(Error::InvalidArgument, "the script's first argument has to be an element");
    }
    Call asked;
    asked.parameters["element"] = element.at(elementKey);
    const json& all = call.body.at("args");
    if (all.size() > 1 && all.at(1).is_string()) {
        asked.parameters["name"] = all.at(1);
    }
    return question(session, asked);
}

} // namespace

json timeouts(Session& session, const Call&) {
    const auto now = session.timeouts();
    return {{"implicit", now.implicit * millisecondsPerSecond},
            {"pageLoad", now.pageLoad * millisecondsPerSecond},
            {"script", now.script * millisecondsPerSecond}};
}

json setTimeouts(Session& session, const Call& call) {
    auto now = session.timeouts();
    now.implicit = timeout(call, "implicit", now.implicit);
    now.pageLoad = timeout(call, "pageLoad", now.pageLoad);
    now.script = timeout(call, "script", now.script);
    session.setTimeouts(now);
    return nullptr;
}

json settings(Session& session, const Call&) { return session.settings(); }

json changeSettings(Session& session, const Call& call) {
    session.change(call.has("settings") ? call.body.at("settings") : json());
    return session.settings();
}

json context(Session&, const Call&) { return native; }

json contexts(Session&, const Call&) { return json::array({native}); }

json describeContexts(Session&, const Call&) { return json::array({{{"id", native}}}); }

json setContext(Session&, const Call& call) {
    if (call.text("name") != native) {
        throw Refusal(Error::InvalidArgument, "the phone application has the context NATIVE_APP only");
    }
    return nullptr;
}

json execute(Session& session, const Call& call) {
    const std::string script = call.text("script");
    if (script.starts_with(mobile)) {
        const auto start = script.find_first_not_of(' ', mobile.size());
        Call command;
        command.body = argumentsOf(call);
        return perform(start == std::string::npos ? "" : script.substr(start), session, command);
    }
    if (script.starts_with(asksDisplayed)) {
        return askedByScript(session, call, isDisplayed);
    }
    if (script.starts_with(asksAttribute)) {
        return askedByScript(session, call, attribute);
    }
    if (script.find(edited) != std::string::npos) {
        return askedByScript(session, call, isFocused);
    }
    throw Refusal(Error::UnsupportedOperation,
                  "a phone application runs no scripts; what it can do has commands like \"mobile: tap\"");
}

json unsupported(Session&, const Call&) {
    throw Refusal(Error::UnsupportedOperation, "the phone cannot do this; docs/webdriver.md says what it can");
}

} // namespace phone::webdriver
