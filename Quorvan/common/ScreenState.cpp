#include "Quorvan/common/ScreenState.h"

namespace quorvan {

constinit objc::Global<UIView> noteView;
constinit objc::Global<UINavigationItem> navigItem;
constinit objc::Global<NSString> noteOut;
constinit objc::Global<NSString> titleOut;
constinit objc::Global<NSString> nAccount;
constinit objc::Int storeNum = -1;
constinit objc::Int previousSelection = 0;

constinit objc::Global<NSString> rlist;
constinit objc::Global<NSString> rDate;
constinit objc::Global<NSString> type;
constinit objc::Int chosen = -1;
constinit objc::Int prevSelection = 0;
constinit objc::Int prior = 0;
constinit objc::Int preSelection = 0;
constinit objc::Global<NSDate> remDate;
constinit objc::Global<UIDatePicker> myPicker;

constinit objc::Global<UIView> reminderView;
constinit objc::Global<UISwitch> allDayAllNight;
constinit bool neverOrNot = true;
constinit objc::Global<NSArray> identifiers;
constinit objc::Global<NSArray> identifiersSaved;
constinit objc::Global<NSMutableArray> titlesSaved;
constinit objc::Global<UITableView> accountName;

void releaseRows(const objc::Object& screen) {
    if (accountName->send<"delegate", id>() == screen.raw()) {
        accountName->setDelegate(nullptr);
        accountName->setDataSource(nullptr);
    }
}

} // namespace quorvan
