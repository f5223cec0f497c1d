/// Controllers that write down what they are told.
#pragma once

#include "platform/uikit/UINavigationController.h"

#include <string>
#include <vector>

/// Every message of every probe, in order: "name message".
std::vector<std::string>& probed();
/// What was written down since the last call.
std::vector<std::string> takeProbed();

class Probe : public objc::Defines<Probe, UIViewController> {
public:
    static constexpr auto objc_name = "Probe";
    static void define(objc::ClassTable<Probe>& c);
    ~Probe();

    static UIViewController with(const std::string& name);
    /// Whether its view was in a window when `viewWillAppear:` came; the `animated` that came with it.
    static inline bool wasInWindow = false;
    static inline bool wasAnimated = false;
    static inline CGRect loadedFrame;

private:
    void loadView();
    void viewDidLoad();
    void viewWillAppear(bool animated);
    void viewDidAppear(bool animated);
    void viewWillDisappear(bool animated);
    void viewDidDisappear(bool animated);
    void note(const char* what) const;

    std::string _name;
};
