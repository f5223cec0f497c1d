#include "phone/device/RunLoop.h"
#include "tests/eventkit/ChangeCounter.h"
#include "tests/eventkit/StoreTest.h"

#include <atomic>
#include <thread>

using phone::Access;
using phone::EntityType;

namespace {

/// What a completion has seen.
struct Answer {
    int count = 0;
    bool granted = false;
    std::thread::id thread;
    std::size_t lists = 0;
    bool hasDefault = false;
};

class AccessTest : public StoreTest {
protected:
    /// Asks as the application's own code would.
    void request(EKEntityType type = EKEntityType::Reminder) {
        run([&] { requestInside(type); });
    }
    void requestInside(EKEntityType type = EKEntityType::Reminder) {
        Answer* into = &answer;
        const EKEventStore asked = store();
        asked.requestAccess(type, ^(bool granted, id) {
          ++into->count;
          into->granted = granted;
          into->thread = std::this_thread::get_id();
          into->lists = asked.calendars(type).count();
          into->hasDefault = static_cast<bool>(asked.defaultCalendarForNewReminders());
        });
    }
    void touchButton(const std::string& title) {
        settle();
        tapOn(title);
        settle();
    }

    Answer answer;
};

const std::string reminderPrompt = "“Phone” Would Like to Access Your Reminders";

} // namespace

TEST_F(AccessTest, TheFirstRequestAsksThePersonAndNothingIsAnsweredBefore) {
    request();
    settle();

    EXPECT_TRUE(isVisible(reminderPrompt));
    EXPECT_EQ(answer.count, 0);
}

// Trap: access-answers-later
// Holds: access-is-asynchronous
TEST_F(AccessTest, ThePersonsYesIsAnsweredOnceOnAThreadOfItsOwnAndRemembered) {
    request();
    touchButton("OK");

    EXPECT_EQ(answer.count, 1);
    EXPECT_TRUE(answer.granted);
    EXPECT_NE(answer.thread, std::this_thread::get_id());
    EXPECT_FALSE(isVisible(reminderPrompt));
    EXPECT_EQ(calendarFolder(EntityType::Reminder).access(), Access::Allow);
    EXPECT_EQ(calendarFolder(EntityType::Event).access(), Access::Ask);
}

TEST_F(AccessTest, ThePersonsNoIsAnsweredAndRemembered) {
    request();
    touchButton("Don’t Allow");

    EXPECT_EQ(answer.count, 1);
    EXPECT_FALSE(answer.granted);
    EXPECT_EQ(calendarFolder(EntityType::Reminder).access(), Access::Deny);
}

// Holds: access-is-asynchronous
TEST_F(AccessTest, TheSecondRequestAsksNobody) {
    request();
    touchButton("OK");
    request();

    EXPECT_FALSE(isVisible(reminderPrompt));
    EXPECT_EQ(answer.count, 2);
}

TEST_F(AccessTest, RequestsWhileThePersonIsAskedShareOnePrompt) {
    request();
    request();
    touchButton("OK");

    EXPECT_EQ(answer.count, 2);
    EXPECT_FALSE(isVisible(reminderPrompt));
}

TEST_F(AccessTest, EachEntityTypeIsAskedForItself) {
    useReminders(Access::Allow);
    request(EKEntityType::Event);
    settle();

    EXPECT_TRUE(isVisible("“Phone” Would Like to Access Your Calendar"));
    EXPECT_EQ(answer.count, 0);
}

struct Prompt {
    const char* language;
    const char* reminders;
    const char* calendar;
    const char* refuse;
    const char* allow;
};

void PrintTo(const Prompt& prompt, std::ostream* out) { *out << prompt.language; }

class AccessPrompt : public AccessTest, public testing::WithParamInterface<Prompt> {};

INSTANTIATE_TEST_SUITE_P(
    , AccessPrompt,
    testing::Values(Prompt{"en", reminderPrompt.c_str(), "“Phone” Would Like to Access Your Calendar", "Don’t Allow",
                           "OK"},
                    Prompt{"de-AT", "„Telefon“ möchte auf Ihre Erinnerungen zugreifen",
                           "„Telefon“ möchte auf Ihren Kalender zugreifen", "Nicht erlauben", "OK"},
                    Prompt{"fr", "«\u00a0Téléphone\u00a0» souhaite accéder à vos rappels",
                           "«\u00a0Téléphone\u00a0» souhaite accéder à votre calendrier", "Ne pas autoriser", "OK"},
                    Prompt{"es", "“Teléfono” quiere acceder a tus recordatorios",
                           "“Teléfono” quiere acceder a tu calendario", "No permitir", "OK"},
                    Prompt{"it", "“Telefono” vorrebbe accedere ai tuoi promemoria",
                           "“Telefono” vorrebbe accedere al tuo calendario", "Non consentire", "OK"},
                    Prompt{"nl", "‘Telefoon’ wil toegang tot uw herinneringen", "‘Telefoon’ wil toegang tot uw agenda",
                           "Sta niet toe", "OK"},
                    Prompt{"pt", "“Telefone” Deseja Acessar Seus Lembretes", "“Telefone” Deseja Acessar Seu Calendário",
                           "Não Permitir", "OK"},
                    Prompt{"ru", "Приложение «Телефон» запрашивает доступ к Вашим напоминаниям",
                           "Приложение «Телефон» запрашивает доступ к Вашему календарю", "Не разрешать", "OK"},
                    Prompt{"ja", "“電話”がリマインダーへのアクセスを求めています",
                           "“電話”がカレンダーへのアクセスを求めています", "許可しない", "OK"},
                    Prompt{"zh-Hans", "“电话”想访问您的提醒事项", "“电话”想访问您的日历", "不允许", "好"}),
    [](const auto& info) { return std::string(info.param.language).substr(0, 2); });

