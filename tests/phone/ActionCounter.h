/// Counts how often a control has sent an event.
#pragma once

#include "platform/uikit/UIControl.h"

/// Add it to a control with `countValueChanges`; keep it as long as the control is used.
class ActionCounter : public objc::Defines<ActionCounter, NSObject> {
public:
    static constexpr auto objc_name = "TestActionCounter";
    static void define(objc::ClassTable<ActionCounter>& c) { c.action<"count:", &ActionCounter::count>(); }

    int number = 0;

private:
    void count(const objc::Object&) { ++number; }
};

inline objc::Ref<ActionCounter> countValueChanges(const UIControl& control) {
    const auto counter = objc::Ref<ActionCounter>::make();
    control.addTarget(counter, objc::selector<"count:">(), UIControlEventValueChanged);
    return counter;
}
