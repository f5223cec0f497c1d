/// What the protocol's commands do. Each gets what the client sent and gives the answer's value; all throw Refusal.
#pragma once

#include "phone/webdriver/Call.h"
#include "phone/webdriver/Session.h"

namespace phone::webdriver {

using nlohmann::json;

/// The key by which the protocol marks a reference to an element.
inline constexpr const char* elementKey = "element-6066-11e4-a52e-4f735466cecf";

// Elements.
json findElement(Session& session, const Call& call);
json findElements(Session& session, const Call& call);
json activeElement(Session& session, const Call& call);
json text(Session& session, const Call& call);
json name(Session& session, const Call& call);
json rect(Session& session, const Call& call);
json attribute(Session& session, const Call& call);
json isDisplayed(Session& session, const Call& call);
json isEnabled(Session& session, const Call& call);
json isSelected(Session& session, const Call& call);
json isFocused(Session& session, const Call& call);
json isAccessible(Session& session, const Call& call);

// Hands.
json click(Session& session, const Call& call);
json clear(Session& session, const Call& call);
json sendValue(Session& session, const Call& call);
json sendKeys(Session& session, const Call& call);
json performActions(Session& session, const Call& call);
json releaseActions(Session& session, const Call& call);
json tap(Session& session, const Call& call);
json doubleTap(Session& session, const Call& call);
json touchAndHold(Session& session, const Call& call);
json swipe(Session& session, const Call& call);
json scroll(Session& session, const Call& call);
json dragFromToForDuration(Session& session, const Call& call);
json selectPickerWheelValue(Session& session, const Call& call);

// The screen.
json source(Session& session, const Call& call);
json screenshot(Session& session, const Call& call);
json elementScreenshot(Session& session, const Call& call);
json windowRect(Session& session, const Call& call);
json windowSize(Session& session, const Call& call);
json screenInfo(Session& session, const Call& call);
json deviceInfo(Session& session, const Call& call);
json orientation(Session& session, const Call& call);
json setOrientation(Session& session, const Call& call);
json rotation(Session& session, const Call& call);
json setRotation(Session& session, const Call& call);

// Questions of the system.
json alertText(Session& session, const Call& call);
json alertButtons(Session& session, const Call& call);
json acceptAlert(Session& session, const Call& call);
json dismissAlert(Session& session, const Call& call);
json alert(Session& session, const Call& call);
/// Whether there was a question, which has now been answered.
bool answerAlert(Session& session, AlertAnswer answer);

// The keyboard and the pasteboard.
json hideKeyboard(Session& session, const Call& call);
json isKeyboardShown(Session& session, const Call& call);
json setPasteboard(Session& session, const Call& call);
json getPasteboard(Session& session, const Call& call);

// The application.
json launchApp(Session& session, const Call& call);
json activateApp(Session& session, const Call& call);
json terminateApp(Session& session, const Call& call);
json queryAppState(Session& session, const Call& call);
json activeAppInfo(Session& session, const Call& call);
json listApps(Session& session, const Call& call);
json gsmCall(Session& session, const Call& call);
json setClock(Session& session, const Call& call);
json setPermission(Session& session, const Call& call);
json resetPermission(Session& session, const Call& call);
json setPreferences(Session& session, const Call& call);
json unlock(Session& session, const Call& call);
json isLocked(Session& session, const Call& call);

// The session.
json timeouts(Session& session, const Call& call);
json setTimeouts(Session& session, const Call& call);
json settings(Session& session, const Call& call);
json changeSettings(Session& session, const Call& call);
json context(Session& session, const Call& call);
json contexts(Session& session, const Call& call);
json describeContexts(Session& session, const Call& call);
json setContext(Session& session, const Call& call);
json execute(Session& session, const Call& call);

/// What a phone cannot do, told by the route that would.
json unsupported(Session& session, const Call& call);

} // namespace phone::webdriver
