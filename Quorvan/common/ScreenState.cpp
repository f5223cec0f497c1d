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

constinit objc::Global<NSDate> startingDate;
constinit objc::Global<NSDate> endingDate;
constinit objc::Global<NSString> dateRange;
constinit objc::Global<NSString> elist;
constinit objc::Global<NSString> eRemind;
constinit objc::Int chosenNum = -1;
constinit objc::Int prevSelect = 0;
constinit objc::Int preSelect = -1;
constinit bool allDayer = false;
constinit objc::Global<UITableView> dateOcccur;
constinit objc::Global<NSString> startDate;
constinit objc::Global<NSString> endDate;
constinit objc::Global<UIDatePicker> startPicker;
constinit objc::Global<UIDatePicker> endPicker;
constinit objc::Global<UITableView> eRemindTable;
constinit objc::Global<NSString> eventRemindEnd;
constinit objc::Global<NSDate> eventRemindEndDate;
constinit objc::Global<UIDatePicker> endrPicker;

constinit objc::Global<UIView> reminderView;
constinit objc::Global<UISwitch> allDayAllNight;
constinit bool neverOrNot = true;
constinit objc::Global<NSArray> identifiers;
constinit objc::Global<NSArray> identifiersSaved;
constinit objc::Global<NSMutableArray> titlesSaved;
constinit objc::Global<UITableView> accountName;

} // namespace quorvan
