// The phone application and what is around it: calls, the clock, what the person has decided.

#include "phone/device/Profile.h"
#include "phone/eventkit/CalendarFolder.h"
#include "phone/flow/LocalTime.h"
#include "phone/flow/PhoneOptions.h"
#include "phone/flow/Preferences.h"
#include "phone/webdriver/Commands.h"

namespace phone::webdriver {

namespace {

enum AppState { NotInstalled = 0, NotRunning = 1, InFront = 4 };

/// What the call names, or what the phone runs.
std::string bundleIn(Session& session, const Call& call) {
    const auto current = applicationNamed(session.phone().status().settings.application);
    return call.text("bundleId", call.text("appId", std::string(current->bundle)));
}

bool runs(Session& session, const std::string& bundle) {
    const auto status = session.phone().status();
    return status.life == LivePhone::Life::Running && applicationNamed(status.settings.application)->bundle == bundle;
}

void launchBundle(Session& session, const std::string& bundle) {
    const auto application = applicationOfBundle(bundle);
    if (!application) {
        throw Refusal(Error::InvalidArgument, "no application \"" + bundle + "\" is installed; there are " +
                                                  std::string(applicationNamed("newer")->bundle) + " and " +
                                                  std::string(applicationNamed("older")->bundle));
    }
    LaunchSettings settings = session.phone().status().settings;
    settings.application = application->name;
    session.phone().launch(settings);
}

/// The kinds of records that a service of this name holds.
EntityType entityOf(const std::string& service) {
    if (service == "reminders") {
        return EntityType::Reminder;
    }
    if (service == "calendar") {
        return EntityType::Event;
    }
    throw Refusal(Error::InvalidArgument, "no service \"" + service + "\"; there are reminders and calendar");
}

void decide(Session& session, const std::string& service, Access access) {
    CalendarFolder(session.phone().root(), entityOf(service)).setAccess(access);
}

} // namespace

json launchApp(Session& session, const Call& call) {
    const std::string bundle = bundleIn(session, call);
    if (!runs(session, bundle)) {
        launchBundle(session, bundle);
    }
    return nullptr;
}

json activateApp(Session& session, const Call& call) { return launchApp(session, call); }

json terminateApp(Session& session, const Call& call) {
    const bool ran = runs(session, bundleIn(session, call));
    if (ran) {
        session.phone().stop();
    }
    return ran;
}

json queryAppState(Session& session, const Call& call) {
    const std::string bundle = bundleIn(session, call);
    return runs(session, bundle) ? InFront : applicationOfBundle(bundle) ? NotRunning : NotInstalled;
}

json activeAppInfo(Session& session, const Call&) {
    const auto status = session.phone().status();
    if (status.life != LivePhone::Life::Running) {
        session.phone().state(); // says why
    }
    return {{"pid", status.process},
            {"name", applicationName},
            {"bundleId", applicationNamed(status.settings.application)->bundle},
            {"processArguments", {{"args", json::array()}, {"env", json::object()}}}};
}

json listApps(Session& session, const Call&) {
    const auto status = session.phone().status();
    return json::array({{{"bundleId", applicationNamed(status.settings.application)->bundle},
                         {"name", applicationName},
                         {"pid", status.process}}});
}

json gsmCall(Session& session, const Call& call) {
    const std::string action = call.text("action");
    const bool calls = action == "call";
    if (!calls && action != "accept" && action != "cancel" && action != "hold") {
        throw Refusal(Error::InvalidArgument, "\"action\" has to be call, accept, hold or cancel");
    }
    try {
        session.phone().phoneCall(calls ? call.text("phoneNumber") : call.text("phoneNumber", ""), action);
    } catch (const ApplicationDied&) {
        throw;
    } catch (const ScreenError& refused) {
        throw Refusal(Error::InvalidArgument, refused.what());
    }
    session.settle();
    return nullptr;
}

json setClock(Session& session, const Call& call) {
    if (!call.has("localTime")) {
        session.phone().chooseClock(std::nullopt);
        return nullptr;
    }
    const std::string zone = session.phone().status().settings.zone;
    const auto moment = momentOf(call.text("localTime"), zone);
    if (!moment) {
        throw Refusal(Error::InvalidArgument,
                      "clocks in " + zone + " never show \"" + call.text("localTime") +
                          "\"; write it like 2026-03-05T14:37:12, or leave it out for the real time");
    }
    session.phone().chooseClock(moment);
    return nullptr;
}

json setPermission(Session& session, const Call& call) {
    if (!call.has("access") || !call.body.at("access").is_object()) {
        throw Refusal(Error::InvalidArgument, "\"access\" is an object like {\"reminders\": \"yes\"}");
    }
    const json& all = call.body.at("access");
    for (const auto& [service, given] : all.items()) {
        entityOf(service);
        if (given != "yes" && given != "no" && given != "unset") {
            throw Refusal(Error::InvalidArgument, "access to " + service + " has to be yes, no or unset");
        }
    }
    for (const auto& [service, given] : all.items()) {
        decide(session, service, given == "yes" ? Access::Allow : given == "no" ? Access::Deny : Access::Ask);
    }
    return nullptr;
}

json resetPermission(Session& session, const Call& call) {
    decide(session, call.text("service"), Access::Ask);
    return nullptr;
}

json setPreferences(Session& session, const Call& call) {
    if (!call.has("values") || !call.body.at("values").is_object()) {
        throw Refusal(Error::InvalidArgument, "\"values\" is an object like {\"SwitchCell1\": true}");
    }
    commands::SetPreferences set;
    for (const auto& [key, value] : call.body.at("values").items()) {
        PreferenceValue given;
        if (value.is_boolean()) {
            given = value.get<bool>();
        } else if (value.is_number_integer()) {
            given = value.get<long>();
        } else if (value.is_number()) {
            given = value.get<double>();
        } else if (value.is_string()) {
            given = value.get<std::string>();
        } else if (!value.is_null()) {
            throw Refusal(Error::InvalidArgument, "\"" + key + "\" has to be true, false, a number, a text or null");
        }
        set.values.emplace_back(key, given);
    }
    writePreferences(session.phone().root(), set);
    return nullptr;
}

json unlock(Session&, const Call&) { return nullptr; } // it is never locked

json isLocked(Session&, const Call&) { return false; }

} // namespace phone::webdriver
