// Lays a tap area across the top of the call screen that opens the share sheet. Two generations of the
// phone application are served; of each process only one of the two classes exists.

#include "Quorvan/activities/EventCreate.h"
#include "Quorvan/activities/NoteTaking.h"
#include "Quorvan/activities/ReminderMake.h"
#include "platform/substrate/Substrate.h"
#include "platform/uikit/UIGestureRecognizer.h"
#include "platform/uikit/UIPopoverPresentationController.h"

namespace quorvan {

namespace {

// The flag of `viewDidAppear:` travels through as the word it came in.
constinit substrate::Previous<void(objc::UInt)> newerDidAppear;
constinit substrate::Previous<void()> olderDidLoad;
constinit substrate::Previous<void()> olderLoadView;
constinit substrate::Previous<void(objc::UInt)> olderDidAppear;

/// The top of the call screen, below the status bar. Fixed: it does not follow the screen's width.
constexpr CGRect tapAreaFrame{0, 22, 320, 60};

void addTapArea(id callScreen) {
    const auto controller = objc::borrow<UIViewController>(callScreen);
    const auto area = UIView::withFrame(tapAreaFrame);
    area.setBackgroundColor(UIColor::clear());
    controller.view().addSubview(area);
    area.addGestureRecognizer(UITapGestureRecognizer::with(controller, objc::selector<"invokeShare:">()));
}

/// The newer call screen (docs/kept.md: one area more).
void newerScreenAppeared(id self, SEL selector, objc::UInt animated) {
    newerDidAppear(self, selector, animated);
    addTapArea(self);
}

void olderScreenLoaded(id self, SEL selector) {
    olderDidLoad(self, selector);
    addTapArea(self);
}

// docs/kept.md: hooks that add nothing
void olderScreenLoadsView(id self, SEL selector) { olderLoadView(self, selector); }
void olderScreenAppeared(id self, SEL selector, objc::UInt animated) { olderDidAppear(self, selector, animated); }

/// Without those that the system does not know yet.
NSArray excludedTypes() {
    const id* const types[] = {
        &UIActivityTypePrint,
        &UIActivityTypeCopyToPasteboard,
        &UIActivityTypeAssignToContact,
        &UIActivityTypeSaveToCameraRoll,
        &UIActivityTypePostToFacebook,
        &UIActivityTypePostToTwitter,
        &UIActivityTypePostToWeibo,
        &UIActivityTypeAirDrop,
        &UIActivityTypeAddToReadingList,
    };
    const auto excluded = objc::make<NSMutableArray>();
    for (const id* type : types) {
        if (type != nullptr) {
            excluded.add(objc::borrow<NSString>(*type));
        }
    }
    return excluded;
}

/// From 8 on a tablet shows the sheet as a popover, which has to know where it hangs.
void anchorToTapArea(const UIActivityViewController& sheet, const UIViewController& callScreen) {
    if (objc::responds<"popoverPresentationController">(sheet)) {
        const auto popover = sheet.popoverPresentationController();
        popover.setSourceView(callScreen.view());
        popover.setSourceRect(tapAreaFrame);
    }
}

/// The action of the tap area. Its encoding names no argument, so it takes none.
void invokeShare(id self, SEL) {
    const auto activities =
        NSArray::of(objc::Ref<NoteTaking>::make(), objc::Ref<ReminderMake>::make(), objc::Ref<EventCreate>::make());
    const auto sheet = UIActivityViewController::with(NSArray::of(""_ns), activities);
    sheet.setModalTransitionStyle(UIModalTransitionStyle::CoverVertical);
    sheet.setExcludedActivityTypes(excludedTypes());
    const auto callScreen = objc::borrow<UIViewController>(self);
    anchorToTapArea(sheet, callScreen);
    callScreen.present(sheet, true, nullptr);
}

constexpr const char* invokeShareEncoding = "v@:"; // docs/kept.md: no argument

__attribute__((constructor)) void load() {
    const Class newer = objc_getClass("PHCallViewController");
    substrate::hook(newer, objc::selector<"viewDidAppear:">(), newerScreenAppeared, newerDidAppear);
    substrate::addMethod(newer, objc::selector<"invokeShare:">(), invokeShare, invokeShareEncoding);

    const Class older = objc_getClass("InCallController");
    substrate::hook(older, objc::selector<"viewDidLoad">(), olderScreenLoaded, olderDidLoad);
    substrate::hook(older, objc::selector<"loadView">(), olderScreenLoadsView, olderLoadView);
    substrate::hook(older, objc::selector<"viewDidAppear:">(), olderScreenAppeared, olderDidAppear);
    substrate::addMethod(older, objc::selector<"invokeShare:">(), invokeShare, invokeShareEncoding);
}

} // namespace

} // namespace quorvan
