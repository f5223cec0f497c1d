#include "phone/applications/Words.h"

#include "phone/uikit/SystemWords.h"

namespace phone {

namespace {

struct Entry {
    Word word;
    const char* english;
    const char* german;
};

constexpr Entry entries[] = {
    {Word::Ok, "OK", "OK"},
    {Word::Send, "Send", "Senden"},
    {Word::To, "To", "An"},
    {Word::Message, "Message", "Nachricht"},
    {Word::Mail, "Mail", "Mail"},
    {Word::Subject, "Subject", "Betreff"},
    {Word::Copy, "Copy", "Kopieren"},
    {Word::NotSetUp, "Not Set Up: ", "Nicht eingerichtet: "},
    {Word::NotSetUpHint, "There is no account for this service on this phone.",
     "Auf diesem Telefon gibt es keinen Account für diesen Dienst."},
    {Word::Phone, "Phone", "Telefon"},
    {Word::NoCall, "No call", "Kein Anruf"},
    {Word::IncomingCall, "incoming call", "eingehender Anruf"},
    {Word::OnHold, "on hold", "gehalten"},
    {Word::CallEnded, "call ended", "Anruf beendet"},
    {Word::Mute, "mute", "stumm"},
    {Word::Keypad, "keypad", "Ziffernblock"},
    {Word::Speaker, "speaker", "Lautsprecher"},
    {Word::AddCall, "add call", "hinzufügen"},
    {Word::Hold, "hold", "halten"},
    {Word::Contacts, "contacts", "Kontakte"},
    {Word::Hide, "Hide", "Ausblenden"},
    {Word::Accept, "Accept", "Annehmen"},
    {Word::Decline, "Decline", "Ablehnen"},
    {Word::EndCall, "End", "Beenden"},
};

} // namespace

NSString word(Word word) {
    for (const Entry& entry : entries) {
        if (entry.word == word) {
            return inPhoneLanguage(entry.english, entry.german);
        }
    }
    return nullptr;
}

} // namespace phone
