/// The frame of every chooser: a panel with a bar whose left item is the Back control.
#pragma once

#include "platform/uikit/UINavigationBar.h"
#include "platform/uikit/UIViewController.h"

namespace quorvan {

/// Builds a chooser's panel, in the order in which its views lie above each other: what the chooser adds
/// first, the bar, its main content, the separator.
class ChooserFrame {
public:
    /// A panel of this size; its bar will have the title and the Back control, which sends `back:` to the chooser.
    ChooserFrame(const UIViewController& chooser, CGSize size, const NSString& title);

    const UIView& panel() const { return _panel; }
    /// Puts the bar on the panel, above what the chooser has added so far.
    void addBar();
    /// Rounds the corners, adds the separator under the bar and gives the panel.
    UIView finish(CGFloat separator);

private:
    NSString _title;
    UIView _panel;
    UINavigationBar _bar;
    UIView _back;
};

} // namespace quorvan
