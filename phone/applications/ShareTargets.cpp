#include "phone/applications/ShareTargets.h"

#include "phone/applications/Composer.h"
#include "phone/applications/ShareIcons.h"
#include "phone/applications/TextActivity.h"
#include "phone/applications/Words.h"
#include "phone/foundation/Text.h"
#include "phone/uikit/Alert.h"
#include "phone/uikit/SystemActivity.h"
#include "platform/uikit/UIPasteboard.h"

namespace phone {

namespace {

NSString constant(id text) { return objc::borrow<NSString>(text); }

/// Draws with the painter of the view that is being drawn.
template <void (*Draw)(Painter&, CGRect)>
void drawNow(CGRect rect) {
    if (Painter* painter = Painter::current()) {
        Draw(*painter, rect);
    }
}

class MessageActivity : public TextActivity<MessageActivity, ActivityCategory::Share> {
public:
    static constexpr auto objc_name = "UIMessageActivity";
    static void defineDeed(objc::ClassTable<MessageActivity>& c) {
        c.overrides<"activityViewController", &MessageActivity::activityViewController>();
    }
    NSString title() const { return word(Word::Message); }
    NSString type() const { return constant(UIActivityTypeMessage); }
    void drawIcon(CGRect rect) const { drawNow<drawMessageIcon>(rect); }
    UIViewController activityViewController() { return Composer::with(Composer::Service::Message, text(), *this); }
};

class MailActivity : public TextActivity<MailActivity, ActivityCategory::Share> {
public:
    static constexpr auto objc_name = "UIMailActivity";
    static void defineDeed(objc::ClassTable<MailActivity>& c) {
        c.overrides<"activityViewController", &MailActivity::activityViewController>();
    }
    NSString title() const { return word(Word::Mail); }
    NSString type() const { return constant(UIActivityTypeMail); }
    void drawIcon(CGRect rect) const { drawNow<drawMailIcon>(rect); }
    UIViewController activityViewController() { return Composer::with(Composer::Service::Mail, text(), *this); }
};

class CopyActivity : public TextActivity<CopyActivity, ActivityCategory::Action> {
public:
    static constexpr auto objc_name = "UICopyToPasteboardActivity";
    static void defineDeed(objc::ClassTable<CopyActivity>& c) {
        c.overrides<"performActivity", &CopyActivity::performActivity>();
    }
    NSString title() const { return word(Word::Copy); }
    NSString type() const { return constant(UIActivityTypeCopyToPasteboard); }
    void drawIcon(CGRect rect) const { drawNow<drawCopyIcon>(rect); }
    void performActivity() {
        UIPasteboard::general().setString(text());
        activityDidFinish(true);
    }
};

/// A service that this phone has no account for: T names it, and says so.
template <class T>
class UnsetActivity : public TextActivity<T, ActivityCategory::Share> {
public:
    static void defineDeed(objc::ClassTable<T>& c) { c.template overrides<"performActivity", &T::performActivity>(); }
    NSString title() const { return NSString::utf8(T::service); }
    void performActivity() {
        const auto self = objc::as<UIActivity>(*this); // the alert may outlast the sheet
        askPerson(phone::text(word(Word::NotSetUp)) + T::service, phone::text(word(Word::NotSetUpHint)),
                  {phone::text(word(Word::Ok))}, [self](int) { self.activityDidFinish(false); });
    }
};

class AirDropActivity : public UnsetActivity<AirDropActivity> {
public:
    static constexpr auto objc_name = "UIAirDropActivity";
    static constexpr auto service = "AirDrop";
    NSString type() const { return constant(UIActivityTypeAirDrop); }
    void drawIcon(CGRect rect) const { drawNow<drawAirDropIcon>(rect); }
};

/// One that is drawn as its initial.
template <class T>
class LetterActivity : public UnsetActivity<T> {
public:
    void drawIcon(CGRect rect) const {
        if (Painter* painter = Painter::current()) {
            drawLetterIcon(*painter, rect, T::letter, T::ground);
        }
    }
};

class TwitterActivity : public LetterActivity<TwitterActivity> {
public:
    static constexpr auto objc_name = "UIPostToTwitterActivity";
    static constexpr auto service = "Twitter";
    static constexpr auto letter = "t";
    static constexpr Color ground{0.33, 0.67, 0.93, 1};
    NSString type() const { return constant(UIActivityTypePostToTwitter); }
};

class FacebookActivity : public LetterActivity<FacebookActivity> {
public:
    static constexpr auto objc_name = "UIPostToFacebookActivity";
    static constexpr auto service = "Facebook";
    static constexpr auto letter = "f";
    static constexpr Color ground{0.23, 0.35, 0.6, 1};
    NSString type() const { return constant(UIActivityTypePostToFacebook); }
};

class WeiboActivity : public LetterActivity<WeiboActivity> {
public:
    static constexpr auto objc_name = "UIPostToWeiboActivity";
    static constexpr auto service = "Weibo";
    static constexpr auto letter = "w";
    static constexpr Color ground{0.87, 0.2, 0.2, 1};
    NSString type() const { return constant(UIActivityTypePostToWeibo); }
};

template <class... T>
void offer() {
    (offerSystemActivity([]() -> UIActivity { return objc::as<UIActivity>(objc::Ref<T>::make()); }), ...);
}

} // namespace

void registerShareTargets() {
    Composer::definedClass();
    offer<AirDropActivity, MessageActivity, MailActivity, TwitterActivity, FacebookActivity, WeiboActivity,
          CopyActivity>();
}

} // namespace phone
