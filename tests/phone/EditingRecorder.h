/// A delegate and observer that writes down what it is asked and told.
#pragma once

#include "phone/foundation/Text.h"
#include "platform/foundation/NSNotification.h"
#include "platform/uikit/UIKeyboard.h"
#include "platform/uikit/UITextField.h"
#include "platform/uikit/UITextView.h"

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

/// Answers yes to every question that is not in `refused`. Entries read "shouldBegin title", where
/// "title" is the accessibility identifier of the input, or "WillShow" for a notification.
class EditingRecorder : public objc::Defines<EditingRecorder, NSObject> {
public:
    static constexpr auto objc_name = "EditingRecorder";
    using Self = EditingRecorder;

    static void define(objc::ClassTable<EditingRecorder>& c) {
        c.def<"textFieldShouldBeginEditing:", &Self::shouldBegin>()
            .def<"textFieldDidBeginEditing:", &Self::didBegin>()
            .def<"textFieldShouldEndEditing:", &Self::shouldEnd>()
            .def<"textFieldDidEndEditing:", &Self::didEnd>()
            .def<"textFieldShouldReturn:", &Self::shouldReturn>()
            .def<"textField:shouldChangeCharactersInRange:replacementString:", &Self::shouldChange>()
            .def<"textViewShouldBeginEditing:", &Self::shouldBegin>()
            .def<"textViewDidBeginEditing:", &Self::didBegin>()
            .def<"textViewShouldEndEditing:", &Self::shouldEnd>()
            .def<"textViewDidEndEditing:", &Self::didEnd>()
            .def<"textView:shouldChangeTextInRange:replacementText:", &Self::shouldChange>()
            .def<"textViewDidChange:", &Self::didChange>()
            .action<"willShow:", &Self::willShow>()
            .action<"didShow:", &Self::didShow>()
            .action<"willHide:", &Self::willHide>()
            .action<"didHide:", &Self::didHide>()
            .action<"edited:", &Self::edited>();
    }

    /// Also writes down the keyboard's notifications.
    void observeKeyboard() {
        observe<"willShow:">(UIKeyboardWillShowNotification);
        observe<"didShow:">(UIKeyboardDidShowNotification);
        observe<"willHide:">(UIKeyboardWillHideNotification);
        observe<"didHide:">(UIKeyboardDidHideNotification);
    }
    /// What was written down since the last call.
    std::vector<std::string> take() { return std::exchange(entries, {}); }

    std::vector<std::string> entries;
    std::vector<std::string> refused;                    // "shouldEnd title"
    std::map<std::string, std::function<void()>> during; // what to do besides, by entry
    NSDictionary information;                            // of the last notification

private:
    template <objc::FixedString Action>
    void observe(id name) {
        NSNotificationCenter::defaultCenter().addObserver(*this, objc::selector<Action>(), objc::borrow<NSString>(name),
                                                          nullptr);
    }
    bool add(const std::string& entry) {
        entries.push_back(entry);
        if (const auto found = during.find(entry); found != during.end()) {
            found->second();
        }
        return std::find(refused.begin(), refused.end(), entry) == refused.end();
    }
    bool add(const char* what, const UIView& input) {
        return add(std::string(what) + " " + phone::text(input.accessibilityIdentifier()));
    }
    void notice(const char* what, const objc::Object& notification) {
        information = objc::as<NSNotification>(notification).userInfo();
        add(what);
    }

    bool shouldBegin(const UIView& input) { return add("shouldBegin", input); }
    void didBegin(const UIView& input) { add("didBegin", input); }
    bool shouldEnd(const UIView& input) { return add("shouldEnd", input); }
    void didEnd(const UIView& input) { add("didEnd", input); }
    bool shouldReturn(const UIView& input) { return add("shouldReturn", input); }
    bool shouldChange(const UIView&, NSRange range, const NSString& replacement) {
        return add("change " + std::to_string(range.location) + "+" + std::to_string(range.length) + " '" +
                   phone::text(replacement) + "'");
    }
    void didChange(const UIView& input) { add("didChange", input); }
    void edited(const objc::Object& sender) { add("edited", objc::as<UIView>(sender)); }
    void willShow(const objc::Object& notification) { notice("WillShow", notification); }
    void didShow(const objc::Object& notification) { notice("DidShow", notification); }
    void willHide(const objc::Object& notification) { notice("WillHide", notification); }
    void didHide(const objc::Object& notification) { notice("DidHide", notification); }
};
