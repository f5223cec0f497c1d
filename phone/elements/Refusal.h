/// Why a WebDriver command is not done: the protocol's error and a message made for a person.
#pragma once

#include <stdexcept>
#include <string>

namespace phone::webdriver {

/// The protocol's errors.
enum class Error {
    ElementClickIntercepted,
    ElementNotInteractable,
    ElementNotVisible,
    InvalidArgument,
    InvalidCoordinates,
    InvalidElementState,
    InvalidSelector,
    InvalidSessionId,
    NoSuchAlert,
    NoSuchElement,
    SessionNotCreated,
    StaleElementReference,
    Timeout,
    UnableToCaptureScreen,
    UnexpectedAlertOpen,
    UnknownCommand,
    UnknownError,
    UnknownMethod,
    UnsupportedOperation,
};

/// As it stands in an answer: "no such element".
const char* nameOf(Error error);
/// Of the answer, as the mobile drivers send it.
int httpStatusOf(Error error);

class Refusal : public std::runtime_error {
public:
    Refusal(Error code, const std::string& message) : std::runtime_error(message), _code(code) {}

    Error code() const { return _code; }
    const char* name() const { return nameOf(_code); }
    int httpStatus() const { return httpStatusOf(_code); }

private:
    Error _code;
};

} // namespace phone::webdriver
