// What the screen shows, how it is held, and what is typed on it.

#include "phone/device/Orientation.h"
#include "phone/device/Profile.h"
#include "phone/device/Region.h"
#include "phone/elements/Source.h"
#include "phone/live/MemoryFile.h"
#include "phone/webdriver/Base64.h"
#include "phone/webdriver/Commands.h"

#include <algorithm>
#include <array>
#include <sstream>

namespace phone::webdriver {

namespace {

struct HeldAs {
    std::string_view phone; // as the phone names it
    const char* protocol;   // as clients do
    int z;                  // as a rotation, in degrees
};

constexpr std::array<HeldAs, 4> orientations = {
    {{orientationNames[0], "PORTRAIT", 0},
     {orientationNames[1], "UIA_DEVICE_ORIENTATION_LANDSCAPERIGHT", 90},
     {orientationNames[2], "UIA_DEVICE_ORIENTATION_PORTRAIT_UPSIDEDOWN", 180},
     {orientationNames[3], "LANDSCAPE", 270}}};

const HeldAs& held(Session& session) {
    const std::string name = session.phone().state().at("orientation");
    return *std::find_if(orientations.begin(), orientations.end(),
                         [&](const HeldAs& one) { return one.phone == name; });
}

template <class Matches>
json turn(Session& session, const Matches& matches, const char* otherwise) {
    const auto found = std::find_if(orientations.begin(), orientations.end(), matches);
    if (found == orientations.end()) {
        throw Refusal(Error::InvalidArgument, otherwise);
    }
    session.phone().setOrientation(std::string(found->phone));
    session.settle();
    return nullptr;
}

std::vector<std::string> parts(const std::string& list) {
    std::vector<std::string> all;
    std::istringstream stream(list);
    for (std::string part; std::getline(stream, part, ',');) {
        all.push_back(part);
    }
    return all;
}

/// From the query of a route, or from the arguments of a `mobile:` command.
std::string option(const Call& call, const char* inQuery, const char* inBody) {
    const std::string queried = call.queried(inQuery);
    return queried.empty() ? call.text(inBody, "") : queried;
}

} // namespace

json source(Session& session, const Call& call) {
    const std::string format = option(call, "format", "format");
    const AccessibilityTree tree = session.tree();
    if (format.empty() || format == "xml") {
        return xmlSource(tree.application(), parts(option(call, "excluded_attributes", "excludedAttributes")));
    }
    if (format == "json") {
        return jsonSource(tree.application());
    }
    if (format == "description") {
        return descriptionSource(tree.application());
    }
    throw Refusal(Error::InvalidArgument, "\"format\" has to be xml, json or description");
}

json screenshot(Session& session, const Call&) {
    const MemoryFile picture;
    session.phone().screenshot(picture.path());
    return base64(picture.contents());
}

json elementScreenshot(Session& session, const Call& call) {
    const MemoryFile picture;
    const AccessibilityTree tree = session.tree();
    const Rect rect = session.element(tree, call.parameter("element")).rect();
    const Rect screen = tree.application().rect();
    const long left = std::max(0L, rect.x);
    const long top = std::max(0L, rect.y);
    const long right = std::min(screen.width, rect.x + rect.width);
    const long bottom = std::min(screen.height, rect.y + rect.height);
    if (left >= right || top >= bottom) {
        throw Refusal(Error::UnableToCaptureScreen, "no part of the element is on the screen");
    }
    session.phone().screenshot(picture.path(), static_cast<double>(left), static_cast<double>(top),
                               static_cast<double>(right - left), static_cast<double>(bottom - top));
    return base64(picture.contents());
}

json windowRect(Session& session, const Call&) {
    const Rect screen = session.tree().application().rect();
    return {{"x", screen.x}, {"y", screen.y}, {"width", screen.width}, {"height", screen.height}};
}

json windowSize(Session& session, const Call&) {
    const Rect screen = session.tree().application().rect();
    return {{"width", screen.width}, {"height", screen.height}};
}

json screenInfo(Session& session, const Call& call) {
    const auto device = deviceNamed(session.phone().status().settings.device);
    return {{"screenSize", windowSize(session, call)},
            {"statusBarSize", {{"width", windowSize(session, call).at("width")}, {"height", 20}}},
            {"scale", device->scale}};
}

json deviceInfo(Session& session, const Call&) {
    const auto settings = session.phone().status().settings;
    const auto device = deviceNamed(settings.device);
    return {{"name", device->model},
            {"model", device->model},
            {"userInterfaceIdiom", device->idiom},
            {"currentLocale", localeIdentifier(settings.language, settings.region)},
            {"timeZone", settings.zone},
            {"isSimulator", true}};
}

json orientation(Session& session, const Call&) { return held(session).protocol; }

json setOrientation(Session& session, const Call& call) {
    const std::string wanted = call.text("orientation");
    return turn(
        session, [&](const HeldAs& one) { return one.protocol == wanted; },
        "\"orientation\" has to be PORTRAIT, LANDSCAPE, UIA_DEVICE_ORIENTATION_LANDSCAPERIGHT or "
        "UIA_DEVICE_ORIENTATION_PORTRAIT_UPSIDEDOWN");
}

json rotation(Session& session, const Call&) { return {{"x", 0}, {"y", 0}, {"z", held(session).z}}; }

json setRotation(Session& session, const Call& call) {
    const double z = call.number("z");
    const bool isFlat = call.number("x", 0) == 0 && call.number("y", 0) == 0;
    return turn(
        session, [&](const HeldAs& one) { return isFlat && one.z == z; },
        "a rotation is x 0, y 0 and z 0, 90, 180 or 270");
}

json hideKeyboard(Session& session, const Call&) {
    try {
        session.phone().hideKeyboard();
    } catch (const ApplicationDied&) {
        throw;
    } catch (const ScreenError& refused) {
        throw Refusal(Error::InvalidElementState, refused.what());
    }
    session.settle();
    return nullptr;
}

json isKeyboardShown(Session& session, const Call&) { return session.phone().state().at("keyboard"); }

json setPasteboard(Session& session, const Call& call) {
    const auto content = fromBase64(call.text("content"));
    if (!content || call.text("contentType", "plaintext") != "plaintext") {
        throw Refusal(Error::InvalidArgument, "\"content\" has to be a plain text in base64");
    }
    session.phone().setClipboard(*content);
    return nullptr;
}

json getPasteboard(Session& session, const Call&) { return base64(session.phone().clipboard()); }

} // namespace phone::webdriver
