#include "Quorvan/common/ScreenState.h"

namespace quorvan {

constinit objc::Global<UIView> noteView;
constinit objc::Global<UINavigationItem> navigItem;
constinit objc::Global<NSString> noteOut;
constinit objc::Global<NSString> titleOut;
constinit objc::Global<NSString> nAccount;
constinit objc::Int storeNum = -1;
constinit objc::Int previousSelection = 0;

constinit objc::Global<UITableView> accountName;

} // namespace quorvan
