#include "phone/uikit/SystemActivity.h"

namespace phone {

namespace {

std::vector<MakeActivity>& makers() {
    static auto* all = new std::vector<MakeActivity>;
    return *all;
}

} // namespace

void offerSystemActivity(MakeActivity make) { makers().push_back(make); }

std::vector<UIActivity> makeSystemActivities() {
    std::vector<UIActivity> activities;
    for (MakeActivity make : makers()) {
        activities.push_back(make());
    }
    return activities;
}

} // namespace phone
