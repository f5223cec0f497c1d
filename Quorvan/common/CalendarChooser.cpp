#include "Quorvan/common/CalendarChooser.h"

namespace quorvan {

namespace {

/// On a thread of the store's choosing, while the screens may change what they share.
void writeCalendars(const NSArray& calendars, const NSMutableArray& titles, const char* identifiersFile,
                    const char* titlesFile) {
    identifiers = calendars;
    for (objc::UInt i = 0; i < calendars.count(); ++i) {
        const NSString title = calendars.at<EKCalendar>(i).title();
        titles.insert(title ? title : ""_ns, i); // the choice goes by place: every calendar has a row
    }
    if (calendars.count() > 0) { // docs/kept.md: no identifiers
        (void)calendars.writeToFile(resourcePath(identifiersFile), true);
    }
    (void)titles.writeToFile(resourcePath(titlesFile), true);
}

} // namespace

void fetchCalendars(EKEntityType kind, const char* identifiersFile, const char* titlesFile) {
    const auto store = EKEventStore::make();
    const auto titles = objc::make<NSMutableArray>();
    identifiers = objc::make<NSMutableArray>();
    if (!objc::responds<"requestAccessToEntityType:completion:">(store)) {
        return;
    }
    store.requestAccess(kind, ^(bool granted, id) {
      if (granted) {
          writeCalendars(store.calendars(kind), titles, identifiersFile, titlesFile);
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
