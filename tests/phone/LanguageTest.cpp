#include "phone/uikit/Language.h"

#include "platform/uikit/UIActivity.h"
#include "platform/uikit/UIDatePicker.h"
#include "platform/uikit/UITextField.h"
#include "tests/phone/PhoneTest.h"
#include "tests/phone/Probe.h"

namespace {

/// What the phone itself says, here and there.
struct Words {
    const char* language;
    const char* ringing;
    const char* accept;
    const char* mute;
    const char* cancel;
    const char* today;
    const char* space;
    const char* done;
};

void PrintTo(const Words& words, std::ostream* out) { *out << words.language; }

class Languages : public PhoneTest, public testing::WithParamInterface<Words> {
protected:
    Languages() { useLanguage(GetParam().language); }
};

INSTANTIATE_TEST_SUITE_P(
    , Languages,
    testing::Values(Words{"en", "incoming call", "Accept", "mute", "Cancel", "Today", "space", "Done"},
                    Words{"de-AT", "eingehender Anruf", "Annehmen", "stumm", "Abbrechen", "Heute", "Leerzeichen",
                          "Fertig"},
                    Words{"fr", "appel entrant", "Accepter", "silence", "Annuler", "Aujourd’hui", "espace", "OK"},
                    Words{"es", "llamada entrante", "Aceptar", "silencio", "Cancelar", "Hoy", "espacio", "OK"},
                    Words{"it", "chiamata in entrata", "Accetta", "muto", "Annulla", "Oggi", "spazio", "Fine"},
                    Words{"nl", "inkomend gesprek", "Neem op", "stil", "Annuleer", "Vandaag", "spatie", "Gereed"},
                    Words{"pt", "ligação recebida", "Aceitar", "mudo", "Cancelar", "Hoje", "espaço", "OK"},
                    Words{"ru", "входящий вызов", "Принять", "без звука", "Отмена", "Сегодня", "Пробел", "Готово"},
                    Words{"ja", "着信中", "応答", "消音", "キャンセル", "今日", "空白", "完了"},
                    Words{"zh-Hans", "来电", "接听", "静音", "取消", "今天", "空格", "完成"}),
    [](const auto& info) { return std::string(info.param.language).substr(0, 2); });

} // namespace

TEST_P(Languages, AreSpokenByTheCall) {
    call();
    EXPECT_TRUE(isVisible(GetParam().ringing));

    tapOn(GetParam().accept);
    settle();

    EXPECT_TRUE(isVisible(GetParam().mute));
}

TEST_P(Languages, AreSpokenByTheSheet) {
    useClassesOnly();
    const UIWindow front = window();
    const UIViewController lower = Probe::with("lower");
    run([&] { front.setRootViewController(lower); });
    settle();

    run([&] { lower.present(UIActivityViewController::with(NSArray::of("words"_ns), nullptr), true, nullptr); });
    settle();

    EXPECT_TRUE(isVisible(GetParam().cancel));
}

TEST_P(Languages, AreSpokenByTheWheels) {
    useClassesOnly();
    const UIWindow screen = window();
    screen.addSubview(UIDatePicker::withFrame({0, 100, 320, 216}));
    advance(0);

    EXPECT_EQ(attribute(findClass("UIPickerTableView"), "text"), GetParam().today);
}

TEST_P(Languages, AreSpokenByTheKeys) {
    useClassesOnly();
    const UIWindow screen = window();
    const auto field = UITextField::withFrame({20, 50, 200, 30});
    field.setReturnKeyType(UIReturnKeyType::Done);
    screen.addSubview(field);

    field.becomeFirstResponder();
    settle();

    EXPECT_TRUE(isVisible(GetParam().space));
    EXPECT_TRUE(isVisible(GetParam().done));
}

TEST(Language, IsThatOfItsTagAndEnglishForOneThatThePhoneDoesNotSpeak) {
    EXPECT_EQ(phone::languageOf("pt-PT"), phone::Language::Portuguese);
    EXPECT_EQ(phone::languageOf("zh_CN"), phone::Language::Chinese);
    EXPECT_EQ(phone::languageOf("nl"), phone::Language::Dutch);
    EXPECT_EQ(phone::languageOf("fi"), phone::Language::English);
    EXPECT_EQ(phone::languageOf(""), phone::Language::English);
}
