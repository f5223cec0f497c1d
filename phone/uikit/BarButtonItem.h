/// One button of a bar, as a value; the bar makes the control that shows it.
#pragma once

#include "platform/uikit/UIBarButtonItem.h"
#include "platform/uikit/UIButton.h"

namespace phone {

/// UIBarButtonItem.
class BarButtonItem : public objc::Implements<BarButtonItem, UIBarButtonItem, NSObject> {
public:
    enum Style : objc::Int { Plain = 0, Bordered = 1, Done = 2 };

    static void define(objc::ClassTable<BarButtonItem>& c);

    /// The control that shows the item; nil while none does. Not retained.
    void setButton(const UIButton& button) { _button = button; }
    UIButton button() const { return _button.get(); }
    /// What stands for the item in a bar; nil while nothing does.
    UIView view() const { return _customView ? _customView : UIView(_button.get()); }
    objc::Object target() const { return _target.get(); }
    /// Sends the action to the target by way of the application, as a touch on the button does. The item
    /// is the sender.
    void sendAction();

private:
    void initWithTitle(const NSString& title, objc::Int style, const objc::Unretained<objc::Object>& target,
                       SEL action);
    void initWithCustomView(const UIView& view);
    void setTitle(const NSString& title);
    void setStyle(objc::Int style);
    void setEnabled(bool enabled);
    void show();

    NSString _title;
    objc::Int _style = Plain;
    objc::Unretained<objc::Object> _target;
    SEL _action = nullptr;
    UIView _customView; // nil for a button with a title
    bool _enabled = true;
    objc::Unretained<UIButton> _button;
};

} // namespace phone
