#include "tests/quorvan/CallTest.h"

#include "phone/flow/Engine.h"
#include "phone/foundation/Correct.h"
#include "platform/uikit/UILabel.h"
#include "platform/uikit/UITableView.h"
#include "tests/quorvan/Screens.h"

#include <map>

namespace {

std::string plist(const std::string& body) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<dict>\n" + body +
           "</dict>\n</plist>\n";
}

/// The texts of these cells.
std::vector<std::string> texts(const pugi::xpath_node_set& cells) {
    std::vector<std::string> found;
    for (const auto& cell : cells) {
        found.emplace_back(cell.node().select_node(".//UILabel").node().attribute("text").value());
    }
    return found;
}

} // namespace

void CallTest::start(const Start& with) {
    useDevice(with.device);
    useApplication(with.app);
    useLanguage(with.language);
    _german = with.language.starts_with("de");
    _started = true;
    boot();
}

void CallTest::startCall() {
    call("+49 30 1234567");
    touchAndWait(_german ? "Annehmen" : "Accept");
}

void CallTest::openSheet() {
    tap(160, 50);
    settle();
}

void CallTest::openNote() { touchAndWait(_german ? "Notiz" : "Note"); }

void CallTest::openEvent() { touchAndWait(_german ? "Ereignis" : "Event"); }

void CallTest::startNote() {
    startCall();
    openSheet();
    openNote();
}

void CallTest::openReminder() { touchAndWait(_german ? "Erinnerung" : "Reminder"); }

void CallTest::startReminder() {
    startCall();
    openSheet();
    openReminder();
}

void CallTest::touchAndWait(const pugi::xml_node& element) {
    tapOn(element);
    settle();
}

void CallTest::touchAndWait(const std::string& text) {
    tapOn(text);
    settle();
}

void CallTest::typeNote(const std::string& text) {
    touchAndWait(noteText());
    type(text);
}

void CallTest::typeTitle(const std::string& title) {
    touchAndWait(titleField());
    type(title);
}

void CallTest::done() { touchAndWait(_german ? "Fertig" : "Done"); }

void CallTest::cancel() { touchAndWait(_german ? "Abbrechen" : "Cancel"); }

void CallTest::goBack() { touchAndWait(_german ? "Zurück" : "Back"); }

void CallTest::pickDate(const std::string& localTime) { phone::Engine(boot()).pickDate(localTime); }

void CallTest::toggle(const std::string& label) {
    phone::Selector selector;
    selector.text = phone::TextPattern(label);
    phone::Engine(boot()).toggle(selector);
    settle();
}

void CallTest::withholdRequests() {
    const auto answers = [](id, SEL, SEL) { return false; };
    const Class store = objc_getClass("EKEventStore");
    const SEL selector = objc::selector<"respondsToSelector:">();
    class_replaceMethod(store, selector, reinterpret_cast<IMP>(+answers),
                        method_getTypeEncoding(class_getInstanceMethod(store, selector)));
}

void CallTest::useBoldLabels() {
    static id (*make)(id, SEL, CGRect) = nullptr;
    make = phone::correct<"initWithFrame:">(
        objc_getClass("UILabel"), +[](id self, SEL selector, CGRect frame) {
            const id label = make(self, selector, frame);
            objc::borrow<UILabel>(label).setFont(UIFont::boldSystem(17));
            return label;
        });
}

void CallTest::turnOn(const std::vector<int>& switches) {
    nlohmann::json values = nlohmann::json::object();
    for (int number : switches) {
        values["SwitchCell" + std::to_string(number)] = true;
    }
    writePreferences(values);
}

void CallTest::keepText(const std::string& titleElement, const std::string& headerElement) {
    write(resource("noteText.plist"),
          plist("<key>Title</key>" + titleElement + "\n<key>Header</key>" + headerElement + "\n"));
}

std::string CallTest::keptText() const {
    pugi::xml_document document;
    document.load_string(read(resource("noteText.plist")).c_str(), pugi::parse_default | pugi::parse_ws_pcdata_single);
    std::map<std::string, std::string> values;
    for (const auto& key : document.select_nodes("//key")) {
        values[key.node().text().get()] = key.node().next_sibling("string").text().get();
    }
    return values["Title"] + "|" + values["Header"];
}

pugi::xml_node CallTest::panel() {
    pugi::xml_node found;
    for (const auto& text : tree().select_nodes("//UINavigationBar/../UITextView")) {
        if (text.node().parent().attribute("visible").as_bool()) {
            found = text.node().parent();
        }
    }
    return found;
}

pugi::xml_node CallTest::chooser(const std::string& className) {
    const std::string panels = "//*[@controller='" + className + "']/*[UINavigationBar]";
    return tree().select_node(panels.c_str()).node();
}

void CallTest::expectPanel(const pugi::xml_node& panel, const std::string& frame) {
    EXPECT_EQ(attribute(panel, "frame"), frame);
    EXPECT_EQ(attribute(panel, "background"), "#ffffffff");
    EXPECT_EQ(attribute(panel, "alpha"), "1");
    EXPECT_EQ(attribute(panel, "cornerRadius"), "5");
    EXPECT_EQ(attribute(panel, "clips"), "true");
}

std::vector<std::string> CallTest::layout(const pugi::xml_node& view) {
    std::vector<std::string> lines;
    for (const auto& child : view.children()) {
        lines.push_back(std::string(child.name()) + " " + child.attribute("frame").value());
    }
    return lines;
}

std::vector<std::string> CallTest::rows(const pugi::xml_node& panel) { return texts(panel.select_nodes(".//*[@row]")); }

std::vector<std::string> CallTest::marked(const pugi::xml_node& panel) {
    return texts(panel.select_nodes(".//*[@accessory='checkmark']"));
}

std::string CallTest::shownValue(int row) {
    const std::string value = ".//*[@row='0," + std::to_string(row) + "']//UILabel[@align='right']";
    return attribute(panel().select_node(value.c_str()).node(), "text");
}

std::string CallTest::drawnValue(objc::UInt place, objc::Int row, objc::Int section) {
    std::string value;
    run([&] {
        const auto cell = screenAt(place).send<"tableView:cellForRowAtIndexPath:", UITableViewCell>(
            UITableView(), NSIndexPath::forRow(row, section));
        value = cell.accessoryView().subviews().at<UILabel>(0).text().UTF8String();
    });
    return value;
}

std::vector<std::string> CallTest::logged(const std::string& what, const std::string& field) {
    std::vector<std::string> values;
    for (const auto& entry : log(what)) {
        const auto& value = entry.at(field);
        values.push_back(value.is_string() ? value.get<std::string>() : value.dump());
    }
    return values;
}
