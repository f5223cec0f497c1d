#include "tests/phone/PhoneTest.h"

#include "phone/notes/NotesFramework.h"
#include "platform/uikit/UIScreen.h"
#include "tests/InstalledLibrary.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <sstream>
#include <stdexcept>

namespace {

namespace fs = std::filesystem;

constexpr const char* preferencesPath = "/var/mobile/Library/Preferences/Mirelda.Quorvan.plist";
constexpr double start = 1772721432; // 5 March 2026 14:37:12 UTC

fs::path temporaryFolder() {
    std::string name = (fs::temp_directory_path() / "phone-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("cannot make a temporary folder");
    }
    return name;
}

std::string escaped(const std::string& text) {
    std::ostringstream out;
    pugi::xml_document document;
    document.append_child(pugi::node_pcdata).set_value(text.c_str());
    document.save(out, "", pugi::format_raw | pugi::format_no_declaration);
    return out.str();
}

std::string propertyListValue(const nlohmann::json& value) {
    if (value.is_boolean()) {
        return value.get<bool>() ? "<true/>" : "<false/>";
    }
    if (value.is_number_integer()) {
        return "<integer>" + value.dump() + "</integer>";
    }
    if (value.is_number()) {
        return "<real>" + value.dump() + "</real>";
    }
    if (value.is_array()) {
        std::string all = "<array>";
        for (const auto& one : value) {
            all += propertyListValue(one);
        }
        return all + "</array>";
    }
    return "<string>" + escaped(value.get<std::string>()) + "</string>";
}

/// Elements for which the question holds, in tree order.
std::vector<pugi::xml_node> elements(const pugi::xml_document& tree,
                                     const std::function<bool(const pugi::xml_node&)>& holds) {
    struct Walker : pugi::xml_tree_walker {
        const std::function<bool(const pugi::xml_node&)>* holds = nullptr;
        std::vector<pugi::xml_node> found;
        bool for_each(pugi::xml_node& node) override {
            if ((*holds)(node)) {
                found.push_back(node);
            }
            return true;
        }
    } walker;
    walker.holds = &holds;
    const_cast<pugi::xml_document&>(tree).traverse(walker); // only reads
    return walker.found;
}

/// Of the messages to UIKit off the main thread: a compose screen's texts are read when the store answers.
bool isByDesign(const nlohmann::ordered_json& entry) {
    return entry.at("selector") == "text" && (entry.at("class") == "UITextView" || entry.at("class") == "UITextField");
}

} // namespace

PhoneTest::PhoneTest() : _accounts{{"LOCAL_NOTES_ACCOUNT", true}, {"Mail", false}}, _root(temporaryFolder()) {
    _settings.device = *phone::deviceNamed("iphone5");
    _settings.application = *phone::applicationNamed("newer");
    _settings.root = _root.string();
    _settings.now = start;
    fs::copy(STAGE_DIRECTORY, _root, fs::copy_options::recursive);
    phone::NotesFramework::create(_root);
    phone::installChosenLibrary(_root);
}

PhoneTest::~PhoneTest() {
    _windows.clear();
    _pool.reset();
    _session.reset();
    std::error_code ignored;
    fs::remove_all(_root, ignored);
}

void PhoneTest::TearDown() {
    for (const auto& entry : log()) {
        const std::string what = entry.at("what");
        const bool isFault =
            what == "unanswered" || what == "exception" || (what == "offMainThread" && !isByDesign(entry));
        if (isFault && !isExpected(what)) {
            ADD_FAILURE() << "logged: " << entry.dump();
        }
    }
}

bool PhoneTest::isExpected(const std::string& what) const {
    return std::find(_expected.begin(), _expected.end(), what) != _expected.end();
}

void PhoneTest::useDevice(const std::string& name) {
    _settings.device = phone::deviceNamed(name).value();
    _settings.application = phone::applicationNamed(_settings.device.application).value();
}

void PhoneTest::useApplication(const std::string& name) {
    _settings.application = phone::applicationNamed(name).value();
}

void PhoneTest::useReminders(phone::Access access, std::vector<phone::CalendarStore> lists) {
    _reminderAccess = access;
    _lists = std::move(lists);
}

void PhoneTest::useEvents(phone::Access access, std::vector<phone::CalendarStore> calendars) {
    _eventAccess = access;
    _calendars = std::move(calendars);
}

