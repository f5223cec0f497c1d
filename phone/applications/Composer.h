/// A message being written: to whom, about what, and the text.
#pragma once

#include "platform/uikit/UIActivity.h"
#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UITextField.h"
#include "platform/uikit/UITextView.h"

namespace phone {

/// Cancel and Send both end the activity; Send writes what was written into the outgoing folder of the
/// service, one text file a message.
class Composer : public objc::Defines<Composer, UIViewController> {
public:
    static constexpr auto objc_name = "MessageComposer";

    enum class Service { Message, Mail };

    static void define(objc::ClassTable<Composer>& c);
    /// A composer with the text in it, in a navigation controller.
    static UIViewController with(Service service, const NSString& text, const UIActivity& activity);

private:
    void viewDidLoad();
    UITextField addField(const NSString& name, double y);
    void send(const objc::Object& sender);
    void cancel(const objc::Object& sender);
    bool write() const;

    Service _service = Service::Message;
    NSString _text;
    UIActivity _activity;
    UITextField _to;
    UITextField _subject; // nil for a message, which has none
    UITextView _body;
};

} // namespace phone
