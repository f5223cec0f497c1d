/// The share sheet: rises over a screen and offers what can be done with some items.
#pragma once

#include "phone/uikit/PopoverArrow.h"
#include "phone/uikit/PopoverPresentationController.h"
#include "phone/uikit/ViewController.h"
#include "platform/uikit/UIActivity.h"
#include "platform/uikit/UIScrollView.h"

#include <vector>

namespace phone {

/// UIActivityViewController, as in OS 7 on a phone; on a tablet from OS 8 it is a popover. It covers the screen beneath
/// without that screen being told. Above stand the services that share, below the other activities, each row with the
/// system's own first and then the application's in the order given. An activity that has nothing to do yet is greyed.
class ActivityViewController
    : public objc::Implements<ActivityViewController, UIActivityViewController, UIViewController> {
public:
    static void define(objc::ClassTable<ActivityViewController>& c);
    ~ActivityViewController();

    /// The activities offered, those of the upper row first. Asks each whether it can be performed.
    std::vector<UIActivity> available() const;

private:
    void initWithItems(const NSArray& items, const NSArray& activities);
    void loadView();
    void viewDidLayoutSubviews();
    /// nullptr where the sheet is none.
    PopoverPresentationController* popover();
    void placePopover();
    void preparePresentation();
    void animatePresentation();
    void animateDismissal();
    void setCompletionHandler(const objc::Block<void(id, bool)>& handler) { _handler = handler; }
    /// As the screen beneath answers, which stays in sight.
    bool shouldAutorotateTo(UIInterfaceOrientation orientation) const;
    objc::UInt supportedOrientations() const;

    void choose(const objc::Object& tile);
    void cancel(const objc::Object& sender);
    void activityFinished(const UIActivity& activity, bool completed);
    /// A nil type: cancelled.
    void close(const NSString& type, bool completed);
    void tellHandler(const NSString& type, bool completed);
    void addRow(const std::vector<UIActivity>& activities);
    bool isExcluded(const UIActivity& activity) const;
    CGRect panelFrame() const;
    CGRect cancelFrame() const;

    NSArray _items;
    NSArray _applicationActivities; // nil for none
    NSArray _excluded;              // nil for none
    objc::Block<void(id, bool)> _handler;
    std::vector<UIActivity> _offered; // as the rows show them
    UIActivity _chosen;               // nil until one is chosen
    bool _closed = false;
    UIView _dimming;
    UIView _panel;
    std::vector<UIScrollView> _rows; // upper first; one without activities is left out
    UIView _line;                    // between two rows; nil for one
    UIView _cancel;                  // nil in a popover
    objc::Ref<PopoverArrow> _arrow;  // nil outside a popover
};

} // namespace phone
