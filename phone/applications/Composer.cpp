#include "phone/applications/Composer.h"

#include "phone/applications/Words.h"
#include "phone/device/Log.h"
#include "phone/device/RootFolder.h"
#include "phone/foundation/Text.h"
#include "phone/uikit/Color.h"
#include "phone/uikit/SystemWords.h"
#include "platform/uikit/UINavigationController.h"

#include <filesystem>
#include <fstream>

namespace phone {

namespace {

namespace fs = std::filesystem;

constexpr double top = 64; // below the bars, in points
constexpr double lineHeight = 44;
constexpr double margin = 15;
constexpr double nameWidth = 76;
constexpr double hairline = 0.5;
constexpr double textSize = 17;
constexpr Color grey{0.56, 0.56, 0.58, 1};

constexpr objc::Int plainStyle = 0;
constexpr objc::Int doneStyle = 2;

/// Where what was sent waits; a folder of the device.
const char* folderOf(Composer::Service service) {
    return service == Composer::Service::Message ? "/var/mobile/Library/SMS/Outgoing"
                                                 : "/var/mobile/Library/Mail/Outgoing";
}

/// The first name that is free: 1.txt, 2.txt, …
std::string freePath(const std::string& folder) {
    for (int number = 1;; ++number) {
        std::string path = folder + "/" + std::to_string(number) + ".txt";
        if (!fs::exists(RootFolder::hostPath(path))) {
            return path;
        }
    }
}

} // namespace

void Composer::define(objc::ClassTable<Composer>& c) {
    c.overrides<"viewDidLoad", &Composer::viewDidLoad>()
        .action<"_send:", &Composer::send>()
        .action<"_cancel:", &Composer::cancel>();
}

UIViewController Composer::with(Service service, const NSString& text, const UIActivity& activity) {
    const auto composer = objc::Ref<Composer>::make();
    composer->_service = service;
    composer->_text = text;
    composer->_activity = activity;
    return UINavigationController::withRoot(objc::as<UIViewController>(composer));
}

void Composer::viewDidLoad() {
    super<"viewDidLoad">();
    setTitle(word(_service == Service::Message ? Word::Message : Word::Mail));
    view().setBackgroundColor(UIColor::white());
    navigationItem().setLeftBarButtonItem(
        UIBarButtonItem::withTitle(cancelWord(), plainStyle, *this, objc::selector<"_cancel:">()));
    navigationItem().setRightBarButtonItem(
        UIBarButtonItem::withTitle(word(Word::Send), doneStyle, *this, objc::selector<"_send:">()));

    double y = top;
    _to = addField(word(Word::To), y);
    y += lineHeight;
    if (_service == Service::Mail) {
        _subject = addField(word(Word::Subject), y);
        y += lineHeight;
    }
    const CGSize size = view().bounds().size;
    _body = UITextView::make();
    _body.setFrame({margin / 2, y, size.width - margin, size.height - y});
    _body.setAutoresizingMask(UIViewAutoresizing(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight));
    _body.setFont(UIFont::system(textSize));
    _body.setText(_text);
    view().addSubview(_body);
}

UITextField Composer::addField(const NSString& name, double y) {
    const double width = view().bounds().size.width;
    const auto label = UILabel::withFrame({margin, y, nameWidth, lineHeight});
    label.setText(name);
    label.setTextColor(uiColor(grey));
    view().addSubview(label);
    const auto field = UITextField::withFrame({margin + nameWidth, y, width - 2 * margin - nameWidth, lineHeight});
    field.setFont(UIFont::system(textSize));
    field.setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    view().addSubview(field);
    const auto line = UIView::withFrame({margin, y + lineHeight - hairline, width - margin, hairline});
    line.setBackgroundColor(UIColor::rgba(0, 0, 0, 0.2));
    line.setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    view().addSubview(line);
    return field;
}

bool Composer::write() const {
    const std::string folder = folderOf(_service);
    std::error_code failed;
    fs::create_directories(RootFolder::hostPath(folder), failed);
    const std::string path = freePath(folder);
    std::ofstream file(RootFolder::hostPath(path));
    file << "To: " << text(_to.text()) << '\n';
    if (_subject) {
        file << "Subject: " << text(_subject.text()) << '\n';
    }
    file << '\n' << text(_body.text()) << '\n';
    file.close();
    Log::shared().add("file", {{"action", "write"}, {"path", path}, {"ok", static_cast<bool>(file)}});
    return static_cast<bool>(file);
}

void Composer::send(const objc::Object&) { _activity.activityDidFinish(write()); }

void Composer::cancel(const objc::Object&) { _activity.activityDidFinish(false); }

} // namespace phone
