#include "phone/elements/Refusal.h"

#include <array>

namespace phone::webdriver {

namespace {

struct Entry {
    const char* name;
    int httpStatus;
};

/// In the order of `Error`.
constexpr std::array<Entry, 19> entries = {{
    {"element click intercepted", 400},
    {"element not interactable", 400},
    {"element not visible", 400},
    {"invalid argument", 400},
    {"invalid coordinates", 400},
    {"invalid element state", 400},
    {"invalid selector", 400},
    {"invalid session id", 404},
    {"no such alert", 404},
    {"no such element", 404},
    {"session not created", 500},
    {"stale element reference", 404},
    {"timeout", 408},
    {"unable to capture screen", 500},
    {"unexpected alert open", 500},
    {"unknown command", 404},
    {"unknown error", 500},
    {"unknown method", 405},
    {"unsupported operation", 500},
}};
static_assert(entries.size() == static_cast<std::size_t>(Error::UnsupportedOperation) + 1);

const Entry& entryOf(Error error) { return entries.at(static_cast<std::size_t>(error)); }

} // namespace

const char* nameOf(Error error) { return entryOf(error).name; }

int httpStatusOf(Error error) { return entryOf(error).httpStatus; }

} // namespace phone::webdriver
