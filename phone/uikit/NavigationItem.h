/// What a navigation bar shows of one screen.
#pragma once

#include "platform/uikit/UINavigationBar.h"

namespace phone {

/// UINavigationItem. Changes show at once in the bar that shows the item.
class NavigationItem : public objc::Implements<NavigationItem, UINavigationItem, NSObject> {
public:
    static void define(objc::ClassTable<NavigationItem>& c);

    void initWithTitle(const NSString& title);

    NSString title() const { return _title; }
    UIView titleView() const { return _titleView; }
    UIBarButtonItem leftBarButtonItem() const { return _left; }
    UIBarButtonItem rightBarButtonItem() const { return _right; }
    UIBarButtonItem backBarButtonItem() const { return _back; }
    bool hidesBackButton() const { return _hidesBack; }

    /// The bar that the item is in; nil when it is in none. Not retained: the bar takes itself out.
    void setBar(const UINavigationBar& bar) { _bar = bar; }
    UINavigationBar bar() const { return _bar.get(); }

private:
    void setTitle(const NSString& title);
    void setTitleView(const UIView& view);
    void setLeft(const UIBarButtonItem& item);
    void setLeftAnimated(const UIBarButtonItem& item, bool) { setLeft(item); }
    void setRight(const UIBarButtonItem& item);
    void setRightAnimated(const UIBarButtonItem& item, bool) { setRight(item); }
    void setBack(const UIBarButtonItem& item);
    void setHidesBack(bool hides);
    void changed();

    NSString _title;
    UIView _titleView; // nil: the title shows
    UIBarButtonItem _left;
    UIBarButtonItem _right;
    UIBarButtonItem _back; // how the next screen names the way back here; nil: the title
    bool _hidesBack = false;
    objc::Unretained<UINavigationBar> _bar;
};

} // namespace phone
