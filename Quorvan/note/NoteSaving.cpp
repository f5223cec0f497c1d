// How a note ends: Done writes it into the Notes store, Cancel may keep its text for the next time.

#include "Quorvan/common/Motion.h"
#include "Quorvan/common/Resources.h"
#include "Quorvan/common/ScreenState.h"
#include "Quorvan/note/KeptText.h"
#include "Quorvan/note/NoteController.h"
#include "platform/notes/NoteContext.h"

namespace quorvan {

namespace {

/// A line break is one whatever follows it: a mark that joins with it makes it no other character.
NSString firstLine(const NSString& text) {
    const NSRange lineBreak = text.rangeOfString("\n"_ns, NSLiteralSearch);
    return lineBreak.location == NSNotFound ? text : text.substringToIndex(lineBreak.location);
}

/// The store at the chosen place. That the place exists is not checked, but for a device without any store.
NoteStoreObject chosenStore(const NSArray& stores) {
    return stores.count() == 0 ? NoteStoreObject() : stores.at<NoteStoreObject>(static_cast<objc::UInt>(storeNum));
}

} // namespace

void NoteController::done(const objc::Object&) {
    const NSString nothingTyped = placeholder("Note");
    const auto context = NoteContext::make();
    const NSArray stores = context.allStores();
    context.enableChangeLogging(true);
    const auto managed = context.managedObjectContext();
    const auto defaultStore = context.defaultStoreForNewNote();
    const bool separateTitle = isOn(preference::separateTitle);
    const auto store = storeNum < 0 ? defaultStore : chosenStore(stores);

    // Made before it is known whether there is anything to save: of an empty note they stay unsaved.
    const auto newNote = NSEntityDescription::insertNew<NoteObject>("Note"_ns, managed);
    const auto body = NSEntityDescription::insertNew<NoteBodyObject>("NoteBody"_ns, managed);
    const NSString text = note.text();
    newNote.setIsPlainText(true);
    newNote.setContent(text);
    body.setContent(text);
    body.setOwner(newNote);
    newNote.setStore(store);
    newNote.setIntegerId(context.nextIndex());

    if (!isEmpty(text) && !text.isEqualToString(nothingTyped)) {
        const NSString title = titleField.text();
        if (separateTitle && !isEmpty(title)) {
            const auto content = title.stringByAppendingString("\n"_ns).stringByAppendingString(text);
            newNote.setTitle(title);
            body.setContent(content);
            newNote.setIsPlainText(true);
            newNote.setContent(content);
        } else {
            newNote.setTitle(firstLine(text));
        }
        newNote.setSummary(text);
        newNote.setBody(body);
        newNote.setCreationDate(NSDate::now());
        newNote.setModificationDate(NSDate::now());
        context.saveOutsideApp(nullptr);
        KeptText().write();
    }
    fadeOut(noteView, _activity);
}

void NoteController::cancel(const objc::Object&) {
    const bool keepsText = isOn(preference::keepUnsavedText);
    const bool separateTitle = isOn(preference::separateTitle);
    if (keepsText) {
        const NSString title = titleField.text();
        const bool keepsTitle = separateTitle && !isEmpty(title) && !title.isEqualToString(localized("Title"));
        const KeptText kept{note.text(), keepsTitle ? title : NSString()};
        kept.write();
        kept.write(); // docs/kept.md: written twice
    }
    fadeOut(noteView, _activity);
}

} // namespace quorvan
