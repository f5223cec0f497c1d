/// The bar above a screen: its title in the middle, a button or the way back at the left, one at the right.
#pragma once

#include "platform/uikit/UINavigationBar.h"

#include <vector>

namespace phone {

/// UINavigationBar, drawn as in OS 7.
class NavigationBar : public objc::Implements<NavigationBar, UINavigationBar, UIView> {
public:
    static constexpr double height = 44;       // points
    static constexpr double margin = 8;        // beside a text and the way back
    static constexpr double customMargin = 16; // beside an item's own view

    static void define(objc::ClassTable<NavigationBar>& c);
    ~NavigationBar();

    void initWithFrame(CGRect frame);

    NSArray items() const;
    /// Raises NSInternalInconsistencyException for the bar of a navigation controller.
    void setItems(const NSArray& items);
    UINavigationItem topItem() const { return itemFromTop(0); }
    UINavigationItem backItem() const { return itemFromTop(1); }
    void pushItem(const UINavigationItem& item, bool animated);
    /// What was popped; nil for an empty bar.
    UINavigationItem popItem(bool animated);

    /// Gives the bar to a navigation controller, which is asked to go back by `_barWentBack`. Not retained.
    void setManager(const objc::Object& manager) { _manager = manager; }
    /// What the controller shows; nobody is told.
    void show(const std::vector<UINavigationItem>& items);
    /// How far the background reaches above the bar, in points: below a status bar.
    void setBackgroundOverhang(double points);

private:
    UINavigationItem itemFromTop(std::size_t index) const;
    void setItemsAnimated(const NSArray& items, bool) { setItems(items); }
    void layoutSubviews();
    CGSize sizeThatFits(CGSize size) const;
    void rebuild();
    void back(const objc::Object& sender);
    UIView viewOf(const UIBarButtonItem& item) const;
    void addBackButton(const UINavigationItem& item);

    std::vector<UINavigationItem> _items;
    objc::Unretained<objc::Object> _manager;
    UIView _background;
    UIView _title; // nil while there is no item
    UIView _left;  // nil while there is none
    UIView _right; // nil while there is none
    double _overhang = 0;
};

} // namespace phone
