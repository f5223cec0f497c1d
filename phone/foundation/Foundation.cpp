#include "phone/foundation/Foundation.h"

#include "phone/foundation/Bundle.h"
#include "phone/foundation/DateComponents.h"
#include "phone/foundation/DateFormatter.h"
#include "phone/foundation/FileLog.h"
#include "phone/foundation/PropertyList.h"
#include "phone/foundation/Surroundings.h"
#include "phone/foundation/Unanswered.h"
#include "phone/foundation/Values.h"

namespace phone {

void installFoundation() {
    static const bool once = [] {
        installUnanswered();
        installSurroundings();
        installFileLog();
        installPropertyLists();
        installBundles();
        installValues();
        installDateComponents();
        installDateFormatters();
        return true;
    }();
    (void)once;
}

} // namespace phone
