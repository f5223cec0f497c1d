#include "phone/applications/Words.h"

#include "phone/uikit/SystemWords.h"

namespace phone {

namespace {

struct Entry {
    Word word;
    Translations texts;
};

// en de fr es it nl pt ru ja zh
constexpr Entry entries[] = {
    {Word::Ok, {"OK", "OK", "OK", "OK", "OK", "OK", "OK", "OK", "OK", "好"}},
    {Word::Send, {"Send", "Senden", "Envoyer", "Enviar", "Invia", "Stuur", "Enviar", "Отправить", "送信", "发送"}},
    {Word::To, {"To", "An", "À", "Para", "A", "Aan", "Para", "Кому", "宛先", "收件人"}},
    {Word::Message,
     {"Message", "Nachricht", "Message", "Mensaje", "Messaggio", "Bericht", "Mensagem", "Сообщение", "メッセージ",
      "信息"}},
    {Word::Mail, {"Mail", "Mail", "Mail", "Mail", "Mail", "Mail", "Mail", "Почта", "メール", "邮件"}},
    {Word::Subject,
     {"Subject", "Betreff", "Objet", "Asunto", "Oggetto", "Onderwerp", "Assunto", "Тема", "件名", "主题"}},
    {Word::Copy,
     {"Copy", "Kopieren", "Copier", "Copiar", "Copia", "Kopieer", "Copiar", "Скопировать", "コピー", "拷贝"}},
    {Word::NotSetUp,
     {"Not Set Up: ", "Nicht eingerichtet: ", "Non configuré\u00a0: ", "Sin configurar: ", "Non configurato: ",
      "Niet ingesteld: ", "Não configurado: ", "Не настроено: ", "未設定：", "未设置："}},
    {Word::NotSetUpHint,
     {"There is no account for this service on this phone.",
      "Auf diesem Telefon gibt es keinen Account für diesen Dienst.", "Ce téléphone n’a pas de compte pour ce service.",
      "Este teléfono no tiene ninguna cuenta de este servicio.",
      "Su questo telefono non c’è un account per questo servizio.",
      "Op deze telefoon is er geen account voor deze dienst.", "Este telefone não tem uma conta para este serviço.",
      "На этом телефоне нет учетной записи для этой службы.", "この電話にはこのサービスのアカウントがありません。",
      "此电话上没有该服务的帐户。"}},
    {Word::NoCall,
     {"No call", "Kein Anruf", "Aucun appel", "Ninguna llamada", "Nessuna chiamata", "Geen gesprek", "Nenhuma ligação",
      "Нет вызова", "通話なし", "无通话"}},
    {Word::IncomingCall,
     {"incoming call", "eingehender Anruf", "appel entrant", "llamada entrante", "chiamata in entrata",
      "inkomend gesprek", "ligação recebida", "входящий вызов", "着信中", "来电"}},
    {Word::OnHold,
     {"on hold", "gehalten", "en attente", "en espera", "in attesa", "in de wacht", "em espera", "удержание", "保留中",
      "通话保留"}},
    {Word::CallEnded,
     {"call ended", "Anruf beendet", "appel terminé", "llamada finalizada", "chiamata terminata", "gesprek beëindigd",
      "ligação encerrada", "вызов завершен", "通話終了", "通话结束"}},
    {Word::Mute, {"mute", "stumm", "silence", "silencio", "muto", "stil", "mudo", "без звука", "消音", "静音"}},
    {Word::Keypad,
     {"keypad", "Ziffernblock", "clavier", "teclado", "tastierino", "toetsen", "teclado", "клавиши", "キーパッド",
      "拨号键盘"}},
    {Word::Speaker,
     {"speaker", "Lautsprecher", "haut-parleur", "altavoz", "vivavoce", "luidspreker", "alto-falante", "динамик",
      "スピーカー", "免提"}},
    {Word::AddCall,
     {"add call", "hinzufügen", "ajouter", "añadir", "aggiungi", "voeg toe", "adicionar", "добавить", "通話を追加",
      "添加通话"}},
    {Word::Hold, {"hold", "halten", "attente", "retener", "attesa", "wacht", "reter", "удержать", "保留", "保留"}},
    {Word::Contacts,
     {"contacts", "Kontakte", "contacts", "contactos", "contatti", "contacten", "contatos", "контакты", "連絡先",
      "通讯录"}},
    {Word::Hide,
     {"Hide", "Ausblenden", "Masquer", "Ocultar", "Nascondi", "Verberg", "Ocultar", "Скрыть", "隠す", "隐藏"}},
    {Word::Accept,
     {"Accept", "Annehmen", "Accepter", "Aceptar", "Accetta", "Neem op", "Aceitar", "Принять", "応答", "接听"}},
    {Word::Decline,
     {"Decline", "Ablehnen", "Refuser", "Rechazar", "Rifiuta", "Weiger", "Recusar", "Отклонить", "拒否", "拒绝"}},
    {Word::EndCall,
     {"End", "Beenden", "Raccrocher", "Finalizar", "Fine", "Hang op", "Encerrar", "Завершить", "終了", "结束"}},
};

} // namespace

NSString word(Word word) {
    for (const Entry& entry : entries) {
        if (entry.word == word) {
            return inPhoneLanguage(entry.texts);
        }
    }
    return nullptr;
}

} // namespace phone
