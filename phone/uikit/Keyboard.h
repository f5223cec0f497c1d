/// The keyboard on the screen: when it comes and goes, and what its keys do.
#pragma once

#include "phone/device/RunLoop.h"
#include "platform/uikit/UIResponder.h"
#include "platform/uikit/UIWindow.h"

#include <functional>
#include <string>

namespace phone {

/// Puts one character (in UTF-8; what a person perceives as one counts as one) into the text being
/// edited, as its key does. A line break presses the return key. Throws std::runtime_error when no text
/// is being edited.
void typeCharacter(const std::string& utf8);
/// Types a text character by character.
void typeText(const std::string& utf8);
/// "enter" or "backspace"; "delete", "left", "right", "home" and "end" are those of a connected keyboard. Throws
/// std::runtime_error for another name, or when no text is being edited.
void pressKey(const std::string& name);
/// Puts the keyboard away as a person can: by the tablet's own key, or by a return key that reads Done.
/// Throws std::runtime_error where there is no such key.
void hideKeyboard();
/// Puts the pasteboard's text in place of the selection, in one change. Throws as `typeCharacter` does.
void pasteText();

/// One per process. It stands in a window of its own above the application's and stays while the first
/// responder is a text input, whichever. Its notifications carry rectangles of the screen held upright.
class Keyboard {
public:
    static constexpr double slideSeconds = 0.25;
    /// The curve of the slide as the notifications name it; none of the public ones.
    static constexpr objc::Int slideCurve = 7;
    /// Above the application's windows, below alerts.
    static constexpr CGFloat windowLevel = 1500;

    static Keyboard& shared();

    /// How high the keyboard is, in points.
    static CGFloat height(bool tablet, bool lying);

    bool isShown() const { return _shown; }
    /// In the coordinates of the screen held upright; below the screen while hidden.
    CGRect frame() const;

    /// A text input has become the first responder.
    void show();
    /// A text input has resigned; `coming` is what becomes first responder in its place, or nil.
    void hide(const UIResponder& coming);
    /// The interface is about to stand differently: a keyboard that is shown says that it goes.
    void interfaceWillTurn();
    /// The interface stands differently, after an animation of this many seconds: a keyboard that is shown
    /// comes again at the new edge. Called inside that animation.
    void interfaceTurned(double seconds);
    /// What the first responder wants of its keys may have changed: the return key's words, capitals.
    void refresh();
    /// The first responder's text or caret may have moved: shift follows where what stands before the caret is new.
    void textMoved();
    /// Whether the first responder's next letter is to be a capital.
    bool capitalIsNext() const;

private:
    void build();
    CGRect place(bool shown) const;
    /// What notifications say.
    CGRect toldFrame(bool shown) const;
    void putInPlace();
    void cancelArrival();
    void arriveAfter(double seconds, std::function<void()> arrival);
    void slide(CGRect to);
    void post(id name, CGRect begin, CGRect end) const;

    bool _shown = false;
    UIWindow _window; // nil until the keyboard is first shown
    UIView _keys;
    std::string _before;           // what stood before the caret when shift was last set by itself
    RunLoop::TimerId _arrival = 0; // 0 while nothing slides
};

} // namespace phone
