/// What the view of every screen goes through: it is filled, hidden while another screen lies over it, and emptied.
#pragma once

#include "platform/uikit/UIImageView.h"
#include "platform/uikit/UIViewController.h"

namespace quorvan {

/// Adds the picture behind the panel, filling the frame.
UIImageView addBackdrop(const UIView& view, CGRect frame);
/// Titles the screen, which nobody sees: the navigation controller's own bar is hidden.
void titleScreen(const UIViewController& screen, const NSString& title);
/// What a view starts with: the backdrop, as large as the main screen when it is held upright, which goes on covering
/// the view when that is turned, and the title.
void startScreen(const UIViewController& screen, const NSString& title);
/// Puts the panel in the middle of the screen's view, where it stays when that is turned.
void showPanel(const UIViewController& screen, const UIView& panel);

/// Hides or shows every view of the screen.
void setEverythingHidden(const UIView& view, bool hidden);
/// Takes every view off the screen, before it is built again for another orientation.
void removeEverything(const UIView& view);

} // namespace quorvan
