/// One link of the chain that an event travels, and who among all of them receives the keys.
#pragma once

#include "platform/uikit/UIEvent.h"
#include "platform/uikit/UIResponder.h"

namespace phone {

/// UIResponder. What a subclass wants to know of becoming and resigning it learns by overriding four
/// messages, each sent once a change; `becomeFirstResponder` and `resignFirstResponder` themselves are
/// answered here, and asking again while the change is under way does nothing:
///   `_shouldBecomeFirstResponder`, `_didBecomeFirstResponder`,
///   `_shouldResignFirstResponder` (not asked when the view leaves its window), `_didResignFirstResponder`.
/// The new responder is asked first, then the old one is asked and told, then the new one is told.
class Responder : public objc::Implements<Responder, UIResponder, NSObject> {
public:
    static void define(objc::ClassTable<Responder>& c) {
        c.def<"nextResponder", &Responder::nextResponder>()
            .def<"isFirstResponder", &Responder::isFirstResponder>()
            .def<"canBecomeFirstResponder", &Responder::canBecomeFirstResponder>()
            .def<"canResignFirstResponder", &Responder::canResignFirstResponder>()
            .def<"becomeFirstResponder", &Responder::becomeFirstResponder>()
            .def<"resignFirstResponder", &Responder::resignFirstResponder>()
            .def<"_shouldBecomeFirstResponder", &Responder::shouldBecome>()
            .def<"_didBecomeFirstResponder", &Responder::didBecome>()
            .def<"_shouldResignFirstResponder", &Responder::shouldResign>()
            .def<"_didResignFirstResponder", &Responder::didResign>()
            .def<"touchesBegan:withEvent:", &Responder::touchesBegan>()
            .def<"touchesMoved:withEvent:", &Responder::touchesMoved>()
            .def<"touchesEnded:withEvent:", &Responder::touchesEnded>()
            .def<"touchesCancelled:withEvent:", &Responder::touchesCancelled>();
    }
    ~Responder();

    /// The responder that receives the keys; nil while there is none.
    static UIResponder first();
    /// While the first responder resigns in favour of another: that other one; else nil.
    static UIResponder coming();
    /// Makes this resign without asking, as when its view leaves the window.
    void forceResign();

    UIResponder nextResponder() const { return nullptr; }
    bool isFirstResponder() const;
    bool canBecomeFirstResponder() const { return false; }
    bool canResignFirstResponder() const { return true; }
    bool becomeFirstResponder();
    bool resignFirstResponder();

private:
    bool shouldBecome() { return true; }
    void didBecome() {}
    bool shouldResign() { return true; }
    void didResign() {}
    // Touches that a class does not handle go on along the chain.
    void touchesBegan(const NSSet& touches, const UIEvent& event);
    void touchesMoved(const NSSet& touches, const UIEvent& event);
    void touchesEnded(const NSSet& touches, const UIEvent& event);
    void touchesCancelled(const NSSet& touches, const UIEvent& event);

    void resign();

    bool _becoming = false;
    bool _resigning = false;
};

} // namespace phone
