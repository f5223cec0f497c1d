#include "phone/uikit/SystemWords.h"

#include "phone/device/Settings.h"

namespace phone {

namespace {

constexpr Translations application{"Phone",    "Telefon",  "Téléphone", "Teléfono", "Telefono",
                                   "Telefoon", "Telefone", "Телефон",   "電話",     "电话"};
constexpr Translations back{"Back",  "Zurück", "Retour", "Atrás", "Indietro",
                            "Terug", "Voltar", "Назад",  "戻る",  "返回"};
constexpr Translations today{"Today",   "Heute", "Aujourd’hui", "Hoy",  "Oggi",
                             "Vandaag", "Hoje",  "Сегодня",     "今日", "今天"};
constexpr Translations cancel{"Cancel",   "Abbrechen", "Annuler", "Cancelar",   "Annulla",
                              "Annuleer", "Cancelar",  "Отмена",  "キャンセル", "取消"};

} // namespace

NSString inPhoneLanguage(const Translations& texts) { return NSString::utf8(translated(texts, settings().language)); }

NSString applicationName() { return inPhoneLanguage(application); }

NSString backWord() { return inPhoneLanguage(back); }
NSString todayWord() { return inPhoneLanguage(today); }
NSString cancelWord() { return inPhoneLanguage(cancel); }

} // namespace phone
