#include "Quorvan/note/NoteAccountController.h"

#include "Quorvan/common/ChooserFrame.h"
#include "Quorvan/common/Resources.h"
#include "Quorvan/common/Screen.h"
#include "Quorvan/common/ScreenState.h"
#include "Quorvan/common/Tables.h"
#include "Quorvan/common/TakeBack.h"
#include "Quorvan/common/WaysBack.h"
#include "platform/uikit/UIDevice.h"
#include "platform/uikit/UIScreen.h"

namespace quorvan {

namespace {

constexpr const char* localAccount = "LOCAL_NOTES_ACCOUNT";

/// What the device's own account is called here.
NSString deviceName() {
    const auto device = UIDevice::current();
    if (!objc::responds<"userInterfaceIdiom">(device)) {
        return localized("Omiphone");
    }
    switch (device.userInterfaceIdiom()) {
    case 0:
        return localized("Omiphone");
    case 1:
        return localized("Omipad");
    default:
        return localized("Omitouch");
    }
}

/// The screen as it is held. Every orientation but upright counts as lying, upside-down included.
CGSize screenSize() {
    const CGSize upright = UIScreen::main().bounds().size;
    return UIApplication::shared().statusBarOrientation() == UIInterfaceOrientation::Portrait
               ? upright
               : CGSize{upright.height, upright.width};
}

} // namespace

void NoteAccountController::define(objc::ClassTable<NoteAccountController>& c) {
    c.init<"initWithNibName:bundle:", &NoteAccountController::initWithNibName>()
        .overrides<"viewDidLoad", &NoteAccountController::viewDidLoad>()
        .overrides<"didReceiveMemoryWarning", &NoteAccountController::didReceiveMemoryWarning>()
        .def<"createNote", &NoteAccountController::createNote>()

        .conforms("UITableViewDataSource")
        .def<"numberOfSectionsInTableView:", &NoteAccountController::numberOfSections>()
        .def<"tableView:numberOfRowsInSection:", &NoteAccountController::numberOfRows>()
        .def<"tableView:cellForRowAtIndexPath:", &NoteAccountController::cellForRow>()
        .conforms("UITableViewDelegate")
        .def<"tableView:didSelectRowAtIndexPath:", &NoteAccountController::didSelectRow>()
        .action<"back:", &NoteAccountController::back>()

        .overrides<"shouldAutorotateToInterfaceOrientation:", &NoteAccountController::shouldAutorotate>()
        .overrides<"willRotateToInterfaceOrientation:duration:", &NoteAccountController::willRotate>()
        .overrides<"didRotateFromInterfaceOrientation:", &NoteAccountController::didRotate>();
}

void NoteAccountController::initWithNibName(const NSString& nib, const NSObject& bundle) {
    super<"initWithNibName:bundle:">(nib, bundle);
}

NoteAccountController::~NoteAccountController() { takeBackDelegates(nAtable); }

void NoteAccountController::viewDidLoad() {
    super<"viewDidLoad">();
    const auto backdrop = addBackdrop(view(), {{0, 0}, screenSize()});
    titleScreen(*this, "Note"_ns);
    const UIView panel = createNote();
    panel.setCenter(backdrop.center());
    view().addSubview(panel);
}

void NoteAccountController::didReceiveMemoryWarning() { super<"didReceiveMemoryWarning">(); }

UIView NoteAccountController::createNote() {
    const CGSize size = notePanelSize();
    const CGFloat line = hairline();
    ChooserFrame frame(*this, {panelOrigin, size}, "Account"_ns);
    frame.addBar();
    nAtable = makeTable(*this, {0, barHeight + line, size.width, size.height - line - barHeight});
    frame.add(nAtable);
    return frame.finish(line);
}

objc::Int NoteAccountController::numberOfSections(const UITableView&) { return 1; }

objc::Int NoteAccountController::numberOfRows(const UITableView&, objc::Int) {
    return static_cast<objc::Int>(NoteContext::make().allStores().count());
}

UITableViewCell NoteAccountController::cellForRow(const UITableView& table, const NSIndexPath& path) {
    const auto context = NoteContext::make();
    const auto store = context.allStores().at<NoteStoreObject>(static_cast<objc::UInt>(path.row()));
    (void)context.defaultStoreForNewNote(); // docs/kept.md: questions whose answer nobody reads
    const NSString name = store.account().name();
    return plainCell(table, name.isEqualToString(NSString::utf8(localAccount)) ? deviceName() : name);
}

void NoteAccountController::didSelectRow(const UITableView& table, const NSIndexPath& path) {
    const auto cell = moveCheckmark(table, previousSelection, path);
    table.deselectRow(path, true);
    nAccount = cell.textLabel().text();
    previousSelection = path.row();
    storeNum = path.row();
    accountName->reloadData();
}

void NoteAccountController::back(const objc::Object&) { popToCompose(*this, Reload::AfterThePop); }

bool NoteAccountController::shouldAutorotate(UIInterfaceOrientation) { return isTablet(); }

void NoteAccountController::willRotate(UIInterfaceOrientation, double) {
    if (isTablet()) {
        removeEverything(view());
    }
}

void NoteAccountController::didRotate(UIInterfaceOrientation) {
    if (isTablet()) {
        viewDidLoad();
    }
}

} // namespace quorvan
