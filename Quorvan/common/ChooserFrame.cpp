#include "Quorvan/common/ChooserFrame.h"

#include "Quorvan/common/NewerSystems.h"
#include "Quorvan/common/Panel.h"
#include "Quorvan/common/Resources.h"
#include "Quorvan/common/ScreenState.h"
#include "platform/uikit/UIButton.h"
#include "platform/uikit/UIScreen.h"

namespace quorvan {

namespace {

// A tablet turns these screens without building them anew.
constexpr auto coversTheScreen = UIViewAutoresizing(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
constexpr auto keepsItsPlace =
    UIViewAutoresizing(UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleRightMargin |
                       UIViewAutoresizingFlexibleTopMargin | UIViewAutoresizingFlexibleBottomMargin);

UIButton backButton(const UIViewController& chooser, CGRect frame) {
    const auto button = UIButton::withType(UIButtonType::Custom);
    button.setFrame(frame);
    button.addTarget(chooser, objc::selector<"back:">(), UIControlEventTouchUpInside);
    return button;
}

/// The arrow and the word, sized by the arrow's picture: without the picture nothing can be tapped.
UIView makeBack(const UIViewController& chooser) {
    const UIImage arrow = picture("back.png");
    const CGFloat width = arrow.size().width;
    const CGFloat height = arrow.size().height;

    const auto arrowButton = backButton(chooser, {-8, 1, width / 2, height / 2});
    arrowButton.setBackgroundImage(arrow.stretchable(7, 0), UIControlStateNormal);

    const auto wordButton = backButton(chooser, {width / 2 - 5, 2, 75, height / 2});
    wordButton.setTitle(localized("Back"), UIControlStateNormal);
    wordButton.setContentHorizontalAlignment(UIControlContentHorizontalAlignment::Left);
    wordButton.setTitleColor(UIColor::rgba(0, 121 / 255.0, 1, 1), UIControlStateNormal);
    wordButton.setTitleColor(UIColor::rgba(0, 64 / 255.0, 136 / 255.0, 1), UIControlStateHighlighted);

    const auto back = UIView::withFrame({0, 0, (width + 100) / 2 + 30, height / 2});
    back.addSubview(arrowButton);
    back.addSubview(wordButton);
    return back;
}

} // namespace

ChooserFrame::ChooserFrame(const UIViewController& chooser, CGSize size, const NSString& title, CGPoint origin)
    : _title(title), _panel(makePanel(size, origin)), _bar(makeBar(size.width)), _back(makeBack(chooser)) {
    _bar.topItem().setTitle(_title); // deliberate, though the bar has no item yet and nothing hears it
}

void ChooserFrame::addSwitch(const NSString& word, bool on, CGFloat lineTop) {
    allDayAllNight = UISwitch::withFrame({227, 49, 77, 27});
    allDayAllNight->setOn(on, false);
    _panel.addSubview(allDayAllNight);
    const auto label = UILabel::withFrame({15, 51, 160, 27});
    label.setText(word);
    _panel.addSubview(label);
    addSeparator(_panel, {0, lineTop, _panel.frame().size.width, 0.5});
}

void ChooserFrame::addBar() {
    const auto back = UIBarButtonItem::withCustomView(_back);
    _bar.topItem().setLeftBarButtonItem(back); // as above
    const auto item = UINavigationItem::withTitle(_title);
    item.setLeftBarButtonItem(back);
    _bar.setItems(NSArray::of(item));
    _panel.addSubview(_bar);
}

UITableView ChooserFrame::addTable(const UIViewController& chooser) {
    const CGSize size = _panel.frame().size;
    return addTable(chooser, {0, barHeight, size.width, size.height - barHeight});
}

UITableView ChooserFrame::addTable(const UIViewController& chooser, CGRect frame) {
    const auto table = UITableView::withFrame(frame, UITableViewStyle::Plain);
    table.setDelegate(chooser);
    table.setDataSource(chooser);
    _panel.addSubview(table);
    return table;
}

UIDatePicker ChooserFrame::addPicker(const UIViewController& chooser, CGRect frame) {
    const auto picker = UIDatePicker::withFrame(frame);
    keepWheels(picker);
    picker.setFrame(frame);
    picker.addTarget(chooser, objc::selector<"pickerChanged:">(), UIControlEventValueChanged);
    _panel.addSubview(picker);
    return picker;
}

UIView ChooserFrame::finish(CGFloat separator) {
    roundCorners(_panel);
    addSeparator(_panel, {0, barHeight, _panel.frame().size.width, separator});
    return _panel;
}

UIImageView startChooser(const UIViewController& chooser, CGSize screen, const NSString& title) {
    const auto backdrop = addBackdrop(chooser.view(), {{0, 0}, screen});
    chooser.setTitle(title);
    chooser.navigationController().setNavigationBarHidden(true, false);
    return backdrop;
}

UIImageView startChooser(const UIViewController& chooser, const NSString& title) {
    const auto backdrop = startChooser(chooser, UIScreen::main().bounds().size, title);
    backdrop.setAutoresizingMask(coversTheScreen);
    return backdrop;
}

void showPanel(const UIViewController& chooser, const UIView& panel) {
    panel.setCenter(chooser.view().center());
    panel.setAutoresizingMask(keepsItsPlace);
    chooser.view().addSubview(panel);
}

void forgetDelegates(const UITableView& table) {
    table.setDelegate(nullptr);
    table.setDataSource(nullptr);
}

void forgetDelegates(const UITableView& table, const objc::Object& screen) {
    if (table.send<"delegate", id>() == screen.raw()) {
        forgetDelegates(table);
    }
}

UITableViewCell cellWithIdentifier(const UITableView& table, const NSString& identifier) {
    const auto cell = table.dequeue(identifier);
    return cell ? cell : UITableViewCell::with(0, identifier);
}

UITableViewCell plainCell(const UITableView& table, const NSString& text) {
    const auto cell = cellWithIdentifier(table, "Cell"_ns);
    cell.textLabel().setText(text);
    return cell;
}

UITableViewCell moveCheckmark(const UITableView& table, objc::Int markedBefore, const NSIndexPath& tapped) {
    const auto before = NSIndexPath::forRow(markedBefore, tapped.section());
    table.cellForRow(before).setAccessoryType(UITableViewCellAccessoryType::None);
    const auto cell = table.cellForRow(tapped);
    cell.setAccessoryType(UITableViewCellAccessoryType::Checkmark);
    return cell;
}

void popToCompose(const UIViewController& chooser, Reload rows) {
    if (rows == Reload::BeforeThePop) {
        accountName->reloadData();
    }
    chooser.navigationController().popToRoot(true);
    if (rows == Reload::AfterThePop) {
        accountName->reloadData();
    }
}

void popToSecond(const UIViewController& chooser) {
    const UINavigationController navigation = chooser.navigationController();
    navigation.popTo(navigation.viewControllers().at<UIViewController>(1), true);
}

} // namespace quorvan
