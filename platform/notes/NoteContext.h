/// The private Notes framework, reached by name at run time: nothing of it is linked. A phone application has not
/// loaded it by itself, so the way into the store loads it; where it is absent every handle is nil and every message
/// does nothing.
#pragma once

#include "platform/foundation/NSArray.h"
#include "platform/foundation/NSBundle.h"
#include "platform/foundation/NSDate.h"
#include "platform/foundation/NSNumber.h"
#include "platform/foundation/NSString.h"

/// One account that notes belong to.
class NoteAccountObject : public NSObject {
public:
    static constexpr auto objc_name = "NoteAccountObject";
    using NSObject::NSObject;

    NSString name() const { return perform<"name", NSString>(); }
};

/// One collection of notes.
class NoteStoreObject : public NSObject {
public:
    static constexpr auto objc_name = "NoteStoreObject";
    using NSObject::NSObject;

    NoteAccountObject account() const { return perform<"account", NoteAccountObject>(); }
};

class NoteObject;

/// The text of one note.
class NoteBodyObject : public NSObject {
public:
    static constexpr auto objc_name = "NoteBodyObject";
    using NSObject::NSObject;

    void setContent(const NSString& content) const { send<"setContent:">(content); }
    void setOwner(const NoteObject& note) const;
};

/// One note.
class NoteObject : public NSObject {
public:
    static constexpr auto objc_name = "NoteObject";
    using NSObject::NSObject;

    void setIsPlainText(bool plain) const { send<"setIsPlainText:">(plain); }
    void setContent(const NSString& content) const { perform<"setContent:", void>(content); }
    void setStore(const NoteStoreObject& store) const { send<"setStore:">(store); }
    /// Takes the number object that the context answered.
    void setIntegerId(const NSNumber& number) const { send<"setIntegerId:">(number); }
    void setTitle(const NSString& title) const { send<"setTitle:">(title); }
    void setSummary(const NSString& summary) const { send<"setSummary:">(summary); }
    void setBody(const NoteBodyObject& body) const { send<"setBody:">(body); }
    void setCreationDate(const NSDate& date) const { send<"setCreationDate:">(date); }
    void setModificationDate(const NSDate& date) const { send<"setModificationDate:">(date); }
};

inline void NoteBodyObject::setOwner(const NoteObject& note) const { send<"setOwner:">(note); }

/// Where inserted objects live until they are saved.
class NSManagedObjectContext : public NSObject {
public:
    static constexpr auto objc_name = "NSManagedObjectContext";
    using NSObject::NSObject;
};

class NSEntityDescription : public NSObject {
public:
    static constexpr auto objc_name = "NSEntityDescription";
    using NSObject::NSObject;

    /// A new, unsaved object of the entity; nil without a context, where the platform would raise.
    template <class T>
    static T insertNew(const NSString& entity, const NSManagedObjectContext& context) {
        return context
                   ? objc::sendClass<NSEntityDescription, "insertNewObjectForEntityForName:inManagedObjectContext:", T>(
                         entity, context)
                   : T();
    }
};

/// The way into the Notes store.
class NoteContext : public NSObject {
public:
    static constexpr auto objc_name = "NoteContext";
    using NSObject::NSObject;
    static NoteContext make() {
        if (objc_getClass(objc_name) == nullptr) {
            NSBundle::withPath("/System/Library/PrivateFrameworks/Notes.framework"_ns).load();
        }
        return objc::make<NoteContext>();
    }

    NSArray allStores() const { return perform<"allStores", NSArray>(); }
    void enableChangeLogging(bool enabled) const { send<"enableChangeLogging:">(enabled); }
    NSManagedObjectContext managedObjectContext() const {
        return send<"managedObjectContext", NSManagedObjectContext>();
    }
    NoteStoreObject defaultStoreForNewNote() const { return perform<"defaultStoreForNewNote", NoteStoreObject>(); }
    /// A number object, passed on as it comes.
    NSNumber nextIndex() const { return perform<"nextIndex", NSNumber>(); }
    void saveOutsideApp(const objc::Object& accounts) const { perform<"saveOutsideApp:", void>(accounts); }
};
