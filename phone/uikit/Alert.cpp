#include "phone/uikit/Alert.h"

#include "phone/device/RunLoop.h"
#include "phone/uikit/AlertView.h"
#include "phone/uikit/Animator.h"
#include "phone/uikit/Interface.h"

#include <utility>

namespace phone {

namespace {
constexpr CGFloat dimming = 0.4; // how much of the screen's light an alert takes
} // namespace

void askPerson(Question question) {
    RunLoop::main().perform([question = std::move(question)] { Alerts::shared().ask(question); });
}

Alerts& Alerts::shared() {
    static auto* alerts = new Alerts; // holds objects: never destroyed
    return *alerts;
}

void Alerts::ask(Question question) {
    _questions.push_back(std::move(question));
    if (!_window) {
        showNext();
    }
}

void Alerts::showNext() {
    _window = UIWindow::withFrame(Interface::screen());
    _window.setWindowLevel(windowLevel);
    _stage = UIView::withFrame(_window.bounds());
    _stage.setBackgroundColor(UIColor::rgba(0, 0, 0, dimming));
    _window.addSubview(_stage);
    interfaceTurned();
    _stage.addSubview(AlertView::with(_questions.front()));
    _window.setAlpha(0);
    _window.setHidden(false);
    fade(1, nullptr);
}

void Alerts::answer(int button) {
    const auto answered = _questions.front().answered;
    _window.setUserInteractionEnabled(false);
    fade(0, [this] {
        _window.setHidden(true);
        _window = nullptr;
        _stage = nullptr;
        _questions.erase(_questions.begin());
        if (!_questions.empty()) {
            showNext();
        }
    });
    if (answered) {
        answered(button);
    }
}

void Alerts::interfaceTurned() {
    if (_window) {
        Interface::shared().fill(_stage, _window);
        _stage.layoutIfNeeded();
    }
}

void Alerts::fade(CGFloat to, std::function<void()> then) {
    AnimationSettings settings;
    settings.duration = fadeSeconds;
    Animator::shared().open(std::move(settings), [then = std::move(then)](bool) {
        if (then) {
            then();
        }
    });
    _window.setAlpha(to);
    Animator::shared().close();
}

} // namespace phone
