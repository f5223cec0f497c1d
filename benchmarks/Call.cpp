#include "benchmarks/Call.h"

#include "phone/eventkit/CalendarFolder.h"
#include "phone/notes/NotesDatabase.h"

#include <pugixml.hpp>

#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <stdexcept>

namespace {

namespace fs = std::filesystem;

constexpr double topOfTheCallScreenX = 160;
constexpr double topOfTheCallScreenY = 50;

fs::path freshFolder() {
    std::string name = P_tmpdir "/phone-benchmark-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("cannot make a temporary folder");
    }
    return name;
}

} // namespace

Call::Call(const std::string& application) : _root(freshFolder()) {
    fs::copy(STAGE_DIRECTORY, _root, fs::copy_options::recursive);
    phone::NotesDatabase::create(_root.string() + phone::NotesDatabase::devicePath, {{"LOCAL_NOTES_ACCOUNT", true}});
    for (const auto type : {phone::EntityType::Reminder, phone::EntityType::Event}) {
        phone::CalendarFolder(_root.string(), type)
            .create(phone::Access::Allow, {{.title = "First", .isDefault = true}, {.title = "Second"}});
    }
    phone::Settings settings;
    settings.device = phone::deviceNamed("iphone5").value();
    settings.application = phone::applicationNamed(application).value();
    settings.root = _root.string();
    _session = std::make_unique<phone::Session>(settings);

    _session->phoneCall("+49 30 1234567", "call");
    _session->settle();
    _session->phoneCall("", "accept");
    _session->settle();
    tapAndWait({topOfTheCallScreenX, topOfTheCallScreenY});
    _noteTile = find("Note");
    tapAndWait(_noteTile);
    _cancel = find("Cancel");
    _text = find("  Note");
    cancel();
}

Call::~Call() {
    _session.reset();
    std::error_code ignored;
    fs::remove_all(_root, ignored);
}

void Call::openNote() {
    tapAndWait({topOfTheCallScreenX, topOfTheCallScreenY});
    tapAndWait(_noteTile);
}

void Call::startTyping() {
    tapAndWait(_text);
    _typing = true;
}

void Call::cancel() {
    tapAndWait(_typing ? find("Cancel") : _cancel); // the keyboard has moved it
    _typing = false;
}

void Call::tap(Point at) {
    _session->touch(phone::Screen::Phase::Began, at.x, at.y);
    _session->touch(phone::Screen::Phase::Ended, at.x, at.y);
}

void Call::tapAndWait(Point at) {
    tap(at);
    _session->settle();
}

Call::Point Call::find(const std::string& text) {
    pugi::xml_document tree;
    tree.load_string(_session->tree(true).c_str());
    const auto found = tree.select_node(("//*[@text='" + text + "' and @touch]").c_str());
    Point point;
    std::istringstream numbers(found.node().attribute("touch").value());
    if (!(numbers >> point.x >> point.y)) {
        throw std::runtime_error("nothing to touch reads \"" + text + '"');
    }
    return point;
}
