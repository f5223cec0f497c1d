#include "phone/eventkit/AccessPrompt.h"

#include "phone/foundation/Text.h"
#include "phone/uikit/SystemWords.h"

#include <string_view>
#include <utility>

namespace phone::eventkit {

namespace {

constexpr std::string_view name = "%@"; // where the application's name stands

constexpr Translations wantsCalendar{"“%@” Would Like to Access Your Calendar",
                                     "„%@“ möchte auf Ihren Kalender zugreifen",
                                     "«\u00a0%@\u00a0» souhaite accéder à votre calendrier",
                                     "“%@” quiere acceder a tu calendario",
                                     "“%@” vorrebbe accedere al tuo calendario",
                                     "‘%@’ wil toegang tot uw agenda",
                                     "“%@” Deseja Acessar Seu Calendário",
                                     "Приложение «%@» запрашивает доступ к Вашему календарю",
                                     "“%@”がカレンダーへのアクセスを求めています",
                                     "“%@”想访问您的日历"};
constexpr Translations wantsReminders{"“%@” Would Like to Access Your Reminders",
                                      "„%@“ möchte auf Ihre Erinnerungen zugreifen",
                                      "«\u00a0%@\u00a0» souhaite accéder à vos rappels",
                                      "“%@” quiere acceder a tus recordatorios",
                                      "“%@” vorrebbe accedere ai tuoi promemoria",
                                      "‘%@’ wil toegang tot uw herinneringen",
                                      "“%@” Deseja Acessar Seus Lembretes",
                                      "Приложение «%@» запрашивает доступ к Вашим напоминаниям",
                                      "“%@”がリマインダーへのアクセスを求めています",
                                      "“%@”想访问您的提醒事项"};
constexpr Translations refuse{"Don’t Allow",  "Nicht erlauben", "Ne pas autoriser", "No permitir", "Non consentire",
                              "Sta niet toe", "Não Permitir",   "Не разрешать",     "許可しない",  "不允许"};
constexpr Translations allow{"OK", "OK", "OK", "OK", "OK", "OK", "OK", "OK", "OK", "好"};

std::string word(const Translations& texts) { return text(inPhoneLanguage(texts)); }

} // namespace

Question accessQuestion(EntityType type, std::function<void(bool allowed)> answered) {
    constexpr int allowing = 1;
    std::string title = word(type == EntityType::Event ? wantsCalendar : wantsReminders);
    title.replace(title.find(name), name.size(), text(applicationName()));
    return {title, "", {word(refuse), word(allow)}, [answered = std::move(answered)](int button) {
                answered(button == allowing);
            }};
}

} // namespace phone::eventkit
