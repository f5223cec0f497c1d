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
}

Call::~Call() {
    _session.reset();
    std::error_code ignored;
    fs::remove_all(_root, ignored);
}

void Call::open(const std::string& activity) {
    tapAndWait({topOfTheCallScreenX, topOfTheCallScreenY});
    touch("sheet", activity);
    _screen = activity;
}

void Call::startTyping() {
    touch(_screen, "  Note");
    _screen += " with the keyboard"; // which has moved everything
}

void Call::cancel() { touch(_screen, "Cancel"); }

void Call::saveReminder() {
    open("Reminder");
    write("  Description");
    takeSaved(phone::EntityType::Reminder);
}

void Call::saveEvent() {
    open("Event");
    write("Description");
    takeSaved(phone::EntityType::Event);
}

void Call::write(const std::string& placeholder) {
    touch(_screen, placeholder);
    _session->type("milk");
    touch(_screen + " with the keyboard", "Done");
}

void Call::takeSaved(phone::EntityType type) {
    const phone::CalendarFolder folder(_root.string(), type);
    const auto takeOnly = [&](const auto& rows) {
        if (rows.size() != 1) {
            throw std::runtime_error("an opening saved " + std::to_string(rows.size()) + " items instead of one");
        }
        folder.remove(folder.calendars().front().id, rows.front().item.id);
    };
    if (type == phone::EntityType::Reminder) {
        takeOnly(folder.reminders());
    } else {
        takeOnly(folder.events());
    }
}

void Call::tap(Point at) {
    _session->touch(phone::Screen::Phase::Began, at.x, at.y);
    _session->touch(phone::Screen::Phase::Ended, at.x, at.y);
}

void Call::tapAndWait(Point at) {
    tap(at);
    _session->settle();
}

void Call::touch(const std::string& screen, const std::string& text) {
    const std::string place = screen + ": " + text;
    if (!_points.contains(place)) {
        _points[place] = find(text);
    }
    tapAndWait(_points[place]);
}

Call::Point Call::find(const std::string& text) {
    pugi::xml_document tree;
    tree.load_string(_session->tree(true).c_str());
    const std::string reads = "//*[(@text='" + text + "' or @placeholder='" + text + "') and @touch]";
    const auto found = tree.select_node(reads.c_str());
    Point point;
    std::istringstream numbers(found.node().attribute("touch").value());
    if (!(numbers >> point.x >> point.y)) {
        throw std::runtime_error("nothing to touch reads \"" + text + '"');
    }
    return point;
}
