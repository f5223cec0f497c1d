#include "Quorvan/common/TakeBack.h"

namespace quorvan {

void takeBackDelegates(const UITableView& table) {
    table.setDelegate(nullptr);
    table.setDataSource(nullptr);
}

void takeBackDelegates(const UITableView& table, const objc::Object& screen) {
    if (table.send<"delegate", id>() == screen.raw()) { // as it stands: the delegate may be on its way out
        takeBackDelegates(table);
    }
}

void takeBackTarget(const UIControl& control, const objc::Object& screen) {
    control.removeTarget(screen, nullptr, UIControlEventValueChanged);
}

} // namespace quorvan
