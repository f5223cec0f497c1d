/// What a person sees of a call: who it is, how long it lasts, and the buttons.
#pragma once

#include "phone/applications/CallButton.h"
#include "phone/applications/CallService.h"
#include "phone/applications/Keypad.h"

namespace phone {

/// The call screen's root view, in the looks of the two phone applications. No button of it lies above
/// `controlsTop`: there stand the caller and the time.
class CallView : public objc::Defines<CallView, UIView> {
public:
    static constexpr auto objc_name = "CallView";
    static constexpr double controlsTop = 90; // points

    enum class Look {
        Newer, // rings
        Older, // cells in a frame, and bars
    };

    static void define(objc::ClassTable<CallView>& c);
    static objc::Ref<CallView> with(CGRect frame, Look look);

    /// Shows the call as it is now.
    void update();

private:
    enum Key { Mute, KeypadKey, Speaker, AddCall, Hold, Contacts, keyCount };

    void build(Look look);
    UIControl add(CallGlyph glyph, const NSString& caption, SEL action);
    UIControl addCallButton(CallGlyph glyph, const NSString& caption, const Color& fill, SEL action);
    void toggle(const objc::Object& button);
    void showKeypad(const objc::Object& sender);
    void hideKeypad(const objc::Object& sender);
    void keypadChanged(const objc::Object& sender);
    void hold(const objc::Object& sender);
    void accept(const objc::Object& sender);
    void end(const objc::Object& sender);

    void layoutSubviews();
    void layOutKeys(CGRect area);
    void layOutCallButtons();
    double callButtonsTop() const;
    void drawContent(CGRect rect);
    NSString statusText() const;

    Look _look = Look::Newer;
    UILabel _caller;
    UILabel _status;
    UIControl _keys[keyCount];
    objc::Ref<Keypad> _keypad;
    UIControl _hide; // leads from the keypad back
    UIControl _accept;
    UIControl _decline;
    UIControl _end;
    bool _showsKeypad = false;
};

} // namespace phone
