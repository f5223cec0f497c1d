#include "tests/phone/Probe.h"

#include "platform/uikit/UIWindow.h"

#include <utility>

std::vector<std::string>& probed() {
    static auto* all = new std::vector<std::string>;
    return *all;
}

std::vector<std::string> takeProbed() { return std::exchange(probed(), {}); }

void Probe::define(objc::ClassTable<Probe>& c) {
    c.overrides<"loadView", &Probe::loadView>()
        .overrides<"viewDidLoad", &Probe::viewDidLoad>()
        .overrides<"viewWillAppear:", &Probe::viewWillAppear>()
        .overrides<"viewDidAppear:", &Probe::viewDidAppear>()
        .overrides<"viewWillDisappear:", &Probe::viewWillDisappear>()
        .overrides<"viewDidDisappear:", &Probe::viewDidDisappear>();
}

Probe::~Probe() { note("dealloc"); }

UIViewController Probe::with(const std::string& name) {
    const auto probe = objc::Ref<Probe>::make();
    probe->_name = name;
    return objc::as<UIViewController>(probe);
}

void Probe::note(const char* what) const { probed().push_back(_name + " " + what); }

void Probe::loadView() {
    note("loadView");
    super<"loadView">();
}

void Probe::viewDidLoad() {
    note("viewDidLoad");
    super<"viewDidLoad">();
    loadedFrame = view().frame();
}

void Probe::viewWillAppear(bool animated) {
    note("willAppear");
    wasInWindow = static_cast<bool>(view().window());
    wasAnimated = animated;
    super<"viewWillAppear:">(animated);
}

void Probe::viewDidAppear(bool animated) {
    note("didAppear");
    super<"viewDidAppear:">(animated);
}

void Probe::viewWillDisappear(bool animated) {
    note("willDisappear");
    super<"viewWillDisappear:">(animated);
}

void Probe::viewDidDisappear(bool animated) {
    note("didDisappear");
    super<"viewDidDisappear:">(animated);
}
