#include "phone/device/Screen.h"

namespace phone {

void Screen::touch(Phase phase, double x, double y) {
    static constexpr const char* names[] = {"began", "moved", "ended", "cancelled"};
    request({{"do", "touch"}, {"phase", names[static_cast<int>(phase)]}, {"x", x}, {"y", y}});
}
void Screen::type(const std::string& text) { request({{"do", "type"}, {"text", text}}); }
void Screen::key(const std::string& name) { request({{"do", "key"}, {"key", name}}); }
void Screen::advance(double seconds) { request({{"do", "advance"}, {"seconds", seconds}}); }
void Screen::settle() { request({{"do", "settle"}}); }
std::string Screen::tree(bool forFinding) {
    return request({{"do", "tree"}, {"finding", forFinding}}).at("tree").get<std::string>();
}
std::string Screen::treeAt(double x, double y) {
    return request({{"do", "tree"}, {"finding", true}, {"at", {x, y}}}).at("tree").get<std::string>();
}
std::string Screen::log(std::size_t from) {
    return request({{"do", "log"}, {"from", from}}).at("log").get<std::string>();
}
void Screen::screenshot(const std::string& path) { request({{"do", "screenshot"}, {"path", path}}); }
void Screen::screenshot(const std::string& path, double x, double y, double width, double height) {
    request({{"do", "screenshot"}, {"path", path}, {"rect", {x, y, width, height}}});
}
void Screen::phoneCall(const std::string& number, const std::string& action) {
    request({{"do", "phoneCall"}, {"number", number}, {"action", action}});
}
void Screen::setClock(double seconds) { request({{"do", "setClock"}, {"seconds", seconds}}); }
void Screen::runClock(double seconds) { request({{"do", "setClock"}, {"seconds", seconds}, {"runs", true}}); }
void Screen::setStoreAnswers(const std::string& when) { request({{"do", "setStoreAnswers"}, {"when", when}}); }
void Screen::warnOfMemory() { request({{"do", "memoryWarning"}}); }
void Screen::setOrientation(const std::string& name) { request({{"do", "setOrientation"}, {"orientation", name}}); }
void Screen::setClipboard(const std::string& text) { request({{"do", "setClipboard"}, {"text", text}}); }
std::string Screen::clipboard() { return request({{"do", "clipboard"}}).at("text").get<std::string>(); }
void Screen::pasteText() { request({{"do", "pasteText"}}); }
void Screen::hideKeyboard() { request({{"do", "hideKeyboard"}}); }
nlohmann::json Screen::state() { return request({{"do", "state"}}); }

} // namespace phone
