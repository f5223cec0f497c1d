/// Questions of the system to the person, over everything that is on the screen.
#pragma once

#include "platform/uikit/UIWindow.h"

#include <functional>
#include <string>
#include <vector>

namespace phone {

/// What an alert asks. Texts are UTF-8; an empty message takes no room.
struct Question {
    std::string title;
    std::string message;
    std::vector<std::string> buttons; // at least one, from left to right, or from top to bottom where they are long
    /// Called on the main thread with the number of the button that was touched, from 0.
    std::function<void(int button)> answered;
};

/// Shows the question in a window of its own in front of the keyboard; one after the other where there are
/// several. It appears in the main loop's next cycle. From any thread.
void askPerson(Question question);

inline void askPerson(const std::string& title, const std::string& message, const std::vector<std::string>& buttons,
                      std::function<void(int button)> answered) {
    askPerson({title, message, buttons, std::move(answered)});
}

/// The alerts of this process. Main thread only.
class Alerts {
public:
    static constexpr UIWindowLevel windowLevel = 2000;
    static constexpr double fadeSeconds = 0.2;

    static Alerts& shared();

    void ask(Question question);
    /// The question that is on the screen has got its answer.
    void answer(int button);
    /// Puts the alert upright again; inside the interface's own animation.
    void interfaceTurned();

private:
    void showNext();
    void fade(CGFloat to, std::function<void()> then);

    std::vector<Question> _questions; // the first is on the screen while there is a window
    UIWindow _window;                 // nil while there is nothing to ask
    UIView _stage;                    // fills the window, upright for the person
};

} // namespace phone