void PhoneTest::writePreferences(const nlohmann::json& values) {
    std::string list = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<dict>\n";
    for (const auto& [key, value] : values.items()) {
        list += "<key>" + escaped(key) + "</key>" + propertyListValue(value) + "\n";
    }
    write(preferencesPath, list + "</dict>\n</plist>\n");
}

phone::Session& PhoneTest::boot() {
    if (!_session) {
        const auto notes = hostPath(phone::NotesDatabase::devicePath);
        if (!fs::exists(notes)) {
            phone::NotesDatabase::create(notes.string(), _accounts);
        }
        _settings.device.answersIdiom = !_withholdsIdiom;
        const auto make = [&](phone::EntityType type, phone::Access access, const auto& calendars) {
            if (calendarFolder(type).calendars().empty()) {
                calendarFolder(type).create(access, calendars);
            }
        };
        make(phone::EntityType::Reminder, _reminderAccess, _lists);
        make(phone::EntityType::Event, _eventAccess, _calendars);
        _session = std::make_unique<phone::Session>(_settings, _start);
        _pool = std::make_unique<objc::Pool>();
    }
    return *_session;
}

void PhoneTest::tap(double x, double y) {
    touch(phone::Screen::Phase::Began, x, y);
    touch(phone::Screen::Phase::Ended, x, y);
}

void PhoneTest::tapOn(const std::string& text) {
    const pugi::xml_node element = find(text);
    ASSERT_TRUE(element) << "nothing reads \"" << text << '"';
    tapOn(element);
}

void PhoneTest::tapOn(const pugi::xml_node& element) {
    std::istringstream point(element.attribute("touch").value());
    double x = 0;
    double y = 0;
    ASSERT_TRUE(point >> x >> y) << "no finger reaches " << element.name();
    tap(x, y);
}

void PhoneTest::call(const std::string& number) {
    boot().phoneCall(number, "call");
    settle();
}

UIWindow PhoneTest::window() {
    boot();
    const auto made = UIWindow::withFrame(UIScreen::main().bounds());
    made.makeKeyAndVisible();
    _windows.push_back(made);
    return made;
}

const pugi::xml_document& PhoneTest::tree() {
    const std::string text = boot().tree(true);
    _tree.load_string(text.c_str());
    return _tree;
}

pugi::xml_node PhoneTest::find(const std::string& text) {
    const auto found = elements(tree(), [&](const pugi::xml_node& node) {
        return (node.attribute("text") && text == node.attribute("text").value()) ||
               (node.attribute("placeholder") && text == node.attribute("placeholder").value());
    });
    const auto reachable =
        std::find_if(found.begin(), found.end(), [](const auto& node) { return !node.attribute("touch").empty(); });
    return reachable != found.end() ? *reachable : found.empty() ? pugi::xml_node() : found.front();
}

pugi::xml_node PhoneTest::findClass(const std::string& name, int index) {
    const auto found = elements(tree(), [&](const pugi::xml_node& node) { return name == node.name(); });
    return index < static_cast<int>(found.size()) ? found[static_cast<std::size_t>(index)] : pugi::xml_node();
}

int PhoneTest::countClass(const std::string& name) {
    return static_cast<int>(elements(tree(), [&](const pugi::xml_node& node) { return name == node.name(); }).size());
}

bool PhoneTest::isVisible(const std::string& text) {
    const auto seen = elements(tree(), [&](const pugi::xml_node& node) {
        return (text == node.attribute("text").value() || text == node.attribute("placeholder").value()) &&
               node.attribute("visible").as_bool();
    });
    return !seen.empty();
}

std::vector<nlohmann::ordered_json> PhoneTest::log(const std::string& what) {
    auto entries = log();
    std::erase_if(entries, [&](const auto& entry) { return entry.at("what") != what; });
    return entries;
}

std::filesystem::path PhoneTest::hostPath(const std::string& devicePath) const { return _root.string() + devicePath; }

std::string PhoneTest::read(const std::string& devicePath) const {
    std::ifstream file(hostPath(devicePath), std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

void PhoneTest::write(const std::string& devicePath, const std::string& content) {
    const auto path = hostPath(devicePath);
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << content;
}

std::vector<phone::NoteRow> PhoneTest::notes() const {
    return phone::NotesDatabase(hostPath(phone::NotesDatabase::devicePath).string()).notes();
}

std::vector<phone::ReminderRow> PhoneTest::reminders() const {
    return calendarFolder(phone::EntityType::Reminder).reminders();
}

std::vector<phone::EventRow> PhoneTest::events() const { return calendarFolder(phone::EntityType::Event).events(); }
