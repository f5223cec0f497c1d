#include "phone/uikit/ActivityViewController.h"

#include "phone/device/RunLoop.h"
#include "phone/device/Settings.h"
#include "phone/foundation/Raise.h"
#include "phone/uikit/Activity.h"
#include "phone/uikit/ActivityTile.h"
#include "phone/uikit/Layer.h"
#include "phone/uikit/Presentation.h"
#include "phone/uikit/SystemActivity.h"
#include "phone/uikit/SystemWords.h"
#include "platform/uikit/UIButton.h"
#include "platform/uikit/UIGestureRecognizer.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIScrollView.h"

#include <algorithm>

namespace phone {

namespace {

constexpr double margin = 8; // points around the panel and the cancel bar
constexpr double cancelHeight = 44;
constexpr double largestWidth = 540; // of the panel, which stands in the middle of a wider screen
constexpr double cornerRadius = 5;
constexpr double hairline = 0.5;
constexpr double cancelTextSize = 20;
constexpr double dimming = 0.4;     // how black the screen beneath becomes
constexpr double whiteness = 0.88;  // of the panel, over the blurred screen
constexpr double blurRadius = 20;   // points
constexpr CGFloat popoverTiles = 4; // beside each other in a popover

ActivityCategory categoryOf(const UIActivity& activity) {
    const Class cls = object_getClass(activity.raw());
    return static_cast<ActivityCategory>(
        objc::detail::call<objc::Int>(reinterpret_cast<id>(cls), objc::selector<"activityCategory">()));
}

bool shares(const UIActivity& activity) { return categoryOf(activity) == ActivityCategory::Share; }

CGRect below(CGRect frame, double distance) {
    return {frame.origin.x, frame.origin.y + distance, frame.size.width, frame.size.height};
}

void makeRounded(const UIView& view) {
    view.setBackgroundColor(UIColor::rgba(1, 1, 1, whiteness));
    Layer::of(view.layer())->setBlurBelow(blurRadius);
    view.layer().setCornerRadius(cornerRadius);
    view.layer().setMasksToBounds(true);
}

} // namespace

void ActivityViewController::define(objc::ClassTable<ActivityViewController>& c) {
    c.init<"initWithActivityItems:applicationActivities:", &ActivityViewController::initWithItems>()
        .overrides<"loadView", &ActivityViewController::loadView>()
        .overrides<"viewDidLayoutSubviews", &ActivityViewController::viewDidLayoutSubviews>()
        .overrides<"_preparePresentation", &ActivityViewController::preparePresentation>()
        .overrides<"_animatePresentation", &ActivityViewController::animatePresentation>()
        .overrides<"_animateDismissal", &ActivityViewController::animateDismissal>()
        .overrides<"shouldAutorotateToInterfaceOrientation:", &ActivityViewController::shouldAutorotateTo>()
        .overrides<"supportedInterfaceOrientations", &ActivityViewController::supportedOrientations>()
        .get<"excludedActivityTypes", &ActivityViewController::_excluded>()
        .set<"setExcludedActivityTypes:", &ActivityViewController::_excluded>()
        .def<"setCompletionHandler:", &ActivityViewController::setCompletionHandler>()
        .action<"_choose:", &ActivityViewController::choose>()
        .action<"_cancel:", &ActivityViewController::cancel>()
        .def<"_activity:finished:", &ActivityViewController::activityFinished>();
}

ActivityViewController::~ActivityViewController() {
    if (Activity* chosen = Activity::of(_chosen)) {
        chosen->setSheet(nullptr);
    }
}

void ActivityViewController::initWithItems(const NSArray& items, const NSArray& activities) {
    if (items.count() == 0) {
        raise("NSInvalidArgumentException", "UIActivityViewController needs at least one activity item");
    }
    super<"init">();
    _items = items;
    _applicationActivities = activities;
    const bool comesAsPopover = settings().device.isTablet() && settings().system.number >= 8;
    setModalPresentationStyle(comesAsPopover ? UIModalPresentationStyle::Popover : UIModalPresentationStyle::Custom);
}

PopoverPresentationController* ActivityViewController::popover() {
    return PopoverPresentationController::of(ViewController::of(*this)->popoverPresentationController());
}

bool ActivityViewController::shouldAutorotateTo(UIInterfaceOrientation orientation) const {
    return presentingViewController().send<"shouldAutorotateToInterfaceOrientation:", bool>(orientation);
}

objc::UInt ActivityViewController::supportedOrientations() const {
    return presentingViewController().send<"supportedInterfaceOrientations", objc::UInt>();
}

// What is offered

bool ActivityViewController::isExcluded(const UIActivity& activity) const {
    const NSString type = activity.activityType();
    return type && _excluded.contains(type);
}

std::vector<UIActivity> ActivityViewController::available() const {
    std::vector<UIActivity> all = makeSystemActivities();
    for (const auto& activity : _applicationActivities) {
        all.push_back(objc::as<UIActivity>(activity));
    }
    std::vector<UIActivity> offered;
    std::vector<UIActivity> actions;
    for (const UIActivity& activity : all) {
        if (!isExcluded(activity) && activity.canPerform(_items)) {
            (shares(activity) ? offered : actions).push_back(activity);
        }
    }
    offered.insert(offered.end(), actions.begin(), actions.end());
    return offered;
}

// The view

void ActivityViewController::loadView() {
    const auto root = UIView::withFrame(UIScreen::main().bounds());
    root.setAutoresizingMask(UIViewAutoresizing(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight));
    _dimming = UIView::withFrame(root.bounds());
    _dimming.setAutoresizingMask(root.autoresizingMask());
    _dimming.setBackgroundColor(popover() ? UIColor::clear() : UIColor::rgba(0, 0, 0, dimming));
    _dimming.addGestureRecognizer(UITapGestureRecognizer::with(*this, objc::selector<"_cancel:">()));
    root.addSubview(_dimming);

    _offered = available();
    _panel = objc::make<UIView>();
    makeRounded(_panel);
    const auto firstAction = std::find_if_not(_offered.begin(), _offered.end(), shares);
    addRow({_offered.begin(), firstAction});
    addRow({firstAction, _offered.end()});
    root.addSubview(_panel);
    if (popover()) {
        _panel.layer().setCornerRadius(popoverRoundness);
        _arrow = PopoverArrow::with({1, 1, 1, whiteness});
        root.addSubview(objc::as<UIView>(_arrow));
        send<"setView:">(root);
        return;
    }

    const auto button = UIButton::withType(UIButtonType::System);
    button.setTitle(cancelWord(), UIControlStateNormal);
    button.titleLabel().setFont(UIFont::boldSystem(cancelTextSize));
    button.addTarget(*this, objc::selector<"_cancel:">(), UIControlEventTouchUpInside);
    makeRounded(button);
    _cancel = button;
    root.addSubview(_cancel);
    send<"setView:">(root);
}

void ActivityViewController::addRow(const std::vector<UIActivity>& activities) {
    if (activities.empty()) {
        return;
    }
    const auto row = objc::make<UIScrollView>();
    double x = 0;
    for (const UIActivity& activity : activities) {
        const auto tile = objc::as<UIControl>(ActivityTile::with(activity));
        tile.setFrame({x, 0, ActivityTile::width(), ActivityTile::height()});
        tile.addTarget(*this, objc::selector<"_choose:">(), UIControlEventTouchUpInside);
        row.addSubview(tile);
        x += ActivityTile::width();
    }
    row.setContentSize({x, ActivityTile::height()});
    if (!_rows.empty()) {
        const auto line = objc::make<UIView>();
        line.setBackgroundColor(UIColor::rgba(0, 0, 0, 0.2));
        _panel.addSubview(line);
        _line = line;
    }
    _panel.addSubview(row);
    _rows.push_back(row);
}

CGRect ActivityViewController::cancelFrame() const {
    const CGSize screen = view().bounds().size;
    const double width = std::min(screen.width - 2 * margin, largestWidth);
    return {(screen.width - width) / 2, screen.height - margin - cancelHeight, width, cancelHeight};
}

CGRect ActivityViewController::panelFrame() const {
    const CGRect bar = cancelFrame();
    const double height = static_cast<double>(_rows.size()) * ActivityTile::height();
    return {bar.origin.x, bar.origin.y - margin - height, bar.size.width, height};
}

void ActivityViewController::viewDidLayoutSubviews() {
    super<"viewDidLayoutSubviews">();
    if (popover()) {
        placePopover();
    } else {
        _panel.setFrame(panelFrame());
        _cancel.setFrame(cancelFrame());
    }
    double y = 0;
    for (const UIScrollView& row : _rows) {
        row.setFrame({0, y, _panel.bounds().size.width, ActivityTile::height()});
        y += ActivityTile::height();
    }
    _line.setFrame({0, ActivityTile::height(), _panel.bounds().size.width, hairline});
}

void ActivityViewController::placePopover() {
    const CGSize content{popoverTiles * ActivityTile::width(),
                         static_cast<CGFloat>(_rows.size()) * ActivityTile::height()};
    const PopoverPlace place = popover()->place(content, view());
    _panel.setFrame(place.bubble);
    _arrow->place(place.arrow, place.direction);
}

// Coming and going: the screen darkens while the panel rises; a popover fades in where it hangs

void ActivityViewController::preparePresentation() {
    if (popover()) {
        const UIActivityViewController sheet = *this;
        // The platform looks for the anchor once the cycle in which it was presented is over.
        RunLoop::main().perform([sheet] { of(sheet)->popover()->checkAnchor(); });
    }
    animateDismissal();
}

void ActivityViewController::animatePresentation() {
    if (popover()) {
        view().setAlpha(1);
        return;
    }
    _dimming.setAlpha(1);
    _panel.setFrame(panelFrame());
    _cancel.setFrame(cancelFrame());
}

void ActivityViewController::animateDismissal() {
    if (popover()) {
        view().setAlpha(0);
        return;
    }
    _dimming.setAlpha(0);
    const double distance = view().bounds().size.height - panelFrame().origin.y;
    _panel.setFrame(below(panelFrame(), distance));
    _cancel.setFrame(below(cancelFrame(), distance));
}

// What the person does

void ActivityViewController::choose(const objc::Object& sender) {
    ActivityTile* tile = ActivityTile::of(sender);
    if (tile == nullptr || _chosen || _closed) {
        return;
    }
    _chosen = tile->activity();
    Activity::of(_chosen)->setSheet(*this);
    _chosen.prepare(_items);
    if (const UIViewController controller = _chosen.activityViewController()) {
        present(controller, true, nullptr);
    } else {
        _chosen.performActivity();
    }
}

void ActivityViewController::cancel(const objc::Object&) {
    if (!_chosen) {
        close(nullptr, false);
    }
}

void ActivityViewController::activityFinished(const UIActivity& activity, bool completed) {
    if (activity == _chosen) {
        close(activity.activityType(), completed);
    }
}

void ActivityViewController::close(const NSString& type, bool completed) {
    if (_closed) {
        return; // told twice; the first time counts
    }
    _closed = true;
    const UIActivityViewController sheet = *this;
    const NSString chosen = type; // a block that captures a parameter by way of the lambda never releases it
    presentation::whenIdle([sheet, chosen, completed] {
        auto tell = ^{
          of(sheet)->tellHandler(chosen, completed);
        };
        if (const UIViewController presenter = sheet.presentingViewController()) {
            presenter.dismiss(true, tell);
        } else {
            tell();
        }
    });
}

void ActivityViewController::tellHandler(const NSString& type, bool completed) {
    const auto handler = objc::move(_handler);
    _handler = nullptr;
    handler(type.raw(), completed);
}

} // namespace phone