// Holds: access-prompt
TEST_P(AccessPrompt, NamesTheApplicationInThePhonesLanguage) {
    useLanguage(GetParam().language);
    request();
    settle();
    EXPECT_TRUE(isVisible(GetParam().reminders));
    EXPECT_TRUE(isVisible(GetParam().allow));
    touchButton(GetParam().refuse);
    EXPECT_EQ(calendarFolder(EntityType::Reminder).access(), Access::Deny);

    request(EKEntityType::Event);
    settle();
    EXPECT_TRUE(isVisible(GetParam().calendar));
    touchButton(GetParam().allow);
    EXPECT_EQ(calendarFolder(EntityType::Event).access(), Access::Allow);
}

// Holds: grant-reaches-its-store
TEST_F(AccessTest, AStoreMadeBeforeTheGrantSeesItsListsInsideTheCompletion) {
    request();
    touchButton("OK");

    EXPECT_EQ(answer.lists, 3u);
    EXPECT_TRUE(answer.hasDefault);
}

// Trap: access-answers-later
TEST_F(AccessTest, ALateAnswerIsNeverInlineAndComesWhenTheLoopRests) {
    useReminders(Access::Allow);
    int whileAsking = -1;
    int inTheNextCycle = -1;

    run([&] {
        requestInside();
        whileAsking = answer.count;
        phone::RunLoop::main().perform([&] { inTheNextCycle = answer.count; });
    });

    EXPECT_EQ(whileAsking, 0);
    EXPECT_EQ(inTheNextCycle, 0);
    EXPECT_EQ(answer.count, 1);
    EXPECT_NE(answer.thread, std::this_thread::get_id());
}

TEST_F(AccessTest, ALateAnswerWaitsForWhatMoves) {
    useReminders(Access::Allow);
    boot();
    phone::RunLoop::main().after(0.3, [] {});

    request();
    const int whileMoving = answer.count;
    settle();

    EXPECT_EQ(whileMoving, 0);
    EXPECT_EQ(answer.count, 1);
}

TEST_F(AccessTest, AnEarlyAnswerHasReturnedBeforeTheAskerGoesOn) {
    useReminders(Access::Allow);
    boot().setStoreAnswers("early");
    int whileAsking = 0;

    run([&] {
        requestInside();
        whileAsking = answer.count;
    });

    EXPECT_EQ(whileAsking, 1);
    EXPECT_EQ(answer.count, 1);
    EXPECT_NE(answer.thread, std::this_thread::get_id());
}

TEST_F(AccessTest, ADenialIsAnsweredToo) {
    useReminders(Access::Deny);
    request();

    EXPECT_EQ(answer.count, 1);
    EXPECT_FALSE(answer.granted);
    EXPECT_EQ(answer.lists, 0u);
    EXPECT_FALSE(answer.hasDefault);
}

TEST_F(AccessTest, AnExceptionInACompletionEndsTheApplication) {
    useReminders(Access::Allow);
    expectLogged("exception");
    boot();

    EXPECT_THROW(run([&] {
                     store().requestAccess(EKEntityType::Reminder, ^(bool, id) {
                       objc::make<NSMutableArray>().at(3);
                     });
                 }),
                 phone::ScreenError);

    EXPECT_TRUE(boot().isDead());
    EXPECT_NE(boot().epitaph().find("NSRangeException"), std::string::npos);
}

// Holds: no-access-no-calendars
TEST_F(AccessTest, AGrantIsAnnouncedOnceAndARefusalIsNot) {
    boot();
    const auto counter = objc::Ref<ChangeCounter>::make();
    counter->observe();

    request(EKEntityType::Event);
    touchButton("Don’t Allow");
    EXPECT_EQ(counter->number, 0);

    request(EKEntityType::Reminder);
    touchButton("OK");
    request(EKEntityType::Reminder);
    settle();
    EXPECT_EQ(counter->number, 1);
}

// Holds: no-access-no-calendars
TEST_F(AccessTest, BeforeAccessThereAreNoListsNoDefaultsAndNothingIsSaved) {
    const auto store = this->store();
    const auto reminder = StoreTest::reminder(store);

    EXPECT_EQ(store.calendars(EKEntityType::Reminder).count(), 0u);
    EXPECT_FALSE(store.defaultCalendarForNewReminders());
    EXPECT_FALSE(store.defaultCalendarForNewEvents());
    EXPECT_TRUE(failure(store, reminder).has_value());
    EXPECT_TRUE(reminders().empty());
}

// Holds: access-numbers
TEST_F(AccessTest, TheStatusIsWhatIsRemembered) {
    useReminders(Access::Deny);
    useEvents(Access::Allow);
    boot();

    EXPECT_EQ(EKEventStore::authorizationStatus(EKEntityType::Reminder), EKAuthorizationStatus::Denied);
    EXPECT_EQ(EKEventStore::authorizationStatus(EKEntityType::Event), EKAuthorizationStatus::Authorized);
    calendarFolder(EntityType::Event).setAccess(Access::Ask);
    EXPECT_EQ(EKEventStore::authorizationStatus(EKEntityType::Event), EKAuthorizationStatus::NotDetermined);
}

TEST_F(AccessTest, AnUnknownEntityTypeRaises) {
    const auto store = this->store();

    EXPECT_EQ(raised([&] { store.calendars(static_cast<EKEntityType>(2)); }), invalidArgument);
}
