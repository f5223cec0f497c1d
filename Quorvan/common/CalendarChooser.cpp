#include "Quorvan/common/CalendarChooser.h"

namespace quorvan {

namespace {

/// On a thread of the store's choosing.
void writeCalendars(const EKEventStore& store, EKEntityType kind, const NSString& identifiersPath,
                    const NSString& titlesPath) {
    identifiers = store.calendars(kind);
    const auto titles = objc::make<NSMutableArray>();
    for (objc::UInt i = 0; i < identifiers->count(); ++i) {
        titles.add(identifiers->at<EKCalendar>(i).title());
    }
    // Calendars are no property list objects: this write is refused and leaves no file, by design.
    (void)identifiers->writeToFile(identifiersPath, true);
    (void)titles.writeToFile(titlesPath, true);
}

} // namespace

void fetchCalendars(EKEntityType kind, const char* identifiersFile, const char* titlesFile) {
    const auto store = EKEventStore::make();
    identifiers = objc::make<NSMutableArray>();
    if (!objc::responds<"requestAccessToEntityType:completion:">(store)) {
        return;
    }
    const NSString identifiersPath = resourcePath(identifiersFile);
    const NSString titlesPath = resourcePath(titlesFile);
    store.requestAccess(kind, ^(bool granted, id) {
      if (granted) {
          writeCalendars(store, kind, identifiersPath, titlesPath);
      }
    });
}

void readCalendars(const char* identifiersFile, const char* titlesFile) {
    identifiersSaved = NSArray::withContentsOfFile(resourcePath(identifiersFile));
    titlesSaved = NSMutableArray::withContentsOfFile(resourcePath(titlesFile));
}

NSString savedTitle(objc::Int row) {
    const auto title = titlesSaved->at<NSString>(static_cast<objc::UInt>(row));
    return objc::isKind<NSString>(title) ? title : ""_ns;
}

} // namespace quorvan
