#include "phone/uikit/AlertView.h"
#include "phone/uikit/Button.h"
#include "phone/uikit/Caret.h"
#include "phone/uikit/Control.h"
#include "phone/uikit/DatePicker.h"
#include "phone/uikit/KeyboardNames.h"
#include "phone/uikit/KeyboardView.h"
#include "phone/uikit/Pasteboard.h"
#include "phone/uikit/PickerWheel.h"
#include "phone/uikit/Register.h"
#include "phone/uikit/ScrollDrag.h"
#include "phone/uikit/ScrollView.h"
#include "phone/uikit/Switch.h"
#include "phone/uikit/TableParts.h"
#include "phone/uikit/TableView.h"
#include "phone/uikit/TableViewCell.h"
#include "phone/uikit/TextField.h"
#include "phone/uikit/TextView.h"

namespace phone {

void registerTextClasses() {
    registerKeyboardNames();
    Control::definedClass();
    Button::definedClass();
    ScrollDrag::definedClass();
    ScrollView::definedClass();
    Switch::definedClass();
    PickerWheel::definedClass();
    DatePicker::definedClass();
    AlertView::definedClass();
    Caret::definedClass();
    TextField::definedClass();
    TextView::definedClass();
    KeyboardKeyView::definedClass();
    KeyboardView::definedClass();
    KeyboardWindow::definedClass();
    Pasteboard::definedClass();
    TableWrapper::definedClass();
    TableCellScrollView::definedClass();
    TableCellContentView::definedClass();
    TableCellSeparator::definedClass();
    TableCellSelectedBackground::definedClass();
    TableCellMark::definedClass();
    TableHeader::definedClass();
    TableViewCell::definedClass();
    TableView::definedClass();
}

} // namespace phone
